#pragma once

#include <vector>

#include "SignalPeers.h"

/**
 * What every reader hands its values to, in the main thread. Sees that all of them arrive, in their order,
 * and ends the program where one does not.
 */
class SignalTally
{
public:
    SignalTally(bool aPaced, int aCount);

    /** True for the last. */
    bool take(double aValue)
    {
        if (mTaken == mWarm)
            noteWarm();
        const bool good = mPaced ? aValue > mPrevious : mTaken == 0 || aValue == mPrevious + 1;
        mAllGood = mAllGood && good;
        mPrevious = aValue;
        if (mPaced)
            mDelays.push_back(monotonicTime() - aValue);
        else if (mTaken == 0)
            mStart = aValue;
        if (++mTaken < mCount)
            return false;
        noteEnd();
        return true;
    }

    bool hasBegun() const { return mTaken > 0; }

    /**
     * To be called after the last. Prints lines of a word and a number: in a flood "time" (nanoseconds for a
     * value, from the first write to the last value), paced "median" and "percentile99" (nanoseconds from
     * before the write); and what was added since a tenth of the values: "allocations" (for a value, of this
     * thread, where they are counted) and "memory" (kB, private).
     */
    void print() const;

private:
    void noteWarm();
    void noteEnd();

    const bool mPaced;
    const int mCount;
    const int mWarm;
    int mTaken = 0;
    bool mAllGood = true;
    double mPrevious = 0;
    double mStart = 0;
    double mEnd = 0;
    long mAllocations = 0;
    long mMemory = 0;
    std::vector<double> mDelays;
};
