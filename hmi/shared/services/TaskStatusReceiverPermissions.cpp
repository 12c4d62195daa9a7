#include <hmi/shared/services/TaskStatusReceiverPermissions.h>

#include <hmi/shared/services/TaskStatusReports.h>

namespace Hmi::Shared {

QRecursiveMutex TaskStatusReceiverPermissions::smLock;
QSet<TaskStatusReceiverPermissions*> TaskStatusReceiverPermissions::smInstances;

TaskStatusReceiverPermissions::TaskStatusReceiverPermissions(QObject* aParent) : TaskStatusReceiver(aParent)
{
    TaskStatusReports::add(this);
    if (isDone())
        setTaskStatus(TaskSucceeded);
}

TaskStatusReceiverPermissions::~TaskStatusReceiverPermissions() { TaskStatusReports::remove(this); }

void TaskStatusReceiverPermissions::reportProgress(int aProgress)
{
    TaskStatusReports::report<TaskStatusReceiverPermissions>("setProgress", Q_ARG(int, aProgress));
}

void TaskStatusReceiverPermissions::reportCompletion(bool aSuccess)
{
    const TaskStatus status = aSuccess ? TaskSucceeded : TaskFailed;
    TaskStatusReports::report<TaskStatusReceiverPermissions>("setTaskStatus", Q_ARG(TaskStatus, status));
}

} // namespace Hmi::Shared
