#include <hmi/shared/services/NotificationManagerWrapperQml.h>

namespace Hmi::Shared {

using NotificationMgr::NotificationInstance;
using NotificationMgr::NotificationList;

NotificationManagerWrapperQml::NotificationManagerWrapperQml(QObject* aParent) :
    NotificationManagerWrapper(aParent)
{
    using Qml = NotificationManagerWrapperQml;
    connect(this, &Qml::NotificationAdded, this, &Qml::notificationAdded);
    connect(this, &Qml::NotificationDismissed, this, &Qml::notificationDismissed);
    connect(this, &Qml::NotificationShowRequested, this, &Qml::notificationShowRequested);
    connect(this, &Qml::NotificationLocationUpdated, this, &Qml::notificationLocationUpdated);
}

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
