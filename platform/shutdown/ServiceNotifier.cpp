#include <platform/shutdown/ServiceNotifier.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <systemd/sd-daemon.h>

namespace QT {

static std::chrono::milliseconds watchdogPeriod()
{
    std::uint64_t microseconds = 0;
    const int enabled = sd_watchdog_enabled(0, &microseconds);
    if (enabled < 0)
        qWarning("The watchdog is not fed: WATCHDOG_USEC or WATCHDOG_PID of the environment is no number.");
    // More than a day is as good as a day.
    const std::uint64_t milliseconds = std::min<std::uint64_t>(microseconds / 2000, 86400000);
    return std::chrono::milliseconds(enabled > 0 ? std::max<std::uint64_t>(milliseconds, 1) : 0);
}

ServiceNotifier::ServiceNotifier(QObject* aParent) : QObject(aParent)
{
    connect(&mWatchdog, &QTimer::timeout, this, [this] { send("WATCHDOG=1"); });
    const std::chrono::milliseconds period = watchdogPeriod();
    if (period.count() > 0)
        mWatchdog.start(period);
}

void ServiceNotifier::ready() { send("READY=1"); }

void ServiceNotifier::stopping() { send("STOPPING=1"); }

void ServiceNotifier::status(const QString& aText) { send("STATUS=" + aText.toUtf8().replace('\n', ' ')); }

void ServiceNotifier::send(const QByteArray& aMessage)
{
    const int result = sd_notify(0, aMessage.constData());
    if (result < 0 && !mFailed)
        qWarning("systemd cannot be told \"%s\": %s. Look at NOTIFY_SOCKET of the environment.",
                 aMessage.constData(), std::strerror(-result));
    mFailed = mFailed || result < 0;
}

} // namespace QT
