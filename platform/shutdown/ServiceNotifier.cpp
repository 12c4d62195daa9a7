#include <platform/shutdown/ServiceNotifier.h>

#include <QLibrary>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <systemd/sd-daemon.h>

namespace QT {

static std::chrono::milliseconds watchdogPeriod(decltype(&sd_watchdog_enabled) aWatchdogEnabled)
{
    std::uint64_t microseconds = 0;
    const int enabled = aWatchdogEnabled(0, &microseconds);
    if (enabled < 0)
        qWarning("The watchdog is not fed: WATCHDOG_USEC or WATCHDOG_PID of the environment is no number.");
    // More than a day is as good as a day.
    const std::uint64_t milliseconds = std::min<std::uint64_t>(microseconds / 2000, 86400000);
    return std::chrono::milliseconds(enabled > 0 ? std::max<std::uint64_t>(milliseconds, 1) : 0);
}

ServiceNotifier::ServiceNotifier(QObject* aParent, const QString& aLibrary) : QObject(aParent)
{
    if (!qEnvironmentVariableIsSet("NOTIFY_SOCKET") && !qEnvironmentVariableIsSet("WATCHDOG_USEC"))
        return;
    QLibrary library(aLibrary, 0);
    mNotify = reinterpret_cast<decltype(&sd_notify)>(library.resolve("sd_notify"));
    const auto watchdogEnabled =
        reinterpret_cast<decltype(&sd_watchdog_enabled)>(library.resolve("sd_watchdog_enabled"));
    if (mNotify && watchdogEnabled)
        startWatchdog(watchdogPeriod(watchdogEnabled));
    else
        qWarning("systemd is told nothing, and its watchdog is not fed: %s. Install libsystemd.so.0, or take "
                 "NOTIFY_SOCKET and WATCHDOG_USEC out of the environment.",
                 qUtf8Printable(library.errorString()));
}

void ServiceNotifier::startWatchdog(std::chrono::milliseconds aPeriod)
{
    connect(&mWatchdog, &QTimer::timeout, this, [this] { send("WATCHDOG=1"); });
    if (aPeriod.count() > 0)
        mWatchdog.start(aPeriod);
}

void ServiceNotifier::ready() { send("READY=1"); }

void ServiceNotifier::stopping() { send("STOPPING=1"); }

void ServiceNotifier::status(const QString& aText) { send("STATUS=" + aText.toUtf8().replace('\n', ' ')); }

void ServiceNotifier::send(const QByteArray& aMessage)
{
    if (!mNotify)
        return;
    const int result = mNotify(0, aMessage.constData());
    if (result < 0 && !mFailed)
        qWarning("systemd cannot be told \"%s\": %s. Look at NOTIFY_SOCKET of the environment.",
                 aMessage.constData(), std::strerror(-result));
    mFailed = mFailed || result < 0;
}

} // namespace QT
