#include <chrono>
#include <memory>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "Require.h"
#include "SignalPeers.h"
#include "SignalWriters.h"

namespace {

/** One frame after the other, with values that can be set. */
class FrameBatch
{
public:
    FrameBatch() : mFrameSize(signalFrame(signalResponse(0, 0)).size())
    {
        for (int number = 0; number < SignalBatch; ++number)
            mBytes += signalFrame(signalResponse(number, 0));
        require(mBytes.size() == mFrameSize * SignalBatch && mBytes.size() <= 65536,
                "having frames of one size");
    }

    void setValue(int aIndex, double aValue)
    {
        const int offset = 1 + signalValueOffset(static_cast<int>(mFrameSize) - 1);
        std::memcpy(&mBytes[static_cast<std::size_t>(aIndex) * mFrameSize] + offset, &aValue, sizeof aValue);
    }

    void write(int aSocket, int aFirst, int aCount) const
    {
        const char* from = mBytes.data() + static_cast<std::size_t>(aFirst) * mFrameSize;
        std::size_t left = static_cast<std::size_t>(aCount) * mFrameSize;
        while (left > 0) {
            const ssize_t written = ::write(aSocket, from, left);
            require(written > 0, "writing to the socket");
            from += written;
            left -= static_cast<std::size_t>(written);
        }
    }

private:
    std::size_t mFrameSize;
    std::string mBytes;
};

} // namespace

static int listenAt(const std::string& aAddress)
{
    unlink(aAddress.c_str());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    require(aAddress.size() < sizeof address.sun_path, "using so long an address");
    std::memcpy(address.sun_path, aAddress.c_str(), aAddress.size());
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    require(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
                listen(listener, 1) == 0,
            "listening");
    return listener;
}

/** The socket of a reader that has made so many requests. */
static int acceptReader(int aListener, int aRequests)
{
    const int reader = accept(aListener, nullptr, nullptr);
    require(reader >= 0, "accepting a reader");
    std::string received;
    std::size_t at = 0;
    for (int requests = 0; requests < aRequests;) {
        char bytes[65536];
        const ssize_t count = read(reader, bytes, sizeof bytes);
        require(count > 0, "getting all requests");
        received.append(bytes, static_cast<std::size_t>(count));
        for (; at < received.size() && at + static_cast<unsigned char>(received[at]) < received.size();
             ++requests)
            at += static_cast<unsigned char>(received[at]) + 1U;
    }
    return reader;
}

static void waitForLeaving(int aReader)
{
    char byte = 0;
    while (read(aReader, &byte, 1) > 0) {
    }
    close(aReader);
}

void writeToSocket(const std::string& aAddress, SignalSource& aSource)
{
    const int listener = listenAt(aAddress);
    printReady();
    const int reader = acceptReader(listener, SignalPaths);
    FrameBatch batch;
    double value = 0;
    for (int index = 0; aSource.next(value); index = (index + 1) % SignalBatch) {
        batch.setValue(index, value);
        if (aSource.pace != SignalPace::Batches)
            batch.write(reader, index, 1);
        else if (index + 1 == SignalBatch || aSource.isLast())
            batch.write(reader, 0, index + 1);
    }
    waitForLeaving(reader);
    close(listener);
}

void serveReconnections(const std::string& aAddress, int aCount)
{
    int listener = listenAt(aAddress);
    printReady();
    int reader = acceptReader(listener, ManySignalPaths);
    for (int round = 0; round < aCount; ++round) {
        close(listener);
        unlink(aAddress.c_str());
        close(reader);
        // At other moments between two attempts of the reader each time, the first ones just after one.
        std::this_thread::sleep_for(std::chrono::milliseconds(20 + 150 * round));
        const double start = monotonicTime();
        listener = listenAt(aAddress);
        reader = acceptReader(listener, ManySignalPaths);
        std::printf("%.3f\n", (monotonicTime() - start) / 1e6);
    }
    FrameBatch().write(reader, 0, 1);
    waitForLeaving(reader);
    close(listener);
}
