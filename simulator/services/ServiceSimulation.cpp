#include <simulator/services/ServiceSimulation.h>

#include <QCoreApplication>
#include <QDBusError>
#include <QFileInfo>

#include <simulator/CommandTable.h>
#include <simulator/Console.h>
#include <simulator/Options.h>
#include <simulator/services/BugReportService.h>
#include <simulator/services/NotificationCommands.h>
#include <simulator/services/NotificationService.h>
#include <simulator/services/ServiceCommands.h>
#include <simulator/services/UpdateCommands.h>
#include <simulator/services/UpdateService.h>

namespace Hmi::Simulator {

static const QString sUpdate = QStringLiteral("update");
static const QString sNotifications = QStringLiteral("notifications");
static const QString sBugReport = QStringLiteral("bug-report");
static const QString sConnection = QStringLiteral("hmi-platform-simulator");

QStringList ServiceSimulation::getWords() { return {sUpdate, sNotifications, sBugReport}; }

ServiceSimulation::ServiceSimulation(CommandTable& aCommands) : mCommandTable(aCommands) {}

/** A connection that closes while its signals still come in leaves some behind for their receivers. */
ServiceSimulation::~ServiceSimulation()
{
    mServices.clear();
    QDBusConnection(sConnection)
        .disconnect(QString(), QString(), QStringLiteral("org.freedesktop.DBus.Local"),
                    QStringLiteral("Disconnected"), this, SLOT(onBusLost()));
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    QDBusConnection::disconnectFromBus(sConnection);
}

bool ServiceSimulation::connectTo(const QString& aBus)
{
    QDBusConnection bus = aBus.isEmpty()
                              ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, sConnection)
                              : QDBusConnection::connectToBus(aBus, sConnection);
    if (!bus.isConnected()) {
        Console::printError(
            QStringLiteral("The %1 cannot be reached (%2); start it, or name another one with "
                           "--bus.")
                .arg(aBus.isEmpty() ? QStringLiteral("system bus") : QStringLiteral("bus at '%1'").arg(aBus),
                     bus.lastError().message()));
        return false;
    }
    bus.connect(QString(), QString(), QStringLiteral("org.freedesktop.DBus.Local"),
                QStringLiteral("Disconnected"), this, SLOT(onBusLost()));
    return true;
}

bool ServiceSimulation::start(const Options& aOptions)
{
    if (aOptions.services.isEmpty())
        return true;
    const QFileInfo reports(aOptions.reports);
    if (!aOptions.reports.isEmpty() && !(reports.isDir() && reports.isWritable())) {
        Console::printError(QStringLiteral("'%1' is no folder that can be written; choose another one with "
                                           "--reports.")
                                .arg(aOptions.reports));
        return false;
    }
    if (!connectTo(aOptions.bus))
        return false;
    ServiceCommands::Services byWord;
    for (const QString& word : aOptions.services) {
        mServices.push_back(make(word, aOptions));
        byWord.emplace(word, mServices.back().get());
    }
    mServiceCommands = std::make_unique<ServiceCommands>(byWord, mFaults, mCommandTable);
    return std::all_of(mServices.begin(), mServices.end(), [this](const auto& aOne) { return serve(*aOne); });
}

std::unique_ptr<BusService> ServiceSimulation::make(const QString& aWord, const Options& aOptions)
{
    const QDBusConnection bus(sConnection);
    if (aWord == sUpdate) {
        auto service = std::make_unique<UpdateService>(bus, mFaults);
        mUpdateCommands = std::make_unique<UpdateCommands>(*service, mCommandTable);
        return service;
    }
    if (aWord == sNotifications) {
        auto service = std::make_unique<NotificationService>(bus, mFaults);
        mNotificationCommands = std::make_unique<NotificationCommands>(*service, mCommandTable);
        return service;
    }
    return std::make_unique<BugReportService>(bus, mFaults, aOptions.reports, mCommandTable);
}

bool ServiceSimulation::serve(BusService& aService)
{
    if (aService.take()) {
        Console::print(QStringLiteral("serving ") + aService.getName());
        return true;
    }
    const QDBusError error = QDBusConnection(sConnection).lastError();
    Console::printError(
        QStringLiteral("%1 is not to be had on the bus (%2); end who has it, or leave the "
                       "service out of --services.")
            .arg(aService.getName(), error.isValid() ? error.message() : QStringLiteral("it is taken")));
    return false;
}

void ServiceSimulation::onBusLost()
{
    Console::printError(QStringLiteral("The bus is gone; start the services again when it is back."));
    QCoreApplication::exit(1);
}

} // namespace Hmi::Simulator
