#include "GuiWatch.h"

#include <QFile>
#include <algorithm>
#include <utility>

static constexpr int Interval = 5; ///< milliseconds

/** Nanoseconds that this thread waited for a processor so far. */
static qint64 starvedTime()
{
    QFile file(QStringLiteral("/proc/thread-self/schedstat"));
    return file.open(QFile::ReadOnly) ? file.readAll().split(' ').value(1).toLongLong() : 0;
}

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
    const qint64 starved = starvedTime();
    const qint64 now = mClock.nsecsElapsed();
    const qint64 held = now - mLast - (starved - mLastStarved);
    mLongest = std::max(mLongest, static_cast<double>(held) / 1e6 - Interval);
    mLast = now;
    mLastStarved = starved;
}

double GuiWatch::takeLongest()
{
    look();
    return std::exchange(mLongest, 0);
}
