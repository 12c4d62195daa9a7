#include <hmi/shared/services/NotificationListModel.h>

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

using NotificationFramework::NotificationModel;
using NotificationMgr::NotificationInstance;
using NotificationMgr::NotificationList;
using Client = NotificationMgr::NotificationManagerClient;

NotificationListModel::NotificationListModel(QObject* aParent) :
    NotificationListModel(QDBusConnection::systemBus(), aParent)
{}

NotificationListModel::NotificationListModel(const QDBusConnection& aConnection, QObject* aParent) :
    ObjectListModelT(aParent),
    mClient(aConnection),
    mOwner(mClient.service(), aConnection, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&mOwner, &QDBusServiceWatcher::serviceOwnerChanged, this, &NotificationListModel::onOwnerChanged);
    connect(&mClient, &Client::NotificationAdded, this, &NotificationListModel::onAdded);
    connect(&mClient, &Client::NotificationDismissed, this, &NotificationListModel::onDismissed);
    connect(&mClient, &Client::NotificationLocationUpdated, this, &NotificationListModel::onLocationUpdated);
    connect(&mClient, &Client::NotificationShowRequested, this, &NotificationListModel::showRequested);
    ask();
}

void NotificationListModel::dismiss(int aNotificationId) { mClient.DismissNotification(aNotificationId); }

void NotificationListModel::ask()
{
    delete mAsked;
    mAsked = new QDBusPendingCallWatcher(mClient.GetCurrentNotifications(), this);
    connect(mAsked, &QDBusPendingCallWatcher::finished, this, &NotificationListModel::onListed);
}

void NotificationListModel::onOwnerChanged(const QString&, const QString&, const QString& aNewOwner)
{
    clear();
    if (!aNewOwner.isEmpty())
        ask();
}

void NotificationListModel::onListed(QDBusPendingCallWatcher* aWatcher)
{
    const QDBusPendingReply<NotificationList> reply = *aWatcher;
    aWatcher->deleteLater();
    mAsked = nullptr;
    // A service that is not there is asked when it comes.
    if (reply.isError() && reply.error().type() != QDBusError::ServiceUnknown)
        qCWarning(hmiShared,
                  "The notification service did not list its notifications (%s); only those that it adds "
                  "from now on are shown.",
                  qUtf8Printable(reply.error().message()));
    if (reply.isError())
        return;
    const NotificationList notifications = reply.value();
    QMap<uint, NotificationInstance> inOrder;
    for (auto entry = notifications.cbegin(); entry != notifications.cend(); ++entry)
        inOrder.insert(entry.key(), entry.value());
    for (auto entry = inOrder.cbegin(); entry != inOrder.cend(); ++entry)
        add(static_cast<int>(entry.key()), entry->priority, entry->notificationType, entry->typeSpecificId);
}

NotificationModel* NotificationListModel::findId(int aId) const
{
    return find([=](const NotificationModel* aModel) { return aModel->getNotificationId() == aId; });
}

NotificationModel* NotificationListModel::add(int aId, int aPriority, const QString& aType,
                                              const QString& aTypeId)
{
    onDismissed(aId);
    auto* const notification = new NotificationModel(aTypeId, aId, aPriority, true, aType, aTypeId);
    append(notification);
    return notification;
}

void NotificationListModel::onAdded(int aId, const QString& aType, const QString& aTypeId, bool aHasLocation,
                                    double aLatitude, double aLongitude)
{
    if (mAsked)
        return;
    NotificationModel* const notification = add(aId, 0, aType, aTypeId);
    if (aHasLocation)
        notification->setLocation(true, static_cast<float>(aLatitude), static_cast<float>(aLongitude));
}

void NotificationListModel::onDismissed(int aId)
{
    if (NotificationModel* const notification = findId(aId))
        remove(indexOf(notification));
}

void NotificationListModel::onLocationUpdated(int aId, bool aHasLocation, double aLatitude, double aLongitude)
{
    if (NotificationModel* const notification = findId(aId))
        notification->setLocation(aHasLocation, static_cast<float>(aLatitude),
                                  static_cast<float>(aLongitude));
}

} // namespace Hmi::Shared
