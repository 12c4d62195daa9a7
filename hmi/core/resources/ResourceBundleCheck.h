#pragma once

#include <vector>

#include <hmi/core/resources/BoundedBytes.h>

namespace Hmi::Core {

/**
 * Checks that Qt binary resource data (.rcc) can be registered and read without leaving the data. Qt follows
 * the offsets of a bundle unchecked, so that a truncated or damaged one would crash the process later.
 *
 * Checked are the header, every node that the root reaches, its name, the bounds of its data and the size
 * that compressed data claims to have. A node that is reached twice and a name that is no single step of a
 * path are faults, so that a walk over the entries ends. Damage inside an entry's content is not seen.
 */
class Q_DECL_EXPORT ResourceBundleCheck
{
public:
    /** Entries that claim to be larger than this many bytes when uncompressed are refused. */
    static constexpr quint64 MaximumEntrySize = 256ULL * 1024 * 1024;

    explicit ResourceBundleCheck(const BoundedBytes& aFile) : mFile(aFile) {}

    /** What is wrong, to follow the bundle's name in a message; null when nothing is. */
    const char* findFault();

private:
    bool readHeader();
    bool checkTree();
    bool checkNode(quint32 aNode);
    bool checkName(quint64 aOffset) const;
    bool checkData(quint64 aOffset, quint16 aFlags) const;
    bool claimChildren(quint64 aFirst, quint64 aCount);

    BoundedBytes mFile;
    BoundedBytes mTree;
    BoundedBytes mNames;
    BoundedBytes mData;
    quint64 mNodeSize = 0;
    std::vector<bool> mClaimed;
    std::vector<quint32> mPending;
};

} // namespace Hmi::Core
