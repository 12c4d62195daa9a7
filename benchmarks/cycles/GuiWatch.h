#pragma once

#include <QElapsedTimer>
#include <QTimer>

/**
 * How long the thread's event loop was kept from turning, by whatever it called. Time in which the machine
 * gave the thread no processor does not count.
 */
class GuiWatch
{
public:
    GuiWatch();

    /** Milliseconds, since the last time that this was asked. */
    double takeLongest();

private:
    void look();

    QTimer mTick;
    QElapsedTimer mClock;
    double mLast = 0; ///< milliseconds, as all below
    double mLastStarved = 0;
    double mLongest = 0;
};
