#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMetaMethod>
#include <QVariantList>

namespace Hmi::Simulator {

class ServiceFaults;

/**
 * One service: a bus name, and the object at the path of that name. The derived class has the generated
 * adaptor as a child, which says what the interface is and calls the methods. Every call is printed and
 * answered here, so this is the one place for faults; and any signal of the interface can be sent with any
 * values. Main thread only.
 */
class BusService : public QDBusVirtualObject
{
    Q_OBJECT

public:
    /** The faults outlive it. */
    BusService(const QString& aName, const QDBusConnection& aConnection, ServiceFaults& aFaults);
    ~BusService() override;

    QString getName() const { return mName; }
    /** Whether the name is owned now; if not, another has it, or the bus says in its last error why. */
    bool take();
    void release();

    /** Not valid: the interface has no such signal. */
    QMetaMethod findSignal(const QString& aName) const;
    void emitSignal(const QString& aName, const QVariantList& aArguments);

    QString introspect(const QString& aPath) const override;
    bool handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection) override;

protected:
    /** The call that is being carried out is answered with this error. */
    void refuse(const QString& aError, const QString& aText);
    /** The same, with the standard error for arguments. */
    void refuseArguments(const QString& aText);

    const QDBusConnection& getConnection() const { return mConnection; }

private:
    const QObject& getAdaptor() const;
    QMetaMethod findMethod(const QString& aName) const;
    QDBusMessage carryOut(const QDBusMessage& aCall);
    QVariantList invoke(const QMetaMethod& aMethod, const QVariantList& aArguments);

    const QString mName;
    const QString mPath;
    QDBusConnection mConnection;
    ServiceFaults& mFaults;
    QString mError; ///< of the call that is being carried out
    QString mErrorText;
};

} // namespace Hmi::Simulator
