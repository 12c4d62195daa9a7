#include <hmi/shared/services/NotificationManagerWrapper.h>

#include <QDBusPendingReply>
#include <utility>

namespace Hmi::Shared {

using NotificationMgr::NotificationList;
using NotificationMgr::NotificationManagerClient;

NotificationManagerWrapper::NotificationManagerWrapper(QObject* aParent) :
    NotificationManagerWrapper(&QDBusConnection::systemBus, aParent)
{}

NotificationManagerWrapper::NotificationManagerWrapper(const QDBusConnection& aConnection, QObject* aParent) :
    NotificationManagerWrapper(Bus::connectorOf(aConnection), aParent)
{}

NotificationManagerWrapper::NotificationManagerWrapper(Bus::Connector aConnector, QObject* aParent) :
    QObject(aParent), mClient(std::move(aConnector))
{
    mClient.perform([this](NotificationManagerClient& aClient) {
        // clang-format off
        connect(&aClient, SIGNAL(NotificationAdded( const int&, const QString&, const QString&, const bool, const double, const double )),
                this, SIGNAL(NotificationAdded( const int&, const QString&, const QString&, const bool, const double, const double )));
        connect(&aClient, SIGNAL(NotificationDismissed( const int& )),
                this, SIGNAL(NotificationDismissed( const int& )));
        connect(&aClient, SIGNAL(NotificationShowRequested( const int& )),
                this, SIGNAL(NotificationShowRequested( const int& )));
        connect(&aClient, SIGNAL(NotificationLocationUpdated( const int&, const bool, const double, const double )),
                this, SIGNAL(NotificationLocationUpdated( const int&, const bool, const double, const double )));
        // clang-format on
    });
}

/** The default value of the type when the call fails or the answer is of another type. */
template <class T>
static T await(QDBusPendingReply<T> aReply)
{
    aReply.waitForFinished();
    return aReply.isError() ? T() : aReply.value();
}

int NotificationManagerWrapper::AddNotification(const QString& a_notificationType,
                                                const QString& a_typeSpecificId, bool a_hasLocation,
                                                double a_latitude, double a_longitude)
{
    return await(mClient.wait().AddNotification(a_notificationType, a_typeSpecificId, a_hasLocation,
                                                a_latitude, a_longitude));
}

bool NotificationManagerWrapper::DismissNotification(int a_notificationId)
{
    return await(mClient.wait().DismissNotification(a_notificationId));
}

NotificationList NotificationManagerWrapper::GetCurrentNotifications()
{
    return await(mClient.wait().GetCurrentNotifications());
}

bool NotificationManagerWrapper::GetIsNotificationEnabledFromType(const QString& a_notificationType)
{
    return await(mClient.wait().GetIsNotificationEnabledFromType(a_notificationType));
}

bool NotificationManagerWrapper::ShowNotification(int a_notificationId)
{
    return await(mClient.wait().ShowNotification(a_notificationId));
}

bool NotificationManagerWrapper::UpdateNotificationEnabled(const QString& a_notificationType,
                                                           bool a_isEnabled)
{
    return await(mClient.wait().UpdateNotificationEnabled(a_notificationType, a_isEnabled));
}

bool NotificationManagerWrapper::UpdateNotificationLocation(int a_notificationId, bool a_hasLocation,
                                                            double a_latitude, double a_longitude)
{
    return await(
        mClient.wait().UpdateNotificationLocation(a_notificationId, a_hasLocation, a_latitude, a_longitude));
}

} // namespace Hmi::Shared
