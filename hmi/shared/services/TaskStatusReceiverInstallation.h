#pragma once

#include <QMutex>
#include <QSet>

#include <hmi/shared/services/TaskStatusReceiver.h>

namespace Hmi::Shared {

/**
 * Follows the installation of an update: whoever does it reports to all receivers, from any thread. Both are
 * done before the HMI starts, so a new receiver has succeeded.
 */
class Q_DECL_EXPORT TaskStatusReceiverInstallation : public TaskStatusReceiver
{
    Q_OBJECT
    friend class TaskStatusReports;

public:
    explicit TaskStatusReceiverInstallation(QObject* aParent = nullptr);
    ~TaskStatusReceiverInstallation() override;

    // Any thread.
    static void reportProgress(int aProgress);
    static void reportCompletion(bool aSuccess);

private:
    static bool isDone() { return true; }

    static QRecursiveMutex smLock;
    static QSet<TaskStatusReceiverInstallation*> smInstances;
};

} // namespace Hmi::Shared
