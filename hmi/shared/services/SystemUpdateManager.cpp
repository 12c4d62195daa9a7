#include <hmi/shared/services/SystemUpdateManager.h>

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPointer>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/events/EventLoop.h>

namespace Hmi::Shared {

using UpdateManager::DownloadableUpdateInfo;
using UpdateManager::UpdateInstallState;
using UpdateManager::UpdateManagerClient;

static constexpr int UpdateInfoTimeout = 5000; ///< milliseconds

SystemUpdateManager::SystemUpdateManager(QQmlEngine*, QJSEngine*)
{
    qCInfo(hmiShared, "SystemUpdateManager::SystemUpdateManager( ... )");
    mClient.perform([this](UpdateManagerClient& aClient) { watchOwner(aClient); });
}

void SystemUpdateManager::init()
{
    if (std::exchange(mInitialized, true))
        return;
    qCInfo(hmiShared, "SystemUpdateManager::init()");
    mClient.perform([this](UpdateManagerClient& aClient) {
        using Client = UpdateManagerClient;
        using This = SystemUpdateManager;
        connect(&aClient, &Client::DownloadComplete, this, &This::onOumDownloadComplete);
        connect(&aClient, &Client::DownloadProgress, this, &This::onOumDownloadProgress);
        connect(&aClient, &Client::InstallFinished, this, &This::onOumInstallFinished);
        connect(&aClient, &Client::DownloadableUpdatesChanged, this, &This::onOumDownloadableUpdatesChanged);
        connect(&aClient, &Client::AvailableUpdatesChanged, this, &This::onOumAvailableUpdatesChanged);
        connect(&aClient, &Client::InstallProgress, this, &This::onOumInstallProgress);
        connect(&aClient, &Client::InstallStateChanged, this, &This::onOumInstallStateChanged);
        connect(&aClient, &Client::AutoInstallPending, this, &This::onOumAutoInstallPending);
        connect(&aClient, &Client::AutoRebootPending, this, &This::onOumAutoRebootPending);
    });
}

void SystemUpdateManager::watchOwner(UpdateManagerClient& aClient)
{
    mOwner = std::make_unique<QDBusServiceWatcher>(aClient.service(), aClient.connection(),
                                                   QDBusServiceWatcher::WatchForOwnerChange);
    mOwner->moveToThread(thread());
    connect(mOwner.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& aNewOwner) {
                setServiceAvailable(!aNewOwner.isEmpty());
            });
    // On the client's thread: an owner that came before it was watched here is known there by then.
    QMetaObject::invokeMethod(
        this, [this, &aClient] { setServiceAvailable(aClient.isValid()); }, Qt::QueuedConnection);
}

void SystemUpdateManager::setServiceAvailable(bool aServiceAvailable)
{
    if (std::exchange(mServiceAvailable, aServiceAvailable) != aServiceAvailable)
        emit serviceAvailableChanged();
}

void SystemUpdateManager::setState(UpdateState aState)
{
    if (std::exchange(mState, aState) != aState)
        emit stateChanged();
}

void SystemUpdateManager::setPercent(int aPercent)
{
    if (std::exchange(mPercent, aPercent) != aPercent)
        emit percentChanged();
}

void SystemUpdateManager::setInstallPercent(int aPercent)
{
    if (std::exchange(mInstallPercent, aPercent) != aPercent)
        emit installPercentChanged();
}

void SystemUpdateManager::checkForUpdates()
{
    mClient.perform([](UpdateManagerClient& aClient) { aClient.CheckForUpdates(); });
}

void SystemUpdateManager::startDownload()
{
    qCInfo(hmiShared, "SystemUpdateManager startDownload()");
    if (mState != UpdateStateUpdateDownloadable)
        return;
    qCInfo(hmiShared, "SystemUpdateManager Starting Download");
    setState(UpdateStateDownloading);
    setPercent(0);
    mClient.perform([url = mUpdateUrl](UpdateManagerClient& aClient) { aClient.DownloadUpdate(url); });
}

void SystemUpdateManager::pauseDownload()
{
    qCInfo(hmiShared, "SystemUpdateManager pauseDownload()");
    if (mState != UpdateStateDownloading)
        return;
    qCInfo(hmiShared, "SystemUpdateManager Download Paused");
    setState(UpdateStateDownloadPaused);
    mClient.perform([url = mUpdateUrl](UpdateManagerClient& aClient) { aClient.PauseDownload(url); });
}

void SystemUpdateManager::resumeDownload()
{
    qCInfo(hmiShared, "SystemUpdateManager resumeDownload()");
    if (mState != UpdateStateDownloadPaused)
        return;
    qCInfo(hmiShared, "SystemUpdateManager Download Resumed");
    setState(UpdateStateDownloading);
    mClient.perform([url = mUpdateUrl](UpdateManagerClient& aClient) { aClient.ResumeDownload(url); });
}

void SystemUpdateManager::startInstallation()
{
    qCInfo(hmiShared, "SystemUpdateManager startInstallation()");
    if (mState != UpdateStateUpdateAvailable)
        return;
    qCInfo(hmiShared, "SystemUpdateManager Starting Installation");
    setState(UpdateStateInstalling);
    setInstallPercent(0);
    mClient.perform([path = mUpdatePath](UpdateManagerClient& aClient) { aClient.InstallUpdate(path); });
}

void SystemUpdateManager::retryInstallation()
{
    if (mState != UpdateStateUpdateError || mUpdatePath.isEmpty())
        return;
    setState(UpdateStateUpdateAvailable);
    startInstallation();
}

void SystemUpdateManager::dismissNotification()
{
    if (mNotificationId != -1)
        mNotifications.DismissNotification(mNotificationId);
}

