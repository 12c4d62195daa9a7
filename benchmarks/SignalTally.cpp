#include "SignalTally.h"

#include "AllocationCount.h"
#include "PrivateMemory.h"
#include "Require.h"

SignalTally::SignalTally(bool aPaced, int aCount) : mPaced(aPaced), mCount(aCount), mWarm(aCount / 10)
{
    if (aPaced)
        mDelays.reserve(static_cast<std::size_t>(aCount));
}

void SignalTally::noteWarm()
{
    mMemory = privateKilobytes();
    mAllocations = allocationCount();
}

void SignalTally::noteEnd()
{
    mEnd = monotonicTime();
    mAllocations = allocationCount() - mAllocations;
    mMemory = privateKilobytes() - mMemory;
}

void SignalTally::print() const
{
    require(mTaken == mCount && mAllGood, "getting every value, in order");
    if (mPaced)
        std::printf("median %f\npercentile99 %f\n", greatestOf(mDelays, 0.5), greatestOf(mDelays, 0.99));
    else
        std::printf("time %f\n", (mEnd - mStart) / mCount);
    std::printf("allocations %f\nmemory %ld\n", static_cast<double>(mAllocations) / (mCount - mWarm),
                mMemory);
}
