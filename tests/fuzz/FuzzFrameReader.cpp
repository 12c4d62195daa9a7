#include "Fuzzing.h"

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <cstring>

#include <hmi/shared/signal-service/FrameReader.h>

using HmiFuzz::Input;
using HmiFuzz::require;
using SignalService::FrameReader;

namespace {

/** A line that brings its bytes in pieces: on the next occasion, or while the reader waits. */
class PiecewiseLine : public QIODevice
{
public:
    PiecewiseLine(Input& aInput, const QByteArray& aBytes) : mInput(aInput), mBytes(aBytes)
    {
        open(ReadOnly | Unbuffered);
    }

    void setReader(FrameReader& aReader) { mReader = &aReader; }
    int getArrived() const { return mArrived; }
    bool isExhausted() const { return mArrived == mBytes.size(); }
    /** False when nothing came: a choice of 0 stands for silence, none for all that is left. */
    bool arrive()
    {
        const int left = mBytes.size() - mArrived;
        const int choice = mInput.hasChoice() ? mInput.choose() : 255;
        const int size = std::min(left, choice < 128 ? choice : (choice - 127) * 256);
        mArrived += size;
        return size > 0;
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return mArrived - mRead + QIODevice::bytesAvailable(); }
    bool waitForReadyRead(int aMilliseconds) override
    {
        require(aMilliseconds >= 0 && aMilliseconds <= FrameReader::MaximumWait, "a wait is bounded");
        require(mRead == mArrived, "who waits has read what is there");
        require(mReader->next() == FrameReader::Result::Nothing, "calls within a wait find nothing");
        return arrive();
    }

protected:
    qint64 readData(char* aTo, qint64 aMaximum) override
    {
        const int size = static_cast<int>(std::min<qint64>(mArrived - mRead, aMaximum));
        std::copy_n(mBytes.constData() + mRead, size, aTo);
        mRead += size;
        return size;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    Input& mInput;
    const QByteArray mBytes;
    FrameReader* mReader = nullptr;
    int mArrived = 0;
    int mRead = 0;
};

/** Reads a stream to its end and cuts it naively beside the reader, byte by byte of what has arrived. */
class Run
{
public:
    Run(Input& aInput, const QByteArray& aBytes) : mBytes(aBytes), mLine(aInput, aBytes), mReader(mLine)
    {
        mLine.setReader(mReader);
    }

    void toTheEnd()
    {
        for (bool more = true; more;) {
            const FrameReader::Result result = mReader.next();
            if (result == FrameReader::Result::Frame)
                takeFrame();
            else if (result == FrameReader::Result::Broken)
                reconnect();
            else
                more = takeNothing();
            require(mReader.hasPending() == (mAt < mLine.getArrived()), "what is pending is known");
        }
        require(mAt == mBytes.size(), "the whole stream is read");
    }

private:
    /** Of the frame that begins here, with its length. */
    int getSize() const { return mAt < mLine.getArrived() ? 1 + static_cast<unsigned char>(mBytes[mAt]) : 0; }

    void takeFrame()
    {
        const int size = getSize();
        require(size > 1 && mAt + size <= mLine.getArrived(), "no frame is invented");
        require(mReader.getMessageSize() == size - 1 &&
                    std::memcmp(mReader.getMessage(), mBytes.constData() + mAt + 1,
                                static_cast<std::size_t>(size - 1)) == 0,
                "a frame is what was sent");
        mAt += size;
    }

    void reconnect()
    {
        require(mAt + getSize() > mLine.getArrived(), "only a frame that is incomplete breaks");
        mReader.clear();
        mAt = mLine.getArrived();
    }

    bool takeNothing()
    {
        require(getSize() <= 1, "a frame is not overlooked");
        mAt += getSize();
        return mAt < mLine.getArrived() || mLine.arrive() || !mLine.isExhausted();
    }

    const QByteArray mBytes;
    PiecewiseLine mLine;
    FrameReader mReader;
    int mAt = 0;
};

} // namespace

// After the sizes of the pieces, one byte tells how often the stream is doubled: short inputs pass the
// reader's buffer too.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    Input input(aData, aSize);
    if (input.getRestSize() == 0)
        return 0;
    const int doublings = *input.getRest() & 7;
    input.skip(1);
    QByteArray bytes(input.getRest(), static_cast<int>(input.getRestSize()));
    for (int count = 0; count < doublings; ++count)
        bytes += bytes;
    Run(input, bytes).toTheEnd();
    return 0;
}
