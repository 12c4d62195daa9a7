#include <hmi/shared/services/NotificationManagerWrapperQml.h>

namespace Hmi::Shared {

using NotificationMgr::NotificationInstance;
using NotificationMgr::NotificationList;

static QVariantMap describe(const NotificationInstance& aNotification)
{
    return {{QStringLiteral("priority"), aNotification.priority},
            {QStringLiteral("notificationType"), aNotification.notificationType},
            {QStringLiteral("typeSpecificId"), aNotification.typeSpecificId}};
}

QVariantMap NotificationManagerWrapperQml::GetCurrentNotifications()
{
    const NotificationList notifications = NotificationManagerWrapper::GetCurrentNotifications();
    QVariantMap byId;
    for (auto entry = notifications.cbegin(); entry != notifications.cend(); ++entry)
        byId.insert(QString::number(entry.key()), describe(entry.value()));
    return byId;
}

} // namespace Hmi::Shared
