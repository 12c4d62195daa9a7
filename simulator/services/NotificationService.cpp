#include <simulator/services/NotificationService.h>

#include <NotificationManagerAdaptor.h>
#include <cmath>

namespace Hmi::Simulator {

using namespace NotificationMgr;

NotificationService::NotificationService(const QDBusConnection& aConnection, ServiceFaults& aFaults) :
    BusService(QStringLiteral("com.korvex.NotificationManager"), aConnection, aFaults)
{
    registerTypes();
    new NotificationManagerAdaptor(this);
}

static bool isOnGlobe(double aLatitude, double aLongitude)
{
    return std::abs(aLatitude) <= 90 && std::abs(aLongitude) <= 180;
}

int NotificationService::AddNotification(const QString& aType, const QString& aTypeSpecificId,
                                         bool aHasLocation, double aLatitude, double aLongitude)
{
    if (!GetIsNotificationEnabledFromType(aType) || (aHasLocation && !isOnGlobe(aLatitude, aLongitude)))
        return 0;
    mNotifications.insert(++mLast, {{0, aType, aTypeSpecificId}, aHasLocation, aLatitude, aLongitude});
    emitSignal(QStringLiteral("NotificationAdded"),
               {mLast, aType, aTypeSpecificId, aHasLocation, aLatitude, aLongitude});
    return mLast;
}

bool NotificationService::DismissNotification(int aId)
{
    if (mNotifications.remove(aId) == 0)
        return false;
    emitSignal(QStringLiteral("NotificationDismissed"), {aId});
    return true;
}

NotificationList NotificationService::GetCurrentNotifications() const
{
    NotificationList list;
    for (auto one = mNotifications.begin(); one != mNotifications.end(); ++one)
        list.insert(static_cast<uint>(one.key()), one->instance);
    return list;
}

bool NotificationService::GetIsNotificationEnabledFromType(const QString& aType) const
{
    return !aType.isEmpty() && !mDisabled.contains(aType);
}

bool NotificationService::ShowNotification(int aId)
{
    if (!mNotifications.contains(aId))
        return false;
    emitSignal(QStringLiteral("NotificationShowRequested"), {aId});
    return true;
}

bool NotificationService::UpdateNotificationEnabled(const QString& aType, bool aEnabled)
{
    if (aType.isEmpty())
        return false;
    if (aEnabled)
        mDisabled.remove(aType);
    else
        mDisabled.insert(aType);
    return true;
}

bool NotificationService::UpdateNotificationLocation(int aId, bool aHasLocation, double aLatitude,
                                                     double aLongitude)
{
    const auto one = mNotifications.find(aId);
    if (one == mNotifications.end() || (aHasLocation && !isOnGlobe(aLatitude, aLongitude)))
        return false;
    *one = {one->instance, aHasLocation, aLatitude, aLongitude};
    emitSignal(QStringLiteral("NotificationLocationUpdated"), {aId, aHasLocation, aLatitude, aLongitude});
    return true;
}

bool NotificationService::setPriority(int aId, int aPriority)
{
    const auto one = mNotifications.find(aId);
    if (one == mNotifications.end())
        return false;
    one->instance.priority = aPriority;
    return true;
}

} // namespace Hmi::Simulator
