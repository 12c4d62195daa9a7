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
 */
class Q_DECL_EXPORT NotificationManagerWrapperQml : public NotificationManagerWrapper
{
    Q_OBJECT

public:
    using NotificationManagerWrapper::NotificationManagerWrapper;

    Q_INVOKABLE QVariantMap GetCurrentNotifications();
};

} // namespace Hmi::Shared
