#pragma once

#include <QDBusConnection>

#include <BugReportInterface.h>

namespace BugReport {

/**
 * The bug-report service on the bus: its methods are calls that return at once with a pending reply, and give
 * up after two seconds. The service may come and go. Main thread only.
 */
class Q_DECL_EXPORT BugReportClient : public ComKorvexBugReportInterface
{
    Q_OBJECT

public:
    explicit BugReportClient(const QDBusConnection& aConnection, QObject* aParent = nullptr);
};

} // namespace BugReport
