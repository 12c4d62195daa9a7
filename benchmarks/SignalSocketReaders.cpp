#include <QCoreApplication>
#include <QLocalSocket>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "Require.h"
#include "SignalReaders.h"
#include "SignalTally.h"
#include <hmi/core/foundation/Initialization.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>

static std::string subscriptions()
{
    std::string frames;
    for (int number = 0; number < SignalPaths; ++number) {
        SignalService::RequestMessage request;
        request.set_type(SignalService::REQUEST_START_UPDATES);
        request.set_path(signalPath(number));
        frames += signalFrame(request);
    }
    return frames;
}

/** Hands out the values of all whole frames. How many bytes these had; -1 after the last value. */
static int takeFrames(const char* aBytes, int aSize, SignalTally& aTally)
{
    int at = 0;
    while (at < aSize) {
        const int size = static_cast<unsigned char>(aBytes[at]);
        if (at + size >= aSize)
            break;
        if (aTally.take(signalValue(aBytes + at + 1 + signalValueOffset(size))))
            return -1;
        at += size + 1;
    }
    return at;
}

void readBySystemCall(const std::string& aAddress, SignalTally& aTally)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, aAddress.c_str(), aAddress.size());
    const int writer = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    require(connect(writer, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0, "connecting");
    const std::string requests = subscriptions();
    require(write(writer, requests.data(), requests.size()) == static_cast<ssize_t>(requests.size()),
            "subscribing");
    static char sBuffer[65536];
    int filled = 0;
    int taken = 0;
    while (taken >= 0) {
        const ssize_t count =
            read(writer, sBuffer + filled, sizeof sBuffer - static_cast<std::size_t>(filled));
        require(count > 0, "reading");
        filled += static_cast<int>(count);
        taken = takeFrames(sBuffer, filled, aTally);
        if (taken > 0) {
            filled -= taken;
            std::memmove(sBuffer, sBuffer + taken, static_cast<std::size_t>(filled));
        }
    }
}

void readByLocalSocket(const std::string& aAddress, SignalTally& aTally)
{
    QLocalSocket socket;
    QByteArray buffer;
    QObject::connect(&socket, &QLocalSocket::readyRead, &socket, [&] {
        buffer += socket.readAll();
        const int taken = takeFrames(buffer.constData(), buffer.size(), aTally);
        if (taken < 0)
            QCoreApplication::quit();
        else
            buffer.remove(0, taken);
    });
    socket.connectToServer(QString::fromStdString(aAddress));
    require(socket.waitForConnected(), "connecting");
    socket.write(QByteArray::fromStdString(subscriptions()));
    QCoreApplication::exec();
}

static void readByProxies(const std::string& aAddress, SignalTally& aTally, int aPaths)
{
    SignalService::TransportProxy transport(QString::fromStdString(aAddress));
    QObject context;
    for (int number = 0; number < aPaths; ++number) {
        auto* const proxy =
            new SignalService::RxSignalProxy(transport, QString::fromStdString(signalPath(number)), &context);
        QObject::connect(proxy, &SignalService::RxSignalProxy::ValueUpdated, &context,
                         [&aTally](const QVariant& aValue, int) {
                             if (aTally.take(aValue.toDouble()))
                                 QCoreApplication::quit();
                         });
        proxy->RequestUpdates();
    }
    QCoreApplication::exec();
}

void readByProxies(const std::string& aAddress, SignalTally& aTally)
{
    readByProxies(aAddress, aTally, SignalPaths);
}

void readByManyProxies(const std::string& aAddress, SignalTally& aTally)
{
    readByProxies(aAddress, aTally, ManySignalPaths);
}

namespace {

/** What a handler assigns to. */
class Shown : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double value READ getValue WRITE setValue NOTIFY valueChanged)

public:
    explicit Shown(SignalTally& aTally) : mTally(aTally) {}

    double getValue() const { return mValue; }
    void setValue(double aValue)
    {
        mValue = aValue;
        emit valueChanged();
        if (mTally.take(aValue))
            QCoreApplication::quit();
    }

signals:
    void valueChanged();

private:
    SignalTally& mTally;
    double mValue = 0;
};

} // namespace

static void initializeLibrary(const std::string& aAddress, const QString& aConfiguration)
{
    {
        QSettings settings(aConfiguration, QSettings::IniFormat);
        settings.setValue(QStringLiteral("HmiShared/SignalServiceEnabled"), true);
        settings.setValue(QStringLiteral("HmiShared/SignalServicePath"), QString::fromStdString(aAddress));
    }
    Hmi::Core::initialize(QSharedPointer<Hmi::Shared::PerfEventPolicyMetron>::create(), aConfiguration, {});
    Hmi::Shared::registerQmlModules();
}

void readByQml(const std::string& aAddress, SignalTally& aTally)
{
    const QTemporaryDir folder;
    initializeLibrary(aAddress, folder.filePath(QStringLiteral("signals.ini")));
    Shown shown(aTally);
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("shown"), &shown);
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "import hmi.shared 1.0\n"
                      "RxSignalProxy {\n"
                      "    onValueUpdated: if (status === 0) shown.value = value\n"
                      "    Component.onCompleted: requestUpdates()\n"
                      "}",
                      {});
    std::vector<std::unique_ptr<QObject>> proxies;
    for (int number = 0; number < SignalPaths; ++number) {
        proxies.emplace_back(component.createWithInitialProperties(
            {{QStringLiteral("path"), QString::fromStdString(signalPath(number))}}));
        require(proxies.back() != nullptr, qPrintable(component.errorString()));
    }
    QCoreApplication::exec();
}

#include "SignalSocketReaders.moc"
