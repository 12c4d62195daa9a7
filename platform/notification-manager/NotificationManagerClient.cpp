#include <platform/notification-manager/NotificationManagerClient.h>

namespace NotificationMgr {

/** In milliseconds: two seconds, less the 5 % by which the timer of a call may be late. */
static constexpr int CallTimeout = 1900;

NotificationManagerClient::NotificationManagerClient(const QDBusConnection& aConnection, QObject* aParent) :
    ComKorvexNotificationManagerInterface(QStringLiteral("com.korvex.NotificationManager"),
                                          QStringLiteral("/com/korvex/NotificationManager"), aConnection,
                                          aParent)
{
    registerTypes();
    setTimeout(CallTimeout);
}

} // namespace NotificationMgr
