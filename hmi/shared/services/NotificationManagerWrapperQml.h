#pragma once

#include <QVariantMap>

#include <hmi/shared/services/NotificationManagerWrapper.h>

namespace Hmi::Shared {

/**
 * NotificationManagerWrapper as QML sees it, under that name. The engine cannot look into a NotificationList,
 * so its GetCurrentNotifications() gives an object instead, from the id as text to a record:
 *
 *     const notifications = manager.GetCurrentNotifications()
 *     for (const id in notifications)
 *         console.log(id, notifications[id].notificationType, notifications[id].typeSpecificId,
 *                     notifications[id].priority)
 *
 * QML's handlers, such as onNotificationAdded, are for signals that begin with a small letter; so each signal
 * is here once more under such a name.
 */
class Q_DECL_EXPORT NotificationManagerWrapperQml : public NotificationManagerWrapper
{
    Q_OBJECT

public:
    explicit NotificationManagerWrapperQml(QObject* aParent = nullptr);

    Q_INVOKABLE QVariantMap GetCurrentNotifications();

signals:
    void notificationAdded(int notificationId, const QString& notificationType, const QString& typeId,
                           bool hasLocation, double latitude, double longitude);
    void notificationDismissed(int notificationId);
    void notificationShowRequested(int notificationId);
    void notificationLocationUpdated(int notificationId, bool hasLocation, double latitude, double longitude);
};

} // namespace Hmi::Shared
