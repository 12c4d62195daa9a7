// A whole process with a window: the example head unit, or without it a window with next to nothing.
// Arguments: the head unit's configuration, or the window's QML, and for how many seconds frames are watched.
// It prints when it came into main(), when the first frame was there, when one with live values of the
// vehicle was (CLOCK_MONOTONIC, nanoseconds), and its private memory (kB) a while later; then, of the frames,
// the GUI thread's CPU time for one (nanoseconds; median and 99th percentile), their number, and the seconds
// they took.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <memory>
#include <time.h>
#include <vector>

#include "PrivateMemory.h"
#include "Require.h"
#include "Times.h"
#ifdef HMI_HEADUNIT
#include <HeadUnit.h>
#include <SignalVehiclePolicy.h>
#endif

namespace {

constexpr int SettlingTime = 500; // milliseconds

double threadTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

/** Looks at the frames of a window. The scene graph may have a thread of its own, in which frames end. */
class FrameWatch : public QObject
{
public:
    FrameWatch(QQuickWindow& aWindow, double aEntered, int aSeconds) : mEntered(aEntered), mSeconds(aSeconds)
    {
        connect(&aWindow, &QQuickWindow::afterAnimating, this, &FrameWatch::countFrame);
        connect(
            &aWindow, &QQuickWindow::afterSynchronizing, this, [this] { mSynchronized = mLive.load(); },
            Qt::DirectConnection);
        connect(&aWindow, &QQuickWindow::frameSwapped, this, &FrameWatch::endFrame, Qt::DirectConnection);
    }

    /** From the next synchronisation on frames show what is there now. */
    void setLive() { mLive = true; }

private:
    void endFrame()
    {
        const double now = monotonicTime();
        if (mFirst == 0)
            mFirst = now;
        if (mFirstLive > 0 || !mSynchronized)
            return;
        mFirstLive = now;
        QMetaObject::invokeMethod(
            this, [this] { QTimer::singleShot(SettlingTime, this, &FrameWatch::printStart); },
            Qt::QueuedConnection);
    }
    void printStart()
    {
        std::printf("%.0f %.0f %.0f %ld\n", mEntered, mFirst.load(), mFirstLive.load(), privateKilobytes());
        std::fflush(stdout);
        if (mSeconds == 0) {
            QCoreApplication::quit();
            return;
        }
        mWatchedSince = monotonicTime();
        mLast = threadTime();
        QTimer::singleShot(mSeconds * 1000, this, &FrameWatch::printFrames);
    }
    void countFrame()
    {
        if (mWatchedSince == 0)
            return;
        const double now = threadTime();
        mTimes.push_back(now - mLast);
        mLast = now;
    }
    void printFrames()
    {
        std::printf("%.0f %.0f %zu %.3f\n", greatestOf(mTimes, 0.5), greatestOf(mTimes, 0.99), mTimes.size(),
                    (monotonicTime() - mWatchedSince) / 1e9);
        QCoreApplication::quit();
    }

    const double mEntered;
    const int mSeconds;
    std::atomic<double> mFirst = 0;
    std::atomic<double> mFirstLive = 0;
    std::atomic<bool> mLive = false;
    bool mSynchronized = false; ///< of the thread that renders
    double mWatchedSince = 0;
    double mLast = 0;
    std::vector<double> mTimes;
};

#ifdef HMI_HEADUNIT
class Probe : public HeadUnit
{
public:
    Probe(int& aCount, char** aArguments) : HeadUnit(aCount, aArguments) {}
    ~Probe() override { requestShutdown(); }

    void start() { init(); }

    template <class Show>
    void onLive(Show aShow)
    {
        const auto* const vehicle =
            getQmlEngine()->singletonInstance<SignalVehiclePolicy*>(qmlTypeId("headunit", 1, 0, "Vehicle"));
        const auto look = [vehicle, aShow] {
            if (vehicle->getOnline() && !std::isnan(vehicle->getSpeed()))
                aShow();
        };
        connect(vehicle, &SignalVehiclePolicy::speedChanged, this, look);
        look();
    }
};
#else
struct Probe : QGuiApplication
{
    using QGuiApplication::QGuiApplication;

    void start()
    {
        QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/") + arguments().value(1)));
        window.reset(component.create());
        require(bool(window), "showing a window");
    }
    /** Nothing is to come. */
    template <class Show>
    void onLive(Show aShow) const
    {
        aShow();
    }

    QQmlEngine engine;
    std::unique_ptr<QObject> window;
};
#endif

} // namespace

int main(int argc, char** argv)
{
    const double entered = monotonicTime();
    Probe probe(argc, argv);
    probe.start();
    auto* const window = qobject_cast<QQuickWindow*>(QGuiApplication::topLevelWindows().value(0));
    require(window && argc == 3, "watching a window, its configuration and seconds as arguments");
    FrameWatch watch(*window, entered, std::atoi(argv[2]));
    probe.onLive([&watch] { watch.setLive(); });
    return QCoreApplication::exec();
}
