#pragma once

#include <QFileSystemWatcher>
#include <QString>

#include <hmi/shared/services/TaskStatusReceiverInstallation.h>

/**
 * An installation that another program is doing, and that start-up waits for. As long as that lasts there is
 * a file with its progress, 0 to 100 as text, or "failed" at its end; when the file is gone, or says 100, the
 * installation has succeeded. What else it says is not understood and leaves the progress as it was. Without
 * the file there is no installation: a new task has succeeded then.
 *
 * Lives in one thread with an event loop.
 */
class InstallationTask : public Hmi::Shared::TaskStatusReceiverInstallation
{
    Q_OBJECT

public:
    explicit InstallationTask(const QString& aFilePath, QObject* aParent = nullptr);

private:
    void read();

    const QString mFilePath;
    QFileSystemWatcher mWatcher;
};
