#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <platform/bus/ServiceClient.h>
#include <platform/notification-manager/NotificationManagerClient.h>

namespace Hmi::Shared {

/**
 * The notification service for the HMI. The methods wait for the service's answer, at most two seconds; when
 * it fails, they return 0, false or an empty list, and say nothing of it. The signals are the service's own:
 * what anybody else sends under their names is ignored. The service may come and go. Making one waits for
 * nothing; the service's signals come from when the bus knows of it, at the latest with a method's return.
 *
 * In QML it is "NotificationManagerWrapper" (see NotificationManagerWrapperQml for what that sees of the
 * list); screens that show the notifications take NotificationListModel. GUI thread only.
 */
class Q_DECL_EXPORT NotificationManagerWrapper : public QObject
{
    Q_OBJECT

public:
    /** On the system bus. */
    explicit NotificationManagerWrapper(QObject* aParent = nullptr);
    explicit NotificationManagerWrapper(const QDBusConnection& aConnection, QObject* aParent = nullptr);

    /** The new notification's id; 0 when there is none. */
    Q_INVOKABLE int AddNotification(const QString& a_notificationType, const QString& a_typeSpecificId,
                                    bool a_hasLocation, double a_latitude, double a_longitude);
    Q_INVOKABLE bool DismissNotification(int a_notificationId);
    Q_INVOKABLE NotificationMgr::NotificationList GetCurrentNotifications();
    Q_INVOKABLE bool GetIsNotificationEnabledFromType(const QString& a_notificationType);
    Q_INVOKABLE bool ShowNotification(int a_notificationId);
    Q_INVOKABLE bool UpdateNotificationEnabled(const QString& a_notificationType, bool a_isEnabled);
    Q_INVOKABLE bool UpdateNotificationLocation(int a_notificationId, bool a_hasLocation, double a_latitude,
                                                double a_longitude);

signals:
    void NotificationAdded(const int& a_notificationId, const QString& a_notificationType,
                           const QString& a_typeId, const bool a_hasLocation, const double a_latitude,
                           const double a_longitude);
    void NotificationDismissed(const int& a_notificationId);
    void NotificationShowRequested(const int& a_notificationId);
    void NotificationLocationUpdated(const int& a_notificationId, const bool a_hasLocation,
                                     const double a_latitude, const double a_longitude);

private:
    NotificationManagerWrapper(Bus::Connector aConnector, QObject* aParent);

    Bus::ServiceClient<NotificationMgr::NotificationManagerClient> mClient;
};

} // namespace Hmi::Shared
