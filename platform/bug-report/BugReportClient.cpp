#include <platform/bug-report/BugReportClient.h>

namespace BugReport {

/** In milliseconds: two seconds, less the 5 % by which the timer of a call may be late. */
static constexpr int CallTimeout = 1900;

BugReportClient::BugReportClient(const QDBusConnection& aConnection, QObject* aParent) :
    ComKorvexBugReportInterface(QStringLiteral("com.korvex.BugReport"),
                                QStringLiteral("/com/korvex/BugReport"), aConnection, aParent)
{
    setTimeout(CallTimeout);
}

} // namespace BugReport
