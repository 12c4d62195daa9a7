#include <platform/bug-report/BugReportClient.h>

namespace BugReport {

static constexpr int CallTimeout = 2000; ///< milliseconds

BugReportClient::BugReportClient(const QDBusConnection& aConnection, QObject* aParent) :
    ComKorvexBugReportInterface(QStringLiteral("com.korvex.BugReport"),
                                QStringLiteral("/com/korvex/BugReport"), aConnection, aParent)
{
    setTimeout(CallTimeout);
}

} // namespace BugReport
