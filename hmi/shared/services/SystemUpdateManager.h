#pragma once

#include <QDBusServiceWatcher>
#include <QString>
#include <QStringList>
#include <functional>
#include <list>
#include <memory>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/shared/services/NotificationManagerWrapper.h>
#include <platform/bus/ServiceClient.h>
#include <platform/update-manager/UpdateManagerClient.h>

namespace Hmi::Shared {

/**
 * The software update as screens see it, "SystemUpdateManager" in QML where the configuration enables it
 * ("HmiShared/SystemUpdateEnabled"): one state, its progress, and what the driver may do. It follows the
 * update service on the system bus, which may come and go; an action that does not fit the state is ignored.
 *
 *     NoneAvailable -> UpdateDownloadable -> Downloading <-> DownloadPaused
 *         -> UpdateAvailable -> Installing, Verifying, Validating -> UpdateComplete or UpdateError
 *
 * While it waits for what the service knows of a new update, at most five seconds, the event loop runs; the
 * service's signals are taken afterwards, in their order. Otherwise nothing here waits for the bus: the
 * client is built, and actions are carried out in their order, beside the GUI thread. GUI thread only.
 */
class Q_DECL_EXPORT SystemUpdateManager : public Core::SingletonCppQml<SystemUpdateManager>
{
    Q_OBJECT
    /** Bytes, the low 32 bits of what the service tells; of the update that can be downloaded. */
    Q_PROPERTY(int downloadSize READ getDownloadSize NOTIFY downloadSizeChanged)
    /** As the service tells it, 0 to 100. */
    Q_PROPERTY(int installPercent READ getInstallPercent NOTIFY installPercentChanged)
    /** Of the download, as the service tells it, 0 to 100. */
    Q_PROPERTY(int percent READ getPercent NOTIFY percentChanged)
    Q_PROPERTY(UpdateState state READ getState NOTIFY stateChanged)
    /** Of the update that can be downloaded, as people read it. */
    Q_PROPERTY(QString version READ getVersion NOTIFY versionChanged)
    /** Whether the update service is on the bus; false until that is known. The state does not follow that: what was under way when the
     * service left may go on. */
    Q_PROPERTY(bool serviceAvailable READ getServiceAvailable NOTIFY serviceAvailableChanged)
    friend class Core::SingletonCppQml<SystemUpdateManager>;

public:
    enum UpdateState {
        UpdateStateNoneAvailable,
        UpdateStateUpdateDownloadable, ///< version and downloadSize are valid
        UpdateStateDownloading,
        UpdateStateDownloadPaused,
        UpdateStateUpdateAvailable, ///< downloaded, waits to be installed
        UpdateStateInstalling,
        UpdateStateValidating,
        UpdateStateValidationComplete, ///< for screens; never entered from here
        UpdateStateVerifying,
        UpdateStateUpdateComplete,
        UpdateStateUpdateError
    };
    Q_ENUM(UpdateState)

    /** Begins to follow the service; later calls do nothing. */
    void init();

    Q_INVOKABLE void checkForUpdates();
    /** Waits for the notification service, at most two seconds. */
    Q_INVOKABLE void dismissNotification();
    Q_INVOKABLE int getDownloadSize() const { return mDownloadSize; }
    Q_INVOKABLE int getInstallPercent() const { return mInstallPercent; }
    Q_INVOKABLE int getPercent() const { return mPercent; }
    Q_INVOKABLE QString getVersion() const { return mVersion; }
    Q_INVOKABLE Hmi::Shared::SystemUpdateManager::UpdateState getState() const { return mState; }
    bool getServiceAvailable() const { return mServiceAvailable; }
    Q_INVOKABLE void pauseDownload();
    /** Back to the beginning, for the HMI; what the service does goes on. */
    Q_INVOKABLE void resetUpdateProcess();
    Q_INVOKABLE void resumeDownload();
    /** Installs once more what could not be installed. */
    Q_INVOKABLE void retryInstallation();
    Q_INVOKABLE void startDownload();
    Q_INVOKABLE void startInstallation();

    /** The notification that tells of this update, for dismissNotification(); -1 for none. Its owner sets it.
     */
    void setNotificationId(int aNotificationId) { mNotificationId = aNotificationId; }

public slots:
    // Of the update service.
    void onOumDownloadComplete(const QString& a_updateUrl, const QString& a_updatePath);
    void onOumDownloadProgress(const QString& a_updateUrl, int a_percent);
    void onOumAvailableUpdatesChanged(const QStringList& a_updatePaths);
    void onOumInstallFinished(bool a_success, QString a_status, QString a_UpdatePath);
    void onOumDownloadableUpdatesChanged(const QStringList& a_updateUrls);
    void onOumInstallProgress(UpdateManager::UpdateInstallState a_state, QString a_UpdatePath, int a_percent);
    void onOumInstallStateChanged(UpdateManager::UpdateInstallState a_state, QString a_UpdatePath);
    void onOumAutoInstallPending(QString a_UpdatePath);
    void onOumAutoRebootPending();

signals:
    void downloadSizeChanged();
    void installPercentChanged();
    void percentChanged();
    void serviceAvailableChanged();
    void stateChanged();
    /** Installed; after the change of the state. */
    void updateComplete();
    void versionChanged();

private:
    SystemUpdateManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    void inOrder(const std::function<void()>& aTake);
    void takeDownloadableUpdates(const QStringList& aUpdateUrls);
    void takeAvailableUpdates(const QStringList& aUpdatePaths);
    void takeInstallState(UpdateManager::UpdateInstallState aState);
    void takeInstallResult(bool aSuccess, const QString& aStatus, const QString& aUpdatePath);
    bool awaitUpdateInfo(UpdateManager::DownloadableUpdateInfo& aInfo);
    void watchOwner(UpdateManager::UpdateManagerClient& aClient);
    void setServiceAvailable(bool aServiceAvailable);
    void setState(UpdateState aState);
    void setPercent(int aPercent);
    void setInstallPercent(int aPercent);

    bool mInitialized = false;
    int mPercent = 0;
    int mDownloadSize = 0;
    int mInstallPercent = 0;
    int mNotificationId = -1;
    UpdateState mState = UpdateStateNoneAvailable;
    QString mVersion;
    QString mUpdateUrl;  ///< of what can be downloaded
    QString mUpdatePath; ///< of what is downloaded, or could not be installed
    bool mServiceAvailable = false;
    NotificationManagerWrapper mNotifications;
    bool mWaiting = false;
    std::list<std::function<void()>> mDeferred; ///< signals that came while it waited
    std::unique_ptr<QDBusServiceWatcher> mOwner;
    Bus::ServiceClient<UpdateManager::UpdateManagerClient> mClient{&QDBusConnection::systemBus};
};

} // namespace Hmi::Shared
