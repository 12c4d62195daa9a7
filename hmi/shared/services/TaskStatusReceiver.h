#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * The progress of a task, for a progress bar: from 0 to a maximum that is fixed from the beginning, at which
 * the task has succeeded. Lives in one thread, which may be any.
 */
class Q_DECL_EXPORT TaskStatusReceiver : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int progress READ getProgress WRITE setProgress NOTIFY progressChanged)
    Q_PROPERTY(TaskStatus taskStatus READ getTaskStatus WRITE setTaskStatus NOTIFY taskStatusChanged)

public:
    enum TaskStatus { TaskSucceeded, TaskFailed, TaskPending };
    Q_ENUM(TaskStatus)

    static constexpr int DefaultMaximum = 100;

    explicit TaskStatusReceiver(QObject* aParent = nullptr);
    explicit TaskStatusReceiver(int aMaximum, QObject* aParent = nullptr);

    int getProgress() const { return mProgress; }
    int getMaximum() const { return mMaximum; }
    TaskStatus getTaskStatus() const { return mTaskStatus; }

public slots:
    /** Values outside 0 to the maximum are taken as the nearest of these. */
    void setProgress(int aValue);
    void setTaskStatus(TaskStatus aStatus);

signals:
    void progressChanged();
    void taskStatusChanged();

private:
    int mProgress = 0;
    const int mMaximum;
    TaskStatus mTaskStatus = TaskPending;
};

} // namespace Hmi::Shared