void SystemUpdateManager::resetUpdateProcess()
{
    qCInfo(hmiShared, "SystemUpdateManager resetUpdateProcess()");
    dismissNotification();
    setState(UpdateStateNoneAvailable);
}

/** Signals of the service that come during a wait stand back until what is waited for was taken. */
void SystemUpdateManager::inOrder(const std::function<void()>& aTake)
{
    if (mWaiting || !mDeferred.empty()) {
        mDeferred.push_back(aTake);
        return;
    }
    const QPointer<SystemUpdateManager> self(this);
    aTake();
    while (self && !mWaiting && !mDeferred.empty()) {
        const std::function<void()> take = mDeferred.front();
        take();
        if (self)
            mDeferred.pop_front();
    }
}

void SystemUpdateManager::onOumDownloadComplete(const QString&, const QString&)
{
    inOrder([this] {
        qCInfo(hmiShared, "SystemUpdateManager OUM Download Complete Signal Received");
        mUpdateUrl = QString();
    });
}

void SystemUpdateManager::onOumDownloadProgress(const QString&, int a_percent)
{
    inOrder([=] {
        qCInfo(hmiShared, "SystemUpdateManager OUM Download Progress Received: %d", a_percent);
        setPercent(a_percent);
    });
}

void SystemUpdateManager::onOumAvailableUpdatesChanged(const QStringList& a_updatePaths)
{
    inOrder([=] { takeAvailableUpdates(a_updatePaths); });
}

void SystemUpdateManager::onOumInstallFinished(bool a_success, QString a_status, QString a_UpdatePath)
{
    inOrder([=] { takeInstallResult(a_success, a_status, a_UpdatePath); });
}

void SystemUpdateManager::onOumDownloadableUpdatesChanged(const QStringList& a_updateUrls)
{
    inOrder([=] { takeDownloadableUpdates(a_updateUrls); });
}

void SystemUpdateManager::onOumInstallProgress(UpdateInstallState, QString, int a_percent)
{
    inOrder([=] {
        qCInfo(hmiShared, "SystemUpdateManager OUM Install Progress Received: %d", a_percent);
        setInstallPercent(a_percent);
    });
}

void SystemUpdateManager::onOumInstallStateChanged(UpdateInstallState a_state, QString)
{
    inOrder([=] { takeInstallState(a_state); });
}

void SystemUpdateManager::onOumAutoInstallPending(QString) {}

void SystemUpdateManager::onOumAutoRebootPending() {}

void SystemUpdateManager::takeDownloadableUpdates(const QStringList& aUpdateUrls)
{
    qCInfo(hmiShared, "SystemUpdateManager OUM Update Available Signal Received");
    if (mState != UpdateStateNoneAvailable && mState != UpdateStateUpdateComplete &&
        mState != UpdateStateUpdateError)
        return;
    if (aUpdateUrls.isEmpty()) {
        qCWarning(hmiShared,
                  "The update service announced an empty list of downloadable updates; it was ignored.");
        return;
    }
    mUpdateUrl = aUpdateUrls.first();
    DownloadableUpdateInfo info;
    if (!awaitUpdateInfo(info))
        return;
    qCInfo(hmiShared) << "Version:" << info.version;
    qCInfo(hmiShared) << "File Size:" << info.size;
    mDownloadSize = static_cast<int>(static_cast<quint32>(info.size));
    emit downloadSizeChanged();
    mVersion = info.version;
    emit versionChanged();
    setState(UpdateStateUpdateDownloadable);
}

/** A failed or late answer leaves the info as it is. False when this object went while it waited. */
bool SystemUpdateManager::awaitUpdateInfo(DownloadableUpdateInfo& aInfo)
{
    const QPointer<SystemUpdateManager> self(this);
    const QDBusPendingReply<DownloadableUpdateInfo> reply =
        mClient.wait().GetDownloadableUpdateInfo(mUpdateUrl);
    QDBusPendingCallWatcher watcher(reply);
    mWaiting = true;
    EventLoop().exec(UpdateInfoTimeout, &watcher, SIGNAL(finished(QDBusPendingCallWatcher*)));
    if (!self)
        return false;
    mWaiting = false;
    if (reply.isFinished() && !reply.isError())
        aInfo = reply.value();
    return true;
}

void SystemUpdateManager::takeAvailableUpdates(const QStringList& aUpdatePaths)
{
    if (!aUpdatePaths.isEmpty()) {
        mUpdatePath = aUpdatePaths.first();
        setState(UpdateStateUpdateAvailable);
    } else if (mState == UpdateStateUpdateAvailable) {
        setState(UpdateStateNoneAvailable);
    }
}

void SystemUpdateManager::takeInstallState(UpdateInstallState aState)
{
    switch (aState) {
    case UpdateManager::UpdateInstallStateVerifying:
        setState(UpdateStateVerifying);
        break;
    case UpdateManager::UpdateInstallStateInstalling:
        setState(UpdateStateInstalling);
        break;
    case UpdateManager::UpdateInstallStateValidating:
        setState(UpdateStateValidating);
        break;
    default:
        break;
    }
}

void SystemUpdateManager::takeInstallResult(bool aSuccess, const QString& aStatus, const QString& aUpdatePath)
{
    qCInfo(hmiShared, "SystemUpdateManager OUM Update Complete Signal Received: %s", qUtf8Printable(aStatus));
    if (aSuccess) {
        setState(UpdateStateUpdateComplete);
        emit updateComplete();
    } else {
        qCInfo(hmiShared, "SystemUpdateManager OUM Update Error Signal Received: %s",
               qUtf8Printable(aStatus));
        if (!aUpdatePath.isEmpty())
            mUpdatePath = aUpdatePath;
        setState(UpdateStateUpdateError);
    }
}

} // namespace Hmi::Shared
