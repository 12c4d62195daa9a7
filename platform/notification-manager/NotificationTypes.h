#pragma once

#include <QDBusArgument>
#include <QHash>
#include <QMetaType>
#include <QString>

namespace NotificationMgr {

/** One notification as the service keeps it. */
struct NotificationInstance
{
    int priority = 0; ///< the higher, the more urgent
    QString notificationType;
    QString typeSpecificId; ///< of the thing notified about, within its type
};

/** The notifications by their ids. */
using NotificationList = QHash<uint, NotificationInstance>;

Q_DECL_EXPORT QDBusArgument& operator<<(QDBusArgument& aArgument, const NotificationInstance& aInstance);
Q_DECL_EXPORT const QDBusArgument& operator>>(const QDBusArgument& aArgument,
                                              NotificationInstance& aInstance);

/** Of an id that is there twice the last counts. */
Q_DECL_EXPORT const QDBusArgument& operator>>(const QDBusArgument& aArgument, NotificationList& aList);

/** Registers the meta types; the client does. Later calls do nothing. */
Q_DECL_EXPORT void registerTypes();

} // namespace NotificationMgr

Q_DECLARE_METATYPE(NotificationMgr::NotificationInstance)
Q_DECLARE_METATYPE(NotificationMgr::NotificationList)
