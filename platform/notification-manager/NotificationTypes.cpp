#include <platform/notification-manager/NotificationTypes.h>

#include <QDBusMetaType>

namespace NotificationMgr {

QDBusArgument& operator<<(QDBusArgument& aArgument, const NotificationInstance& aInstance)
{
    aArgument.beginStructure();
    aArgument << aInstance.priority << aInstance.notificationType << aInstance.typeSpecificId;
    aArgument.endStructure();
    return aArgument;
}

const QDBusArgument& operator>>(const QDBusArgument& aArgument, NotificationInstance& aInstance)
{
    aArgument.beginStructure();
    aArgument >> aInstance.priority >> aInstance.notificationType >> aInstance.typeSpecificId;
    aArgument.endStructure();
    return aArgument;
}

void registerTypes()
{
    qDBusRegisterMetaType<NotificationInstance>();
    // With it comes the converter to a walkable association.
    qDBusRegisterMetaType<NotificationList>();
}

} // namespace NotificationMgr
