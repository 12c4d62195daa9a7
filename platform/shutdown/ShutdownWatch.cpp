#include <platform/shutdown/ShutdownWatch.h>

#include <QtDebug>
#include <algorithm>
#include <unistd.h>
#include <utility>

#include <platform/shutdown/TerminationSignals.h>

namespace QT {

using std::chrono::milliseconds;

ShutdownWatch::ShutdownWatch(milliseconds aStepTime) : mStepTime(aStepTime)
{
    if (!TerminationSignals::attach(TerminationSignals::Watch)) {
        qWarning("The shutdown is not watched: it is already, or there is no free file descriptor.");
        return;
    }
    mReporter = std::thread([this] { report(); });
    mWatcher = std::thread([this] { watch(); });
}

ShutdownWatch::~ShutdownWatch()
{
    if (!mWatcher.joinable())
        return;
    endStep();
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEnding = true;
    }
    mChanged.notify_all();
    // As long as the reporter hangs, a signal still ends the process.
    mReporter.join();
    TerminationSignals::wakeWatch();
    mWatcher.join();
    TerminationSignals::detach(TerminationSignals::Watch);
}

void ShutdownWatch::beginStep(const QString& aName)
{
    if (!mWatcher.joinable())
        return;
    endStep();
    QByteArray name = aName.toUtf8();
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStep.swap(name);
        mBegin = Clock::now();
    }
    TerminationSignals::wakeWatch();
}

void ShutdownWatch::endStep()
{
    std::unique_lock<std::mutex> lock(mMutex);
    const auto taken = std::chrono::duration_cast<milliseconds>(Clock::now() - mBegin);
    // The watcher may have been too late itself.
    markLate();
    mChanged.wait(lock, [this] { return mLateness != Lateness::Late; });
    mBegin = Clock::time_point::max();
    const bool late = std::exchange(mLateness, Lateness::InTime) == Lateness::Told;
    lock.unlock();
    if (late)
        qInfo("The shutdown step '%s' took %lld ms.", mStep.constData(),
              static_cast<long long>(taken.count()));
}

void ShutdownWatch::watch()
{
    std::unique_lock<std::mutex> lock(mMutex);
    while (!mEnding) {
        const int time = millisecondsLeft();
        lock.unlock();
        const int event = TerminationSignals::waitForFurther(time);
        lock.lock();
        if (event > 0)
            endProcess(event, lock);
        markLate();
    }
}

bool ShutdownWatch::isTimed() const
{
    return mBegin != Clock::time_point::max() && mLateness == Lateness::InTime;
}

int ShutdownWatch::millisecondsLeft() const
{
    if (!isTimed())
        return -1;
    const auto left = std::chrono::ceil<milliseconds>(mBegin + mStepTime - Clock::now());
    return static_cast<int>(std::max(left, milliseconds(0)).count());
}

void ShutdownWatch::markLate()
{
    if (!isTimed() || Clock::now() < mBegin + mStepTime)
        return;
    mLateness = Lateness::Late;
    mChanged.notify_all();
}

void ShutdownWatch::endProcess(int aSignal, std::unique_lock<std::mutex>& aLock)
{
    mSignal = aSignal;
    mChanged.notify_all();
    if (!mChanged.wait_for(aLock, LoggingTime, [this] { return mSignalTold; }))
        TerminationSignals::writeLine({TerminationSignals::nameOf(aSignal),
                                       " came again during the shutdown step '", mStep.constData(),
                                       "'; the process ends at once."});
    ::_exit(128 + aSignal);
}

void ShutdownWatch::report()
{
    std::unique_lock<std::mutex> lock(mMutex);
    for (;;) {
        const bool signalled = mSignal && !mSignalTold;
        if (signalled || mLateness == Lateness::Late)
            reportOne(lock);
        else if (mEnding)
            return;
        else
            mChanged.wait(lock);
    }
}

void ShutdownWatch::reportOne(std::unique_lock<std::mutex>& aLock)
{
    const int signal = mSignal;
    const QByteArray step = mStep;
    aLock.unlock();
    if (signal)
        qWarning("%s came again during the shutdown step '%s'; the process ends at once.",
                 TerminationSignals::nameOf(signal), step.constData());
    else
        qWarning("The shutdown step '%s' takes longer than %lld ms.", step.constData(),
                 static_cast<long long>(mStepTime.count()));
    aLock.lock();
    if (signal)
        mSignalTold = true;
    else
        mLateness = Lateness::Told;
    mChanged.notify_all();
}

} // namespace QT
