#include <hmi/shared/units/TimeDuration.h>

#include <limits>

namespace Hmi::Shared {

static_assert(sizeof(int) == 4);

static int wrappingSum(int aFirst, int aSecond)
{
    return static_cast<int>(static_cast<unsigned>(aFirst) + static_cast<unsigned>(aSecond));
}

static int wrappingProduct(int aFirst, int aSecond)
{
    return static_cast<int>(static_cast<unsigned>(aFirst) * static_cast<unsigned>(aSecond));
}

/** Without the fraction and within the range of int; 0 for what is no number. */
static int toWhole(double aValue)
{
    using Limits = std::numeric_limits<int>;
    if (aValue >= Limits::max())
        return Limits::max();
    if (aValue <= Limits::min())
        return Limits::min();
    return qIsNaN(aValue) ? 0 : static_cast<int>(aValue);
}

TimeDuration::TimeDuration(QObject* aParent) : QObject(aParent) {}

int TimeDuration::getDurationInMilliseconds() const
{
    int total = mMilliseconds;
    total = wrappingSum(total, wrappingProduct(1000, mSeconds));
    total = wrappingSum(total, wrappingProduct(60000, mMinutes));
    total = wrappingSum(total, wrappingProduct(3600000, mHours));
    return wrappingSum(total, wrappingProduct(86400000, mDays));
}

double TimeDuration::getDurationInSeconds() const
{
    return mMilliseconds / 1000.0 + mSeconds + 60 * mMinutes + 3600 * mHours + wrappingProduct(86400, mDays);
}

double TimeDuration::getDurationInMinutes() const
{
    return mMilliseconds / 60000.0 + mSeconds / 60.0 + mMinutes + 60 * mHours + wrappingProduct(1440, mDays);
}

double TimeDuration::getDurationInHours() const
{
    return mMilliseconds / 3600000.0 + mSeconds / 3600.0 + mMinutes / 60.0 + mHours +
           wrappingProduct(24, mDays);
}

double TimeDuration::getDurationInDays() const
{
    return mMilliseconds / 86400000.0 + mSeconds / 86400.0 + mMinutes / 1440.0 + mHours / 24.0 + mDays;
}

void TimeDuration::setDuration(int aDays, int aHours, int aMinutes, int aSeconds, int aMilliseconds)
{
    const int seconds = wrappingSum(aMilliseconds / 1000, aSeconds);
    const int minutes = wrappingSum(seconds / 60, aMinutes);
    const int hours = wrappingSum(minutes / 60, aHours);
    mMilliseconds = aMilliseconds % 1000;
    mSeconds = seconds % 60;
    mMinutes = minutes % 60;
    mHours = hours % 24;
    mDays = wrappingSum(hours / 24, aDays);
    emit durationChanged();
}

void TimeDuration::writeSeconds(double aSeconds) { setDurationInSeconds(toWhole(aSeconds)); }

void TimeDuration::writeMinutes(double aMinutes) { setDurationInMinutes(toWhole(aMinutes)); }

void TimeDuration::writeHours(double aHours) { setDurationInHours(toWhole(aHours)); }

void TimeDuration::writeDays(double aDays) { setDurationInDays(toWhole(aDays)); }

} // namespace Hmi::Shared
