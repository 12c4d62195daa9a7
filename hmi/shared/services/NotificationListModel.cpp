#include <hmi/shared/services/NotificationListModel.h>

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMap>
#include <QSet>
#include <cmath>
#include <utility>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

using NotificationFramework::NotificationModel;
using NotificationMgr::NotificationInstance;
using NotificationMgr::NotificationList;
using Client = NotificationMgr::NotificationManagerClient;

static constexpr int AskAgainInterval = 1000; ///< milliseconds

/** What is no number or beyond the poles is no position. */
static void locate(NotificationModel& aNotification, bool aHasLocation, double aLatitude, double aLongitude)
{
    const bool isPosition = std::abs(aLatitude) <= 90 && std::abs(aLongitude) <= 180;
    const float unknown = NotificationModel::UnknownPosition;
    aNotification.setLocation(aHasLocation && isPosition,
                              isPosition ? static_cast<float>(aLatitude) : unknown,
                              isPosition ? static_cast<float>(aLongitude) : unknown);
}

NotificationListModel::NotificationListModel(QObject* aParent) :
    NotificationListModel(&QDBusConnection::systemBus, aParent)
{}

NotificationListModel::NotificationListModel(const QDBusConnection& aConnection, QObject* aParent) :
    NotificationListModel(Bus::connectorOf(aConnection), aParent)
{}

NotificationListModel::NotificationListModel(Bus::Connector aConnector, QObject* aParent) :
    ObjectListModelT(aParent), mClient(std::move(aConnector))
{
    mAskAgain.setInterval(AskAgainInterval);
    mAskAgain.setSingleShot(true);
    connect(&mAskAgain, &QTimer::timeout, this, &NotificationListModel::ask);
    mClient.perform([this](Client& aClient) {
        follow(aClient);
        mFollowed = &aClient;
        QMetaObject::invokeMethod(this, &NotificationListModel::ask, Qt::QueuedConnection);
    });
}

void NotificationListModel::follow(Client& aClient)
{
    mOwner = std::make_unique<QDBusServiceWatcher>(aClient.service(), aClient.connection(),
                                                   QDBusServiceWatcher::WatchForOwnerChange);
    mOwner->moveToThread(thread());
    connect(mOwner.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            &NotificationListModel::onOwnerChanged);
    connect(&aClient, &Client::NotificationAdded, this, &NotificationListModel::onAdded);
    connect(&aClient, &Client::NotificationDismissed, this, &NotificationListModel::onDismissed);
    connect(&aClient, &Client::NotificationLocationUpdated, this, &NotificationListModel::onLocationUpdated);
    connect(&aClient, &Client::NotificationShowRequested, this, &NotificationListModel::showRequested);
}

void NotificationListModel::dismiss(int aNotificationId)
{
    mClient.perform([=](Client& aClient) { aClient.DismissNotification(aNotificationId); });
}

void NotificationListModel::ask()
{
    delete std::exchange(mAsked, nullptr);
    // Qt never tells of an answer then.
    if (!mFollowed.load()->connection().isConnected())
        return setServiceAvailable(false);
    mAsked = new QDBusPendingCallWatcher(mFollowed.load()->GetCurrentNotifications(), this);
    // Qt would tell of an answer that was there before the watcher behind signals that came later.
    if (mAsked->isFinished())
        return onListed(mAsked);
    connect(mAsked, &QDBusPendingCallWatcher::finished, this, &NotificationListModel::onListed);
}

void NotificationListModel::setServiceAvailable(bool aServiceAvailable)
{
    if (std::exchange(mServiceAvailable, aServiceAvailable) != aServiceAvailable)
        emit serviceAvailableChanged();
}

void NotificationListModel::onOwnerChanged(const QString&, const QString&, const QString& aNewOwner)
{
    clear();
    mListed = false;
    mAskAgain.stop();
    setServiceAvailable(!aNewOwner.isEmpty());
    if (mFollowed && !aNewOwner.isEmpty())
        ask();
}

