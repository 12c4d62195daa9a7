#include <platform/shutdown/TerminationSignals.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace QT {

namespace {

/** A pipe of signal numbers, neither end of which ever waits. */
struct SignalPipe
{
    std::array<int, 2> ends{-1, -1};

    bool open() { return ends[0] >= 0 || ::pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) == 0; }
    void put(int aSignal) const
    {
        const auto byte = static_cast<unsigned char>(aSignal);
        // A full pipe already holds what would be added.
        [[maybe_unused]] const ssize_t written = ::write(ends[1], &byte, 1);
    }
    int take() const
    {
        unsigned char byte = 0;
        return ::read(ends[0], &byte, 1) == 1 ? byte : -1;
    }
    void clear() const
    {
        while (take() >= 0) {
        }
    }
};

static_assert(std::atomic<int>::is_always_lock_free, "the handler must not wait for a lock");

constexpr std::array<int, 2> Signals{SIGTERM, SIGINT};

SignalPipe sRequests;
SignalPipe sFurther;
std::atomic<int> sRequest{0};
std::atomic<int> sUsers{0};
std::atomic<pid_t> sProcess{0};
bool sInstalled = false;
std::array<struct sigaction, Signals.size()> sPrevious;

/** For a child between fork and exec: what is pending when the handler returns ends it. */
void endChild(int aSignal)
{
    std::signal(aSignal, SIG_DFL);
    ::kill(::getpid(), aSignal);
}

void handle(int aSignal)
{
    const int error = errno;
    int none = 0;
    if (::getpid() != sProcess) {
        endChild(aSignal);
    } else if (sRequest.compare_exchange_strong(none, aSignal)) {
        sRequests.put(aSignal);
    } else if (sUsers & TerminationSignals::Watch) {
        sFurther.put(aSignal);
    } else if (!sUsers) {
        TerminationSignals::writeLine(
            {TerminationSignals::nameOf(aSignal), " came again during the start; the process ends at once."});
        ::_exit(128 + aSignal);
    }
    errno = error;
}

void setHandlers()
{
    struct sigaction action = {};
    action.sa_handler = &handle;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int signal : Signals)
        sigaddset(&action.sa_mask, signal);
    for (size_t i = 0; i < Signals.size(); ++i)
        ::sigaction(Signals[i], &action, &sPrevious[i]);
}

void putHandlersBack()
{
    for (size_t i = 0; i < Signals.size(); ++i) {
        struct sigaction present = {};
        ::sigaction(Signals[i], nullptr, &present);
        if (present.sa_handler == &handle)
            ::sigaction(Signals[i], &sPrevious[i], nullptr);
    }
}

} // namespace

bool TerminationSignals::install()
{
    if (sInstalled)
        return true;
    if (!sRequests.open() || !sFurther.open())
        return false;
    sRequests.clear();
    sRequest = 0;
    sProcess = ::getpid();
    setHandlers();
    sInstalled = true;
    return true;
}

bool TerminationSignals::attach(User aUser)
{
    if ((sUsers & aUser) || !install())
        return false;
    if (aUser == Watch)
        sFurther.clear();
    sUsers |= aUser;
    return true;
}

void TerminationSignals::detach(User aUser)
{
    // The handlers first: without users they would end the process.
    if (sUsers == aUser) {
        putHandlersBack();
        sInstalled = false;
    }
    sUsers &= ~aUser;
}

bool TerminationSignals::isRequested() { return sRequest != 0; }

int TerminationSignals::requestDescriptor() { return sRequests.ends[0]; }

bool TerminationSignals::takeRequest() { return sRequests.take() > 0; }

int TerminationSignals::waitForFurther(int aMilliseconds)
{
    pollfd readable{sFurther.ends[0], POLLIN, 0};
    ::poll(&readable, 1, aMilliseconds);
    return sFurther.take();
}

void TerminationSignals::wakeWatch() { sFurther.put(0); }

const char* TerminationSignals::nameOf(int aSignal) { return aSignal == SIGINT ? "SIGINT" : "SIGTERM"; }

void TerminationSignals::writeLine(std::initializer_list<const char*> aPieces)
{
    std::array<char, 512> line;
    size_t length = 0;
    for (const char* piece : aPieces) {
        while (*piece && length < line.size() - 1)
            line[length++] = *piece++;
    }
    line[length++] = '\n';
    pollfd writable{STDERR_FILENO, POLLOUT, 0};
    // Anything else with it is a reader that has gone, and SIGPIPE.
    if (::poll(&writable, 1, 0) == 1 && writable.revents == POLLOUT) [[maybe_unused]]
        const ssize_t written = ::write(STDERR_FILENO, line.data(), length);
}

} // namespace QT
