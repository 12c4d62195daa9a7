#pragma once

#include <QMap>
#include <QSet>

#include <platform/notification-manager/NotificationTypes.h>
#include <simulator/services/BusService.h>

namespace Hmi::Simulator {

/** Keeps the notifications until they are dismissed. Every type is enabled until it is switched off. */
class NotificationService : public BusService
{
    Q_OBJECT

public:
    struct Notification
    {
        NotificationMgr::NotificationInstance instance;
        bool hasLocation = false;
        double latitude = 0;
        double longitude = 0;
    };

    NotificationService(const QDBusConnection& aConnection, ServiceFaults& aFaults);

    // The interface. 0 and false: the type is empty or switched off, there is no such notification, or a
    // location is not on the globe; nothing is changed then and no signal sent.
    int AddNotification(const QString& aType, const QString& aTypeSpecificId, bool aHasLocation,
                        double aLatitude, double aLongitude);
    bool DismissNotification(int aId);
    NotificationMgr::NotificationList GetCurrentNotifications() const;
    bool GetIsNotificationEnabledFromType(const QString& aType) const;
    bool ShowNotification(int aId);
    bool UpdateNotificationEnabled(const QString& aType, bool aEnabled);
    bool UpdateNotificationLocation(int aId, bool aHasLocation, double aLatitude, double aLongitude);

    /** Of the notification that was added last, which may be gone; 0: none was. */
    int getLastId() const { return mLast; }
    bool setPriority(int aId, int aPriority);
    const QMap<int, Notification>& getNotifications() const { return mNotifications; }

private:
    QMap<int, Notification> mNotifications; ///< by their ids
    QSet<QString> mDisabled;                ///< types
    int mLast = 0;                          ///< id
};

} // namespace Hmi::Simulator
