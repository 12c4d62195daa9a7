#include <simulator/services/BusService.h>

#include <QDBusAbstractAdaptor>
#include <QDBusError>
#include <QMetaClassInfo>
#include <algorithm>
#include <array>

#include <simulator/Console.h>
#include <simulator/services/ServiceFaults.h>
#include <simulator/services/SignalWords.h>

namespace Hmi::Simulator {

static constexpr int MaximumArguments = 5; ///< of a method

BusService::BusService(const QString& aName, const QDBusConnection& aConnection, ServiceFaults& aFaults) :
    mName(aName),
    mPath(QLatin1Char('/') + QString(aName).replace(QLatin1Char('.'), QLatin1Char('/'))),
    mConnection(aConnection),
    mFaults(aFaults)
{
    mConnection.registerVirtualObject(mPath, this);
}

BusService::~BusService() { mConnection.unregisterObject(mPath); }

bool BusService::take() { return mConnection.registerService(mName); }

void BusService::release() { mConnection.unregisterService(mName); }

const QObject& BusService::getAdaptor() const { return *findChild<QDBusAbstractAdaptor*>(); }

static QMetaMethod find(const QMetaObject& aInterface, const QString& aName, QMetaMethod::MethodType aType)
{
    for (int index = aInterface.methodOffset(); index < aInterface.methodCount(); ++index) {
        const QMetaMethod method = aInterface.method(index);
        if (method.methodType() == aType && method.name() == aName.toLatin1())
            return method;
    }
    return QMetaMethod();
}

QMetaMethod BusService::findSignal(const QString& aName) const
{
    return find(*getAdaptor().metaObject(), aName, QMetaMethod::Signal);
}

QMetaMethod BusService::findMethod(const QString& aName) const
{
    return find(*getAdaptor().metaObject(), aName, QMetaMethod::Slot);
}

void BusService::emitSignal(const QString& aName, const QVariantList& aArguments)
{
    QDBusMessage message = QDBusMessage::createSignal(mPath, mName, aName);
    message.setArguments(aArguments);
    mConnection.send(message);
}

QString BusService::introspect(const QString&) const
{
    const QMetaObject& interface = *getAdaptor().metaObject();
    return QString::fromLatin1(
        interface.classInfo(interface.indexOfClassInfo("D-Bus Introspection")).value());
}

bool BusService::handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection)
{
    const bool isOurs = aMessage.interface() == mName ||
                        (aMessage.interface().isEmpty() && findMethod(aMessage.member()).isValid());
    if (!isOurs || aMessage.path() != mPath)
        return false;
    Console::print(QStringLiteral("call %1 %2")
                       .arg(aMessage.member(), SignalWords::toWords(aMessage.arguments()))
                       .trimmed());
    mFaults.answer(aMessage, aConnection, [&] { return carryOut(aMessage); });
    return true;
}

void BusService::refuse(const QString& aError, const QString& aText)
{
    mError = aError;
    mErrorText = aText;
}

void BusService::refuseArguments(const QString& aText)
{
    refuse(QDBusError::errorString(QDBusError::InvalidArgs), aText);
}

static bool takes(const QMetaMethod& aMethod, const QVariantList& aArguments)
{
    int index = 0;
    return aMethod.parameterCount() == aArguments.size() &&
           std::all_of(aArguments.begin(), aArguments.end(), [&](const QVariant& aOne) {
               return aOne.userType() == aMethod.parameterType(index++);
           });
}

QDBusMessage BusService::carryOut(const QDBusMessage& aCall)
{
    const QMetaMethod method = findMethod(aCall.member());
    if (!method.isValid())
        return aCall.createErrorReply(QDBusError::UnknownMethod,
                                      QStringLiteral("%1 has no method %2").arg(mName, aCall.member()));
    if (!takes(method, aCall.arguments()))
        return aCall.createErrorReply(QDBusError::InvalidArgs,
                                      QStringLiteral("the arguments are to be those of ") +
                                          QString::fromLatin1(method.methodSignature()));
    mError.clear();
    const QVariantList results = invoke(method, aCall.arguments());
    return mError.isEmpty() ? aCall.createReply(results) : aCall.createErrorReply(mError, mErrorText);
}

QVariantList BusService::invoke(const QMetaMethod& aMethod, const QVariantList& aArguments)
{
    std::array<QGenericArgument, MaximumArguments> arguments;
    std::transform(aArguments.begin(), aArguments.end(), arguments.begin(),
                   [](const QVariant& aOne) { return QGenericArgument(aOne.typeName(), aOne.constData()); });
    const bool returns = aMethod.returnType() != QMetaType::Void;
    QVariant result = returns ? QVariant(aMethod.returnType(), nullptr) : QVariant();
    const QGenericReturnArgument out =
        returns ? QGenericReturnArgument(aMethod.typeName(), result.data()) : QGenericReturnArgument();
    aMethod.invoke(findChild<QDBusAbstractAdaptor*>(), Qt::DirectConnection, out, arguments[0], arguments[1],
                   arguments[2], arguments[3], arguments[4]);
    return returns ? QVariantList{result} : QVariantList();
}

} // namespace Hmi::Simulator
