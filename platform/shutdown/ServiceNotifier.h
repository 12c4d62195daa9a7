#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>

namespace QT {

/**
 * Tells systemd how the process is, if that started it (NOTIFY_SOCKET); otherwise nothing happens anywhere
 * here. Main thread; owned by the application.
 *
 * When the unit has a watchdog (WatchdogSec) for this process, the event loop feeds it twice in its interval.
 * It lives from construction to destruction of the notifier.
 *
 * NOTIFY_SOCKET stays in the environment of this process: to take it out and in again for each message would
 * race with every thread that reads the environment. A child that inherits it is ignored by systemd, with a
 * line in the journal, as long as the unit's NotifyAccess is "main" (the default of Type=notify), and the
 * watchdog of a child is off as WATCHDOG_PID is not its own. Children that may speak to systemd themselves
 * are started with childEnvironment(), and need to be where NotifyAccess is "exec" or "all".
 *
 * libsystemd is loaded where the environment names NOTIFY_SOCKET or WATCHDOG_USEC when the notifier is made;
 * if it is not there, that is one warning, and nothing is told. The first message that cannot be sent is
 * logged as a warning; a message waits for the socket.
 */
class Q_DECL_EXPORT ServiceNotifier : public QObject
{
    Q_OBJECT

public:
    explicit ServiceNotifier(QObject* aParent = nullptr, const QString& aLibrary = QStringLiteral("systemd"));

    /** The start-up is over. */
    void ready();
    /** The shutdown begins. */
    void stopping();
    /** For people, as shown by systemctl; line ends become blanks. */
    void status(const QString& aText);

private:
    void startWatchdog(std::chrono::milliseconds aPeriod);
    void send(const QByteArray& aMessage);

    int (*mNotify)(int aUnsetEnvironment, const char* aState) = nullptr; ///< sd_notify(3), where it is of use
    QTimer mWatchdog;
    bool mFailed = false;
};

} // namespace QT
