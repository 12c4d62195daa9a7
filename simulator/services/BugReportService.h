#pragma once

#include <QDBusServiceWatcher>

#include <simulator/services/BusService.h>
#include <simulator/services/ReportFolder.h>

namespace Hmi::Simulator {

class CommandTable;

/**
 * Creates bug reports on demand. What the HMI may offer of them is told to its object on the bus when it
 * changes, and when that object's name appears; nothing waits for an answer. Everything is enabled in the
 * beginning.
 */
class BugReportService : public BusService
{
    Q_OBJECT

public:
    /** Adds its commands to the table; neither is used without the other. */
    BugReportService(const QDBusConnection& aConnection, ServiceFaults& aFaults, const QString& aFolder,
                     CommandTable& aCommands);

    // The interface; nothing is enabled while reports are not.
    void ClearAllReports();
    void CreateBugReport();
    bool GetExportEnabled() const { return mEnabled && mFeatures.exports; }
    bool GetManualEnabled() const { return mEnabled && mFeatures.manual; }
    bool GetNotificationsEnabled() const { return mEnabled && mFeatures.notifications; }
    void SetEnabled(bool aEnabled);
    void SetFeatures(bool aNotifications, bool aManual, bool aExport);

private:
    struct Features
    {
        bool notifications = true;
        bool manual = true;
        bool exports = true;
    };

    void tellHmi(const QString& aMethod, const QVariantList& aArguments);
    void tellEnabled();
    void tellFeatures();
    void create();
    void list();

    const ReportFolder mFolder;
    QDBusServiceWatcher mHmi;
    bool mEnabled = true;
    Features mFeatures;
};

} // namespace Hmi::Simulator
