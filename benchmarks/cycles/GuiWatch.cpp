#include "GuiWatch.h"

#include <algorithm>
#include <utility>

#include "Starvation.h"

static constexpr int Interval = 5; ///< milliseconds

GuiWatch::GuiWatch()
{
    mClock.start();
    mTick.setTimerType(Qt::PreciseTimer);
    QObject::connect(&mTick, &QTimer::timeout, [this] { look(); });
    mTick.start(Interval);
    takeLongest();
}

void GuiWatch::look()
{
    const double starved = starvedTime(QStringLiteral("/proc/thread-self"));
    const double now = static_cast<double>(mClock.nsecsElapsed()) / 1e6;
    mLongest = std::max(mLongest, now - mLast - (starved - mLastStarved) - Interval);
    mLast = now;
    mLastStarved = starved;
}

double GuiWatch::takeLongest()
{
    look();
    return std::exchange(mLongest, 0);
}
