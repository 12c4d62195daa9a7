// The writing process of the signal benchmarks: hmi_signal_writer <transport> <pace> <address> <count>

#include <QCoreApplication>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "Require.h"
#include "SignalPeers.h"
#include "SignalWriters.h"

bool SignalSource::next(double& aValue)
{
    if (mLeft == 0)
        return false;
    --mLeft;
    if (pace != SignalPace::Paced) {
        mPrevious = mPrevious == 0 ? monotonicTime() : mPrevious + 1;
        aValue = mPrevious;
        return true;
    }
    constexpr long Second = 1000000000;
    mPrevious = (mPrevious == 0 ? monotonicTime() : mPrevious) + Second / 1000;
    const auto when = static_cast<long long>(mPrevious);
    const timespec time{static_cast<time_t>(when / Second), static_cast<long>(when % Second)};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &time, nullptr) == EINTR) {
    }
    aValue = monotonicTime();
    return true;
}

void printReady()
{
    std::puts("ready");
    std::fflush(stdout);
}

int main(int argc, char** argv)
{
    static const std::map<std::string, void (*)(const std::string&, SignalSource&)> Transports = {
        {"socket", writeToSocket}, {"grpc", writeToGrpc}, {"dbus", writeToDBus}};
    static const std::map<std::string, SignalPace> Paces = {
        {"single", SignalPace::Single}, {"batches", SignalPace::Batches}, {"paced", SignalPace::Paced}};
    QCoreApplication application(argc, argv);
    require(argc == 5, "running without a transport, a pace, an address and a count");
    const std::string pace = argv[2];
    const std::string address = argv[3];
    const int count = std::atoi(argv[4]);
    if (pace == "reconnect") {
        serveReconnections(address, count);
        return 0;
    }
    SignalSource source(Paces.at(pace), count);
    Transports.at(argv[1])(address, source);
    return 0;
}
