#include <hmi/shared/signal-service/FrameReader.h>

#include <QDeadlineTimer>
#include <QScopedValueRollback>
#include <cstring>

namespace SignalService {

/** Twice the size from which on a QIODevice reads without a buffer of its own. */
static constexpr std::size_t BufferSize = 32768;

FrameReader::FrameReader(QIODevice& aDevice) : mDevice(aDevice), mBuffer(BufferSize) {}

void FrameReader::clear() { mBegin = mEnd = 0; }

/** Reads what the device has, as far as there is room; false when that was nothing. */
bool FrameReader::fill()
{
    if (mBegin > 0) {
        std::memmove(mBuffer.data(), mBuffer.data() + mBegin, mEnd - mBegin);
        mEnd -= mBegin;
        mBegin = 0;
    }
    const qint64 count = mDevice.read(mBuffer.data() + mEnd, static_cast<qint64>(mBuffer.size() - mEnd));
    if (count <= 0)
        return false;
    mEnd += static_cast<std::size_t>(count);
    return true;
}

bool FrameReader::waitFor(int aSize)
{
    const QScopedValueRollback<bool> waiting(mWaiting, true);
    const QDeadlineTimer deadline(MaximumWait);
    while (available() < aSize) {
        if (!fill() && !mDevice.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
            return false;
    }
    return true;
}

FrameReader::Result FrameReader::next()
{
    if (mWaiting || (available() == 0 && !fill()))
        return Result::Nothing;
    const int size = static_cast<unsigned char>(mBuffer[mBegin]);
    if (size == 0) {
        ++mBegin;
        return Result::Nothing;
    }
    if (available() <= size && !waitFor(size + 1))
        return Result::Broken;
    mMessage = mBuffer.data() + mBegin + 1;
    mMessageSize = size;
    mBegin += static_cast<std::size_t>(size) + 1;
    return Result::Frame;
}

} // namespace SignalService
