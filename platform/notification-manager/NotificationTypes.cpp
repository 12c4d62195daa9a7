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

/** Qt's own would keep both values of an id. */
const QDBusArgument& operator>>(const QDBusArgument& aArgument, NotificationList& aList)
{
    aList.clear();
    aArgument.beginMap();
    while (!aArgument.atEnd()) {
        uint id = 0;
        NotificationInstance instance;
        aArgument.beginMapEntry();
        aArgument >> id >> instance;
        aArgument.endMapEntry();
        aList.insert(id, instance);
    }
    aArgument.endMap();
    return aArgument;
}

void registerTypes()
{
    qDBusRegisterMetaType<NotificationInstance>();
    // With it comes the converter to a walkable association.
    qDBusRegisterMetaType<NotificationList>();
}

} // namespace NotificationMgr
