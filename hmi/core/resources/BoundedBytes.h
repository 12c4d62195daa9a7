#pragma once

#include <QtEndian>

namespace Hmi::Core {

/**
 * A view of the bytes of a file whose offsets are not to be trusted: has() is asked before anything is read.
 * Numbers are big-endian. The bytes are the caller's and must outlive the view.
 */
class BoundedBytes
{
public:
    BoundedBytes() = default;
    BoundedBytes(const uchar* aData, quint64 aSize) : mData(aData), mSize(aSize) {}

    quint64 size() const { return mSize; }
    const uchar* data() const { return mData; }

    /** Whether all of these bytes exist; no offset or length overflows. */
    bool has(quint64 aOffset, quint64 aLength) const
    {
        return aOffset <= mSize && aLength <= mSize - aOffset;
    }

    /** Undefined unless has(aOffset, sizeof(T)). */
    template <class T>
    T number(quint64 aOffset) const
    {
        return qFromBigEndian<T>(mData + aOffset);
    }

    /** Undefined unless has(aOffset, aLength). */
    BoundedBytes part(quint64 aOffset, quint64 aLength) const { return {mData + aOffset, aLength}; }

    /** Undefined unless has(aOffset, 0). */
    BoundedBytes from(quint64 aOffset) const { return part(aOffset, mSize - aOffset); }

private:
    const uchar* mData = nullptr;
    quint64 mSize = 0;
};

} // namespace Hmi::Core
