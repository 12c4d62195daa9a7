#include <simulator/services/BugReportService.h>

#include <BugReportAdaptor.h>
#include <QDBusError>

#include <simulator/CommandTable.h>
#include <simulator/Console.h>

namespace Hmi::Simulator {

static const QString sHmi = QStringLiteral("com.korvex.BugReportHmi");
static const QString sDisabled = QStringLiteral("com.korvex.BugReport.Error.Disabled");

BugReportService::BugReportService(const QDBusConnection& aConnection, ServiceFaults& aFaults,
                                   const QString& aFolder, CommandTable& aCommands) :
    BusService(QStringLiteral("com.korvex.BugReport"), aConnection, aFaults),
    mFolder(aFolder),
    mHmi(sHmi, aConnection, QDBusServiceWatcher::WatchForRegistration)
{
    new BugReportAdaptor(this);
    connect(&mHmi, &QDBusServiceWatcher::serviceRegistered, this, &BugReportService::tellEnabled);
    connect(&mHmi, &QDBusServiceWatcher::serviceRegistered, this, &BugReportService::tellFeatures);
    aCommands.add({{QStringLiteral("bug create"),
                    {},
                    QStringLiteral("creates a bug report"),
                    [this](const QStringList&) { create(); }},
                   {QStringLiteral("bug list"),
                    {},
                    QStringLiteral("shows the bug reports"),
                    [this](const QStringList&) { list(); }}});
}

void BugReportService::CreateBugReport()
{
    if (!GetManualEnabled())
        return refuse(sDisabled, QStringLiteral("manual bug reports are not enabled"));
    QString error;
    if (mFolder.create(error).isEmpty())
        refuse(QDBusError::errorString(QDBusError::Failed), error);
}

void BugReportService::ClearAllReports()
{
    if (!mFolder.clear())
        refuse(QDBusError::errorString(QDBusError::Failed),
               QStringLiteral("some reports cannot be removed: ") +
                   mFolder.getPaths().join(QStringLiteral(", ")));
}

void BugReportService::SetEnabled(bool aEnabled)
{
    mEnabled = aEnabled;
    tellEnabled();
}

void BugReportService::SetFeatures(bool aNotifications, bool aManual, bool aExport)
{
    mFeatures = {aNotifications, aManual, aExport};
    tellFeatures();
}

void BugReportService::tellEnabled() { tellHmi(QStringLiteral("SetEnabled"), {mEnabled}); }

void BugReportService::tellFeatures()
{
    tellHmi(QStringLiteral("SetFeatures"), {mFeatures.notifications, mFeatures.manual, mFeatures.exports});
}

void BugReportService::tellHmi(const QString& aMethod, const QVariantList& aArguments)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(sHmi, QStringLiteral("/com/korvex/BugReportHmi"), sHmi, aMethod);
    call.setArguments(aArguments);
    call.setAutoStartService(false);
    getConnection().send(call);
}

void BugReportService::create()
{
    QString error;
    const QString path = mFolder.create(error);
    if (path.isEmpty())
        CommandTable::refuse(error);
    else
        Console::print(QStringLiteral("created ") + path);
}

void BugReportService::list()
{
    const QStringList paths = mFolder.getPaths();
    for (const QString& path : paths)
        Console::print(QStringLiteral("report ") + path);
    Console::print(QStringLiteral("reports %1").arg(paths.size()));
}

} // namespace Hmi::Simulator
