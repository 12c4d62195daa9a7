#include <platform/notification-manager/NotificationManagerClient.h>

namespace NotificationMgr {

static constexpr int CallTimeout = 2000; ///< milliseconds

NotificationManagerClient::NotificationManagerClient(const QDBusConnection& aConnection, QObject* aParent) :
    ComKorvexNotificationManagerInterface(QStringLiteral("com.korvex.NotificationManager"),
                                          QStringLiteral("/com/korvex/NotificationManager"), aConnection,
                                          aParent)
{
    registerTypes();
    setTimeout(CallTimeout);
}

} // namespace NotificationMgr
