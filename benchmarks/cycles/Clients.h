#pragma once

#include <QDBusConnection>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <memory>

#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/NotificationManagerWrapper.h>
#include <hmi/shared/services/SystemUpdateManager.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <platform/bug-report/BugReportClient.h>
#include <platform/data-manager/DataManagerSignalClient.h>

/** The HMI's object that the bug-report service tells what may be offered. */
class BugReportHmi : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.korvex.BugReportHmi")

public:
    int told = 0;

public slots:
    void SetEnabled(bool) { ++told; }
    void SetFeatures(bool, bool, bool) { ++told; }
};

/** All that a head unit has on its platform's services, and what came from them last. GUI thread only. */
struct Clients
{
    explicit Clients(const QString& aSocket);

    /** What a driver may do at any time. */
    void use(int aValue);
    bool haveValue(int aValue) const { return values.values().count(aValue) == readers.size(); }

    Hmi::Shared::SystemUpdateManager& update = *Hmi::Shared::SystemUpdateManager::instance();
    int announced = 0; ///< as a percentage, which is more than 100
    Hmi::Shared::NotificationListModel notifications;
    std::unique_ptr<Hmi::Shared::NotificationListModel> laterNotifications;
    Hmi::Shared::NotificationManagerWrapper wrapper;
    QString added; ///< to the notifications, as the wrapper tells it
    BugReport::BugReportClient bugs{QDBusConnection::systemBus()};
    BugReportHmi hmi;
    DataManagerSignalClient settings;
    int settingsTold = 0;
    SignalService::TransportProxy transport;
    QList<SignalService::RxSignalProxy*> readers;
    QMap<int, int> values; ///< by reader
    SignalService::TxSignalProxy writer;
};
