#pragma once

#include <QObject>
#include <QTimer>

#include <platform/notification-manager/NotificationTypes.h>

constexpr int ListedNotifications = 20; ///< with the ids from 0 on

/** What the benchmarks of the notification service call; what it does costs nothing but its D-Bus. */
class NotificationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.korvex.NotificationManager")

public:
    NotificationService();

    /**
     * Serves on the system bus until its parent process ends, the update service's name in its hands as well;
     * prints an empty line when it begins.
     */
    static void run();

public slots:
    NotificationMgr::NotificationList GetCurrentNotifications() const { return mNotifications; }
    bool GetIsNotificationEnabledFromType(const QString&) const { return true; }
    /** Adds so many, 200 a second; the latitude of each is the time before it was sent. */
    void start(int aCount);

signals:
    void NotificationAdded(int notificationId, const QString& notificationType, const QString& typeId,
                           bool hasLocation, double latitude, double longitude);

private:
    void add();

    NotificationMgr::NotificationList mNotifications;
    QTimer mPace;
    int mLeft = 0;
    int mNextId = ListedNotifications;
};
