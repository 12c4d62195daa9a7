#include <simulator/services/Progress.h>

#include <algorithm>

namespace Hmi::Simulator {

static constexpr double ShortestLook = 10;  ///< milliseconds
static constexpr double LongestLook = 1000; ///< milliseconds

Progress::Progress()
{
    mTimer.setSingleShot(true);
    connect(&mTimer, &QTimer::timeout, this, &Progress::look);
}

void Progress::start(double aAmount, double aRate)
{
    mAmount = aAmount;
    mRate = aRate;
    mDone = 0;
    mPercent = -1;
    mIsUnderWay = true;
    resume();
}

void Progress::setRate(double aRate)
{
    if (mTimer.isActive())
        look();
    mRate = aRate;
    if (mTimer.isActive())
        mTimer.start(0);
}

void Progress::pause()
{
    look();
    mTimer.stop();
}

void Progress::resume()
{
    mClock.start();
    mTimer.start(0);
}

void Progress::stop()
{
    mTimer.stop();
    mIsUnderWay = false;
}

void Progress::look()
{
    mDone += mRate * static_cast<double>(mClock.nsecsElapsed()) / 1e9;
    mClock.start();
    const double percent = mAmount > 0 ? std::min(100.0, 100 * mDone / mAmount) : 100;
    mTimer.start(static_cast<int>(std::clamp(mAmount / mRate * 10, ShortestLook, LongestLook)));
    if (static_cast<int>(percent) == mPercent)
        return;
    mPercent = static_cast<int>(percent);
    emit progressed(mPercent);
    if (mPercent < 100)
        return;
    stop();
    emit finished();
}

} // namespace Hmi::Simulator
