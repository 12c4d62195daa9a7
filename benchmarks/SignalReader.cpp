// The reading process of the signal benchmarks: hmi_signal_reader <kind> <pace> <address> <count> [timer]
// Prints the lines of SignalTally::print(). With "timer", a timer of 1 ms runs meanwhile, and these say how
// far apart its calls were: "gap" is the longest, "medianGap" the median (nanoseconds).

#include <QCoreApplication>
#include <QTimer>
#include <cstdlib>
#include <map>

#include "Require.h"
#include "SignalReaders.h"
#include "SignalTally.h"
#include "Times.h"

namespace {

class GapWatch : public QObject
{
public:
    explicit GapWatch(const SignalTally& aTally)
    {
        mTimer.setTimerType(Qt::PreciseTimer);
        connect(&mTimer, &QTimer::timeout, this, [this, &aTally] {
            const double now = monotonicTime();
            if (aTally.hasBegun() && mPrevious > 0)
                mGaps.push_back(now - mPrevious);
            mPrevious = now;
        });
        mTimer.start(1);
    }

    void print() const
    {
        std::printf("gap %f\nmedianGap %f\n", greatestOf(mGaps, 1), greatestOf(mGaps, 0.5));
    }

private:
    QTimer mTimer;
    double mPrevious = 0;
    std::vector<double> mGaps;
};

} // namespace

int main(int argc, char** argv)
{
    static const std::map<std::string, void (*)(const std::string&, SignalTally&)> Readers = {
        {"read", readBySystemCall}, {"socket", readByLocalSocket},
        {"proxies", readByProxies}, {"many", readByManyProxies},
        {"qml", readByQml},         {"grpc", readByGrpc},
        {"dbus", readByDBus}};
    QCoreApplication application(argc, argv);
    require(argc >= 5, "running without a kind, a pace, an address and a count");
    SignalTally tally(std::string(argv[2]) == "paced", std::atoi(argv[4]));
    std::unique_ptr<GapWatch> watch;
    if (argc > 5)
        watch = std::make_unique<GapWatch>(tally);
    Readers.at(argv[1])(argv[3], tally);
    tally.print();
    if (watch)
        watch->print();
    return 0;
}
