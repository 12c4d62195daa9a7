#include <simulator/TerminationSignals.h>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>

namespace Hmi::Simulator {

static int openSignals()
{
    sigset_t termination;
    sigemptyset(&termination);
    sigaddset(&termination, SIGTERM);
    sigaddset(&termination, SIGINT);
    pthread_sigmask(SIG_BLOCK, &termination, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    return ::signalfd(-1, &termination, SFD_CLOEXEC | SFD_NONBLOCK);
}

TerminationSignals::TerminationSignals() :
    mDescriptor(openSignals()), mNotifier(mDescriptor, QSocketNotifier::Read)
{
    connect(&mNotifier, &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
}

TerminationSignals::~TerminationSignals()
{
    mNotifier.setEnabled(false);
    ::close(mDescriptor);
}

void TerminationSignals::onReadable()
{
    signalfd_siginfo info;
    if (::read(mDescriptor, &info, sizeof(info)) == static_cast<ssize_t>(sizeof(info)))
        emit received();
}

} // namespace Hmi::Simulator
