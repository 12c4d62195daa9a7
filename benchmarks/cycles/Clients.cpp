#include "Clients.h"

#include <limits>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <platform/data-manager/DataManager.h>

using namespace Hmi::Shared;
using namespace SignalService;

static constexpr int SubscribedSignals = 8;

Clients::Clients(const QString& aSocket) :
    transport(aSocket), writer(transport, QStringLiteral("Vehicle.Put"))
{
    update.init();
    QObject::connect(&update, &SystemUpdateManager::percentChanged, &transport,
                     [this] { announced = update.getPercent() > 100 ? update.getPercent() : announced; });
    for (int i = 0; i < SubscribedSignals; ++i) {
        readers << new RxSignalProxy(transport, QStringLiteral("Vehicle.Signal%1").arg(i), &transport);
        QObject::connect(readers.last(), &RxSignalProxy::ValueUpdated,
                         [=](const QVariant& aValue, int) { values[i] = aValue.toInt(); });
        readers.last()->RequestUpdates();
    }
    QObject::connect(&wrapper, &NotificationManagerWrapper::NotificationAdded,
                     [=](const int&, const QString&, const QString& aId) { added = aId; });
    QObject::connect(&settings, &DataManagerSignalClient::DataManagerSettingChanged,
                     [=](const int&, const QString&) { ++settingsTold; });
    QDBusConnection bus = QDBusConnection::systemBus();
    bus.registerObject(QStringLiteral("/com/korvex/BugReportHmi"), &hmi, QDBusConnection::ExportAllSlots);
    bus.registerService(QStringLiteral("com.korvex.BugReportHmi"));
}

void Clients::use(int aValue)
{
    update.checkForUpdates();
    update.startDownload();
    update.resumeDownload();
    // That is never there: a call which the bus delivers late would take one that is waited for.
    notifications.dismiss(std::numeric_limits<int>::max());
    bugs.CreateBugReport();
    readers.last()->RequestUpdate();
    writer.PutValue(MemcpyToDataBuffer(aValue));
    DataManager::Settings::setGlobalSetting(QStringLiteral("written"), aValue);
}
