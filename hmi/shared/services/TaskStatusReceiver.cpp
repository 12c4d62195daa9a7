#include <hmi/shared/services/TaskStatusReceiver.h>

namespace Hmi::Shared {

TaskStatusReceiver::TaskStatusReceiver(QObject* aParent) : TaskStatusReceiver(DefaultMaximum, aParent) {}

TaskStatusReceiver::TaskStatusReceiver(int aMaximum, QObject* aParent) : QObject(aParent), mMaximum(aMaximum)
{
    qRegisterMetaType<TaskStatus>("TaskStatus");
}

void TaskStatusReceiver::setProgress(int aValue)
{
    const int progress = qBound(0, aValue, mMaximum);
    if (mProgress == progress)
        return;
    mProgress = progress;
    emit progressChanged();
    if (mProgress == mMaximum)
        setTaskStatus(TaskSucceeded);
}

void TaskStatusReceiver::setTaskStatus(TaskStatus aStatus)
{
    if (mTaskStatus == aStatus)
        return;
    mTaskStatus = aStatus;
    emit taskStatusChanged();
}

} // namespace Hmi::Shared
