#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QTimer>
#include <atomic>
#include <memory>

#include <hmi/core/models/ObjectListModelT.h>
#include <hmi/shared/services/NotificationModel.h>
#include <platform/bus/ServiceClient.h>
#include <platform/notification-manager/NotificationManagerClient.h>

class QDBusError;
class QDBusPendingCallWatcher;

namespace Hmi::Shared {

/**
 * The notification service's current notifications for a view, in the order of their ids:
 *
 *     ListView {
 *         model: NotificationListModel { onShowRequested: page.show(notificationId) }
 *         delegate: Text { text: notificationType + ": " + description }
 *     }
 *
 * It asks the service for what there is and follows its signals from then on, without ever waiting. An answer
 * that is an error or does not come is one warning, and it asks again a second later, until it knows. While
 * the service is away the list is empty; when it returns, it is asked again. The service knows no
 * description, so that is the type-specific identifier. Its list has priorities and no positions, its signals
 * positions and no priorities: those of what it adds are asked for, and 0 until they are known; a position
 * that is not told, or not on the globe, is UnknownPosition. GUI thread only.
 */
class Q_DECL_EXPORT NotificationListModel
    : public Core::ObjectListModelT<NotificationFramework::NotificationModel*>
{
    Q_OBJECT
    /** Whether the service answers; true until that is known. */
    Q_PROPERTY(bool serviceAvailable READ getServiceAvailable NOTIFY serviceAvailableChanged)

public:
    /** On the system bus. */
    explicit NotificationListModel(QObject* aParent = nullptr);
    explicit NotificationListModel(const QDBusConnection& aConnection, QObject* aParent = nullptr);

    bool getServiceAvailable() const { return mServiceAvailable; }

    /** Asks the service to dismiss it; it leaves the list when the service says so. */
    Q_INVOKABLE void dismiss(int aNotificationId);

signals:
    void serviceAvailableChanged();
    void showRequested(int notificationId);

private:
    NotificationListModel(Bus::Connector aConnector, QObject* aParent);

    void follow(NotificationMgr::NotificationManagerClient& aClient);
    void ask();
    void askPriority(int aId);
    void setPriority(int aId, int aPriority);
    void setServiceAvailable(bool aServiceAvailable);
    void onOwnerChanged(const QString& aName, const QString& aOldOwner, const QString& aNewOwner);
    void onListed(QDBusPendingCallWatcher* aWatcher);
    void onNotListed(const QDBusError& aError);
    void onAdded(int aId, const QString& aType, const QString& aTypeId, bool aHasLocation, double aLatitude,
                 double aLongitude);
    void onDismissed(int aId);
    void onLocationUpdated(int aId, bool aHasLocation, double aLatitude, double aLongitude);
    NotificationFramework::NotificationModel* findId(int aId) const;
    NotificationFramework::NotificationModel* add(int aId, int aPriority, const QString& aType,
                                                  const QString& aTypeId);

    /** As soon as its signals are connected. */
    std::atomic<NotificationMgr::NotificationManagerClient*> mFollowed{nullptr};
    QDBusPendingCallWatcher* mAsked = nullptr;
    bool mListed = false; ///< what came before the answer is part of it
    bool mRefusalTold = false;
    bool mServiceAvailable = true;
    QTimer mAskAgain;
    std::unique_ptr<QDBusServiceWatcher> mOwner;
    Bus::ServiceClient<NotificationMgr::NotificationManagerClient> mClient;
};

} // namespace Hmi::Shared
