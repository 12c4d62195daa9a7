#include "AccessibleTree.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>

static const QString sConnection = QStringLiteral("accessible-tree");
static const QString sRoot = QStringLiteral("/org/a11y/atspi/accessible/root");
static const char* const sAccessible = "org.a11y.atspi.Accessible";

/** A reference to an object: the name of its program on the bus, and its path. */
struct Reference
{
    QString program;
    QDBusObjectPath path;
};
Q_DECLARE_METATYPE(Reference)

static QDBusArgument& operator<<(QDBusArgument& aOut, const Reference& aReference)
{
    aOut.beginStructure();
    aOut << aReference.program << aReference.path;
    aOut.endStructure();
    return aOut;
}

static const QDBusArgument& operator>>(const QDBusArgument& aIn, Reference& aReference)
{
    aIn.beginStructure();
    aIn >> aReference.program >> aReference.path;
    aIn.endStructure();
    return aIn;
}

/** The first argument of the answer; invalid after an error. */
static QVariant answerOf(QDBusPendingCall aCall)
{
    aCall.waitForFinished();
    const QVariant value = aCall.reply().arguments().value(0);
    return value.canConvert<QDBusVariant>() ? value.value<QDBusVariant>().variant() : value;
}

static QRect rectangle(const QVariant& aAnswer)
{
    int x = 0, y = 0, width = 0, height = 0;
    const auto structure = aAnswer.value<QDBusArgument>();
    if (structure.currentType() == QDBusArgument::StructureType) {
        structure.beginStructure();
        structure >> x >> y >> width >> height;
        structure.endStructure();
    }
    return {x, y, width, height};
}

AccessibleTree::AccessibleTree(const QString& aBusAddress) :
    mBus(QDBusConnection::connectToBus(aBusAddress, sConnection))
{
    qDBusRegisterMetaType<Reference>();
    mBus.registerService(QStringLiteral("org.a11y.atspi.Registry"));
    mBus.registerVirtualObject(QStringLiteral("/org/a11y"), this, QDBusConnection::SubPath);
}

AccessibleTree::~AccessibleTree() { QDBusConnection::disconnectFromBus(sConnection); }

bool AccessibleTree::handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aBus)
{
    if (aMessage.member() != QLatin1String("Embed"))
        return false;
    mProgram = aMessage.service();
    return aBus.send(
        aMessage.createReply(QVariant::fromValue(Reference{aBus.baseService(), QDBusObjectPath(sRoot)})));
}

QVector<AccessibleTree::Element> AccessibleTree::read() const
{
    QVector<Element> elements;
    if (!mProgram.isEmpty())
        readBelow(sRoot, elements);
    return elements;
}

double AccessibleTree::getNumber(const Element& aElement) const
{
    return answerOf(property(aElement.path, "org.a11y.atspi.Value", "CurrentValue")).toDouble();
}

QDBusPendingCall AccessibleTree::call(const QString& aPath, const char* aInterface, const char* aMethod,
                                      const QVariantList& aArguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(mProgram, aPath, QLatin1String(aInterface), QLatin1String(aMethod));
    message.setArguments(aArguments);
    return mBus.asyncCall(message);
}

QDBusPendingCall AccessibleTree::property(const QString& aPath, const char* aInterface,
                                          const char* aName) const
{
    return call(aPath, "org.freedesktop.DBus.Properties", "Get",
                {QLatin1String(aInterface), QLatin1String(aName)});
}

void AccessibleTree::readBelow(const QString& aPath, QVector<Element>& aElements) const
{
    for (const Reference& child :
         qdbus_cast<QList<Reference>>(answerOf(call(aPath, sAccessible, "GetChildren")))) {
        const QString path = child.path.path();
        const QDBusPendingCall states = call(path, sAccessible, "GetState");
        const QDBusPendingCall role = call(path, sAccessible, "GetRole");
        const QDBusPendingCall name = property(path, sAccessible, "Name");
        const QDBusPendingCall description = property(path, sAccessible, "Description");
        const QDBusPendingCall area = call(path, "org.a11y.atspi.Component", "GetExtents", {0u});
        const auto words = qdbus_cast<QList<uint>>(answerOf(states));
        aElements += Element{path,
                             answerOf(role).toUInt(),
                             answerOf(name).toString(),
                             answerOf(description).toString(),
                             words.value(0) | quint64(words.value(1)) << 32,
                             rectangle(answerOf(area))};
        readBelow(path, aElements);
    }
}
