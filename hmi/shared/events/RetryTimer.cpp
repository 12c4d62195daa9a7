#include <hmi/shared/events/RetryTimer.h>

#include <QTimer>
#include <utility>

namespace Hmi::Shared {

RetryTimer::RetryTimer(Schedule aSchedule, QObject* aTimerParent) :
    mSchedule(std::move(aSchedule)), mTimer(new QTimer(aTimerParent))
{
    mTimer->setSingleShot(true);
    connect(mTimer, &QTimer::timeout, this, &RetryTimer::onTimeout);
}

RetryTimer::~RetryTimer() { delete mTimer; }

void RetryTimer::start()
{
    if (mTimer && !mSchedule.isEmpty())
        mTimer->start(mSchedule.at(mStage).second);
}

void RetryTimer::stop()
{
    if (mTimer)
        mTimer->stop();
    mRepeats = 0;
    mStage = 0;
}

void RetryTimer::onTimeout()
{
    if (mSchedule.isEmpty())
        return;
    const bool finalTick = isFinalTick();
    if (!finalTick)
        advance();
    if (mSchedule.last().first >= 0)
        emit retryConditional(finalTick);
    else
        emit retry();
}

bool RetryTimer::isFinalTick() const
{
    return mStage + 1 == mSchedule.size() && mRepeats == mSchedule.at(mStage).first;
}

void RetryTimer::advance()
{
    const int count = mSchedule.at(mStage).first;
    if (count < 0)
        return;
    if (mRepeats == count) {
        mRepeats = 0;
        ++mStage;
    } else {
        ++mRepeats;
    }
}

} // namespace Hmi::Shared
