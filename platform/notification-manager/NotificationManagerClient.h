#pragma once

#include <QDBusConnection>

#include <NotificationManagerInterface.h>

namespace NotificationMgr {

/**
 * The notification service on the bus: its methods are calls that return at once with a pending reply, its
 * signals arrive while its name has an owner, and from nobody but that owner. The service may come and go.
 * Calls give up after two seconds. Main thread only.
 */
class Q_DECL_EXPORT NotificationManagerClient : public ComKorvexNotificationManagerInterface
{
    Q_OBJECT

public:
    explicit NotificationManagerClient(const QDBusConnection& aConnection, QObject* aParent = nullptr);
};

} // namespace NotificationMgr
