#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QHash>
#include <QProcess>
#include <QSet>

namespace HmiFuzz {

/**
 * A service that says what it is told to, under all names of services on a bus of this process's own, which
 * takes the place of the system bus. It answers while the main thread waits here. Nothing is waited for
 * beyond 25 seconds. Main thread only.
 */
class DbusService : public QDBusVirtualObject
{
public:
    static DbusService& instance();

    void come();
    void leave();
    /** Names the service without the "com.korvex." of all. Waits until the signal arrived. */
    void signal(const char* aService, const char* aName, const QVariantList& aArguments);
    /** From now on; a method without an answer is answered without arguments. */
    void answer(const char* aMethod, const QVariantList& aArguments);
    /** Waits until everything that the service has sent before arrived. */
    void settle();
    /** Waits until the method's present answer was given, and arrived. */
    void awaitCall(const char* aMethod);

    QString introspect(const QString&) const override { return QString(); }
    bool handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection) override;

private:
    DbusService();

    QProcess mDaemon;
    QDBusConnection mConnection{QStringLiteral("none")};
    QHash<QString, QVariantList> mAnswers; ///< by method
    QSet<QString> mGiven;
};

} // namespace HmiFuzz
