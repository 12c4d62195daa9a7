#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QHash>
#include <QMutex>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

namespace HmiFuzz {

/**
 * A service that says what it is told to, under both names on a bus of this process's own, which takes the
 * place of the system bus. It answers in a thread of its own, so that callers may wait for it.
 */
class DbusService : public QDBusVirtualObject
{
public:
    enum Name { Notifications, Updates };

    static DbusService& instance();

    void come();
    void leave();
    void signal(Name aFrom, const QString& aName, const QVariantList& aArguments);
    /** From now on; a method without an answer is answered without arguments. */
    void answer(const char* aMethod, const QVariantList& aArguments);
    /** Until everything that the service has sent before arrived. */
    void settle();

    QString introspect(const QString&) const override { return QString(); }
    bool handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection) override;

private:
    /** Ends with its parent, however that ends. */
    class Daemon : public QProcess
    {
        void setupChildProcess() override;
    };

    DbusService();

    const QTemporaryDir mFolder;
    Daemon mDaemon;
    QThread mThread;
    QDBusConnection mConnection{QStringLiteral("none")};
    QMutex mMutex;
    QHash<QString, QVariantList> mAnswers; ///< by method
};

} // namespace HmiFuzz
