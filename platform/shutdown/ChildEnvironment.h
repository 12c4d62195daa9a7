#pragma once

#include <QProcessEnvironment>

namespace QT {

/**
 * This process's environment without what systemd says to this process alone (sd_notify(3),
 * sd_watchdog_enabled(3)): what a child process gets. Any thread.
 */
inline QProcessEnvironment childEnvironment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name :
         {QStringLiteral("NOTIFY_SOCKET"), QStringLiteral("WATCHDOG_USEC"), QStringLiteral("WATCHDOG_PID")})
        environment.remove(name);
    return environment;
}

} // namespace QT
