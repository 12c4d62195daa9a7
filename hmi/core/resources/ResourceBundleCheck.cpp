#include <hmi/core/resources/ResourceBundleCheck.h>

#include <algorithm>
#include <cstring>

// file   = "qres" version:u32 tree:u32 data:u32 names:u32 [flags:u32, from version 3]
//          The three are offsets from the start of the file; the sections may stand in any order.
// tree   = node*, node 0 is the root directory
// node   = name:u32 flags:u16 (directory | entry) [modified:u64, from version 2]
// directory = count:u32 first:u32, the children are nodes that follow each other
// entry  = country:u16 language:u16 data:u32
// name   = length:u16 hash:u32 UTF-16 units, one step of a path
// data   = length:u32 bytes
namespace Hmi::Core {

static constexpr quint16 FlagZlib = 0x01;
static constexpr quint16 FlagDirectory = 0x02;
static constexpr quint16 FlagZstd = 0x04;

// The content size in the header of a Zstandard frame; none is given as 0, as Qt cannot read such data.
static quint64 zstdContentSize(const BoundedBytes& aFrame)
{
    static constexpr quint64 DictionaryIdSizes[] = {0, 1, 2, 4};
    if (!aFrame.has(0, 5))
        return 0;
    const auto descriptor = aFrame.number<quint8>(4);
    const bool singleSegment = descriptor & 0x20;
    const quint64 offset = 5 + (singleSegment ? 0 : 1) + DictionaryIdSizes[descriptor & 0x03];
    const quint64 size = (descriptor >> 6) == 0 ? (singleSegment ? 1 : 0) : quint64(1) << (descriptor >> 6);
    if (!aFrame.has(offset, size))
        return 0;
    quint64 result = 0;
    for (quint64 index = size; index > 0; --index)
        result = result << 8 | aFrame.number<quint8>(offset + index - 1);
    return result;
}

const char* ResourceBundleCheck::findFault()
{
    static constexpr char Magic[] = {'q', 'r', 'e', 's'};
    const auto compared = static_cast<size_t>(std::min<quint64>(sizeof Magic, mFile.size()));
    if (std::memcmp(mFile.data(), Magic, compared) != 0)
        return "is not a resource bundle; build it with \"rcc --binary\"";
    const quint32 version = mFile.has(4, 4) ? mFile.number<quint32>(4) : 1;
    if (version < 1 || version > 3)
        return "has an unknown format version; build it with the rcc of this Qt version";
    if (!readHeader() || !checkTree())
        return "is cut short or damaged; install it again";
    return nullptr;
}

bool ResourceBundleCheck::readHeader()
{
    if (!mFile.has(0, 20))
        return false;
    const auto version = mFile.number<quint32>(4);
    if (version >= 3 && (!mFile.has(20, 4) || mFile.number<quint32>(20) & ~quint32(FlagZlib | FlagZstd)))
        return false;
    const auto tree = mFile.number<quint32>(8);
    const auto data = mFile.number<quint32>(12);
    const auto names = mFile.number<quint32>(16);
    if (!mFile.has(tree, 0) || !mFile.has(data, 0) || !mFile.has(names, 0))
        return false;
    mNodeSize = version >= 2 ? 22 : 14;
    mTree = mFile.from(tree);
    mData = mFile.from(data);
    mNames = mFile.from(names);
    return true;
}

bool ResourceBundleCheck::checkTree()
{
    mClaimed.assign(static_cast<size_t>(mTree.size() / mNodeSize), false);
    if (!claimChildren(0, 1) || !(mTree.number<quint16>(4) & FlagDirectory))
        return false;
    while (!mPending.empty()) {
        const quint32 node = mPending.back();
        mPending.pop_back();
        if (!checkNode(node))
            return false;
    }
    return true;
}

bool ResourceBundleCheck::checkNode(quint32 aNode)
{
    const quint64 offset = aNode * mNodeSize;
    const bool isRoot = aNode == 0;
    if (!isRoot && !checkName(mTree.number<quint32>(offset)))
        return false;
    const auto flags = mTree.number<quint16>(offset + 4);
    if (flags & FlagDirectory)
        return claimChildren(mTree.number<quint32>(offset + 10), mTree.number<quint32>(offset + 6));
    return checkData(mTree.number<quint32>(offset + 10), flags);
}

bool ResourceBundleCheck::checkName(quint64 aOffset) const
{
    if (!mNames.has(aOffset, 6) || !mNames.has(aOffset + 6, mNames.number<quint16>(aOffset) * quint64(2)))
        return false;
    const quint64 length = mNames.number<quint16>(aOffset);
    quint32 hash = 0;
    bool isPath = true; // as "", "." and ".." are
    for (quint64 index = 0; index < length; ++index) {
        const auto unit = mNames.number<quint16>(aOffset + 6 + 2 * index);
        if (unit == '/')
            return false;
        isPath = isPath && unit == '.' && length <= 2;
        hash = (hash << 4) + unit;
        hash ^= (hash & 0xf0000000) >> 23;
        hash &= 0x0fffffff;
    }
    return !isPath && mNames.number<quint32>(aOffset + 2) == hash;
}

bool ResourceBundleCheck::checkData(quint64 aOffset, quint16 aFlags) const
{
    if (!mData.has(aOffset, 4) || !mData.has(aOffset + 4, mData.number<quint32>(aOffset)))
        return false;
    const BoundedBytes content = mData.part(aOffset + 4, mData.number<quint32>(aOffset));
    if (aFlags & FlagZstd)
        return zstdContentSize(content) <= MaximumEntrySize;
    if (aFlags & FlagZlib)
        return content.has(0, 4) && content.number<quint32>(0) <= MaximumEntrySize;
    return true;
}

bool ResourceBundleCheck::claimChildren(quint64 aFirst, quint64 aCount)
{
    if (aCount > mClaimed.size() || aFirst > mClaimed.size() - aCount)
        return aCount == 0;
    for (auto node = static_cast<size_t>(aFirst); node < aFirst + aCount; ++node) {
        if (mClaimed[node])
            return false;
        mClaimed[node] = true;
        mPending.push_back(quint32(node));
    }
    return true;
}

} // namespace Hmi::Core
