#pragma once

#include <QIODevice>
#include <vector>

namespace SignalService {

/** The longest message that a frame can hold, in bytes. */
constexpr int MaximumMessageSize = 255;

/**
 * Cuts what a device receives into frames:
 *
 *     frame = length message
 *     length = one byte, 1 to 255: the bytes of the message
 *
 * A length of 0 ends what is pending: reading goes on with whatever arrives next. It reads ahead, so after a
 * new connection it starts with clear().
 */
class Q_DECL_EXPORT FrameReader
{
public:
    enum class Result {
        Frame,
        Nothing, ///< until more arrives
        Broken   ///< the rest of a frame did not arrive in time, or the device closed
    };

    /** How long the rest of a frame may take, in milliseconds. */
    static constexpr int MaximumWait = 250;

    /** The device must outlive the reader. */
    explicit FrameReader(QIODevice& aDevice);

    /**
     * The next frame; its message stands until the next call. Where a frame is incomplete it waits for the
     * rest, blocking, and calls from the device's signals meanwhile give Nothing.
     */
    Result next();

    const char* getMessage() const { return mMessage; }
    int getMessageSize() const { return mMessageSize; }

    /** Whether next() would find something without waiting. */
    bool hasPending() const { return mBegin != mEnd || mDevice.bytesAvailable() > 0; }

    /** Whether the rest of a frame is being waited for. */
    bool isWaiting() const { return mWaiting; }

    void clear();

private:
    bool fill();
    bool waitFor(int aSize);
    int available() const { return static_cast<int>(mEnd - mBegin); }

    QIODevice& mDevice;
    std::vector<char> mBuffer;
    std::size_t mBegin = 0;
    std::size_t mEnd = 0;
    const char* mMessage = nullptr;
    int mMessageSize = 0;
    bool mWaiting = false;
};

} // namespace SignalService