void NotificationListModel::onListed(QDBusPendingCallWatcher* aWatcher)
{
    const QDBusPendingReply<NotificationList> reply = *aWatcher;
    aWatcher->deleteLater();
    mAsked = nullptr;
    mListed = true;
    setServiceAvailable(!reply.isError());
    if (reply.isError())
        return onNotListed(reply.error());
    mRefusalTold = false;
    const NotificationList notifications = reply.value();
    QMap<uint, NotificationInstance> inOrder;
    for (auto entry = notifications.cbegin(); entry != notifications.cend(); ++entry)
        inOrder.insert(entry.key(), entry.value());
    QSet<int> shown;
    for (int row = 0; row < getCount(); ++row)
        shown.insert(at(row)->getNotificationId());
    for (auto entry = inOrder.cbegin(); entry != inOrder.cend(); ++entry) {
        const int id = static_cast<int>(entry.key());
        // What was added meanwhile has its position.
        if (shown.contains(id))
            setPriority(id, entry->priority);
        else
            add(id, entry->priority, entry->notificationType, entry->typeSpecificId);
    }
}

/** A service that is not there is asked when it comes. */
void NotificationListModel::onNotListed(const QDBusError& aError)
{
    if (aError.type() == QDBusError::ServiceUnknown)
        return;
    mAskAgain.start();
    if (!std::exchange(mRefusalTold, true))
        qCWarning(hmiShared,
                  "The notification service did not list its notifications (%s); it is asked again every "
                  "second, and those that it adds meanwhile are shown.",
                  qUtf8Printable(aError.message()));
}

void NotificationListModel::askPriority(int aId)
{
    auto* const watcher = new QDBusPendingCallWatcher(mFollowed.load()->GetCurrentNotifications(), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [=] {
        watcher->deleteLater();
        const QDBusPendingReply<NotificationList> reply = *watcher;
        if (!reply.isError())
            setPriority(aId, reply.value().value(static_cast<uint>(aId)).priority);
    });
}

/** A notification keeps its priority, so that another takes its row. */
void NotificationListModel::setPriority(int aId, int aPriority)
{
    NotificationModel* const known = findId(aId);
    if (!known || known->getPriority() == aPriority)
        return;
    auto* const notification =
        new NotificationModel(known->getDescription(), aId, aPriority, known->getAllowMultiple(),
                              known->getNotificationType(), known->getTypeSpecificIdentifier());
    notification->setLocation(known->getIsLocationValid(), known->getLatitude(), known->getLongitude());
    const int row = indexOf(known);
    remove(row);
    insert(row, notification);
}

NotificationModel* NotificationListModel::findId(int aId) const
{
    return find([=](const NotificationModel* aModel) { return aModel->getNotificationId() == aId; });
}

NotificationModel* NotificationListModel::add(int aId, int aPriority, const QString& aType,
                                              const QString& aTypeId)
{
    auto* const notification = new NotificationModel(aTypeId, aId, aPriority, true, aType, aTypeId);
    const auto order = [](int aOther) { return static_cast<uint>(aOther); };
    int row = getCount();
    while (row > 0 && order(at(row - 1)->getNotificationId()) > order(aId))
        --row;
    insert(row, notification);
    return notification;
}

void NotificationListModel::onAdded(int aId, const QString& aType, const QString& aTypeId, bool aHasLocation,
                                    double aLatitude, double aLongitude)
{
    if (!mListed)
        return;
    setServiceAvailable(true);
    onDismissed(aId);
    NotificationModel* const notification = add(aId, 0, aType, aTypeId);
    if (aHasLocation)
        locate(*notification, true, aLatitude, aLongitude);
    askPriority(aId);
}

void NotificationListModel::onDismissed(int aId)
{
    if (NotificationModel* const notification = findId(aId))
        remove(indexOf(notification));
}

void NotificationListModel::onLocationUpdated(int aId, bool aHasLocation, double aLatitude, double aLongitude)
{
    if (NotificationModel* const notification = findId(aId))
        locate(*notification, aHasLocation, aLatitude, aLongitude);
}

} // namespace Hmi::Shared
