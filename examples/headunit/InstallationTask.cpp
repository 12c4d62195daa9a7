#include "InstallationTask.h"

#include <QFile>
#include <QFileInfo>

static constexpr qint64 LongestContent = 64;

InstallationTask::InstallationTask(const QString& aFilePath, QObject* aParent) :
    TaskStatusReceiverInstallation(aParent), mFilePath(aFilePath)
{
    // The folder as well: a file that is replaced by another is not watched any more.
    mWatcher.addPath(QFileInfo(mFilePath).path());
    if (!mWatcher.addPath(mFilePath))
        return;
    setTaskStatus(TaskPending);
    connect(&mWatcher, &QFileSystemWatcher::fileChanged, this, &InstallationTask::read);
    connect(&mWatcher, &QFileSystemWatcher::directoryChanged, this, &InstallationTask::read);
    read();
}

void InstallationTask::read()
{
    if (getTaskStatus() != TaskPending)
        return;
    QFile file(mFilePath);
    if (!file.open(QIODevice::ReadOnly)) {
        if (!file.exists())
            setTaskStatus(TaskSucceeded);
        return;
    }
    if (!mWatcher.files().contains(mFilePath))
        mWatcher.addPath(mFilePath);
    const QByteArray content = file.read(LongestContent).trimmed();
    bool isNumber = false;
    const int percent = content.toInt(&isNumber);
    if (isNumber)
        setProgress(percent);
    else if (content == "failed")
        setTaskStatus(TaskFailed);
}
