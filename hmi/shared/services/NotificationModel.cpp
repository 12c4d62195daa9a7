#include <hmi/shared/services/NotificationModel.h>

#include <utility>

namespace Hmi::Shared::NotificationFramework {

NotificationModel::NotificationModel(const QString& aDescription, int aNotificationId, int aPriority,
                                     bool aAllowMultiple, const QString& aNotificationType,
                                     const QString& aTypeSpecificIdentifier, QObject* aParent) :
    QObject(aParent),
    mAllowMultiple(aAllowMultiple),
    mDescription(aDescription),
    mNotificationId(aNotificationId),
    mPriority(aPriority),
    mNotificationType(aNotificationType),
    mTypeSpecificIdentifier(aTypeSpecificIdentifier)
{}

/** All is stored before anything is told: who hears of the latitude may read the longitude. */
void NotificationModel::setLocation(bool aIsValid, float aLatitude, float aLongitude)
{
    const bool validityIsOther = std::exchange(mIsLocationValid, aIsValid) != aIsValid;
    const bool latitudeIsOther = std::exchange(mLatitude, aLatitude) != aLatitude;
    const bool longitudeIsOther = std::exchange(mLongitude, aLongitude) != aLongitude;
    if (validityIsOther)
        emit isLocationValidChanged();
    if (latitudeIsOther)
        emit latitudeChanged();
    if (longitudeIsOther)
        emit longitudeChanged();
}

} // namespace Hmi::Shared::NotificationFramework
