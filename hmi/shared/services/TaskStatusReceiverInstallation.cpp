#include <hmi/shared/services/TaskStatusReceiverInstallation.h>

#include <hmi/shared/services/TaskStatusReports.h>

namespace Hmi::Shared {

QRecursiveMutex TaskStatusReceiverInstallation::smLock;
QSet<TaskStatusReceiverInstallation*> TaskStatusReceiverInstallation::smInstances;

TaskStatusReceiverInstallation::TaskStatusReceiverInstallation(QObject* aParent) : TaskStatusReceiver(aParent)
{
    TaskStatusReports::add(this);
    if (isDone())
        setTaskStatus(TaskSucceeded);
}

TaskStatusReceiverInstallation::~TaskStatusReceiverInstallation() { TaskStatusReports::remove(this); }

void TaskStatusReceiverInstallation::reportProgress(int aProgress)
{
    TaskStatusReports::report<TaskStatusReceiverInstallation>("setProgress", Q_ARG(int, aProgress));
}

void TaskStatusReceiverInstallation::reportCompletion(bool aSuccess)
{
    const TaskStatus status = aSuccess ? TaskSucceeded : TaskFailed;
    TaskStatusReports::report<TaskStatusReceiverInstallation>("setTaskStatus", Q_ARG(TaskStatus, status));
}

} // namespace Hmi::Shared
