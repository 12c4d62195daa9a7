#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <signal_service.pb.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>

namespace HmiTest {

/** A vehicle signal service that does what the check says, and remembers what it was asked. */
class SignalPeer
{
public:
    SignalPeer()
    {
        QObject::connect(&mServer, &QLocalServer::newConnection, &mServer, [this] { accept(); });
    }
    ~SignalPeer() { stop(); }
    Q_DISABLE_COPY(SignalPeer)

    QString path() const { return folder.filePath(QStringLiteral("signals")); }
    void start() { ASSERT_TRUE(mServer.listen(path())) << mServer.errorString().toStdString(); }
    void stop()
    {
        mServer.close();
        drop();
    }
    void drop() { delete line; }

    /** At once, as far as the system takes them. */
    void sendBytes(const QByteArray& aBytes)
    {
        line->write(aBytes);
        line->flush();
    }
    static QByteArray frame(const QByteArray& aMessage)
    {
        return static_cast<char>(aMessage.size()) + aMessage;
    }
    static QByteArray value(const std::string& aPath, const QByteArray& aBytes, int aStatus = 0)
    {
        SignalService::ResponseMessage response;
        response.set_type(SignalService::RESPONSE_VALUE);
        response.set_path(aPath);
        response.set_value(aBytes.toStdString());
        response.set_status(aStatus);
        return frame(QByteArray::fromStdString(response.SerializeAsString()));
    }

    const QTemporaryDir folder;
    QPointer<QLocalSocket> line;
    QStringList requests; ///< each as "5 path=0a0b", the value in hexadecimal digits
    QByteArray received;

private:
    void accept()
    {
        delete line;
        line = mServer.nextPendingConnection();
        mPending.clear();
        QObject::connect(line, &QLocalSocket::readyRead, &mServer, [this] { read(); });
    }
    void read()
    {
        const QByteArray bytes = line->readAll();
        received += bytes;
        mPending += bytes;
        while (!mPending.isEmpty() && mPending.size() > static_cast<unsigned char>(mPending[0])) {
            const int size = static_cast<unsigned char>(mPending[0]);
            record(mPending.mid(1, size));
            mPending.remove(0, size + 1);
        }
    }
    void record(const QByteArray& aMessage)
    {
        SignalService::RequestMessage request;
        EXPECT_TRUE(request.ParseFromArray(aMessage.constData(), aMessage.size()));
        QString text = QString::number(request.type());
        if (request.has_path())
            text += QLatin1Char(' ') + QString::fromStdString(request.path());
        if (request.has_value())
            text +=
                QLatin1Char('=') + QString::fromLatin1(QByteArray::fromStdString(request.value()).toHex());
        requests.append(text);
    }

    QLocalServer mServer;
    QByteArray mPending;
};

/** A transport and its peer, with a diary of what the proxies tell. */
struct SignalLine : testing::Test
{
    SignalLine() { peer.start(); }

    void connectLine()
    {
        transport = std::make_unique<SignalService::TransportProxy>(peer.path());
        watch();
    }
    void watch()
    {
        active = std::make_unique<QSignalSpy>(transport.get(), &SignalService::TransportProxy::ActiveChanged);
        ASSERT_TRUE(waitUntil([this] { return peer.line != nullptr; }));
    }
    void reconnectAfterLoss()
    {
        expectMessageMatching(QtWarningMsg, QStringLiteral("The signal service at '.*' is away .*"));
        peer.drop();
        ASSERT_TRUE(waitUntil([this] { return !transport->IsConnected(); }));
        reconnect();
    }
    /** As after a second. */
    void reconnect()
    {
        transport->OnTimeout();
        ASSERT_TRUE(waitUntil([this] { return transport->IsConnected() && peer.line; }));
    }

    /** What the peer was asked since the last call. */
    std::string asked()
    {
        transport->RequestActive();
        EXPECT_TRUE(waitUntil([this] { return peer.requests.contains(QStringLiteral("1")); }));
        peer.requests.removeAll(QStringLiteral("1"));
        return joined(std::exchange(peer.requests, {}));
    }

    /** What the proxies told when these bytes, and whatever came before them, had been handed out. */
    std::string told(const QByteArray& aBytes)
    {
        const int before = active->count();
        peer.sendBytes(aBytes + QByteArray::fromHex("0408012001"));
        EXPECT_TRUE(waitUntil([=] { return active->count() > before; }));
        return joined(std::exchange(diary, {}));
    }

    std::unique_ptr<SignalService::RxSignalProxy> reader(const char* aName, const char* aPath)
    {
        using SignalService::RxSignalProxy;
        auto proxy = std::make_unique<RxSignalProxy>(*transport, QString::fromUtf8(aPath));
        const QString name = QString::fromUtf8(aName);
        QObject::connect(proxy.get(), &RxSignalProxy::ValueUpdated, [=](const QVariant& value, int status) {
            diary.append(name + value.toString() +
                         (status == 0 ? QString() : QStringLiteral("(%1)").arg(status)));
        });
        return proxy;
    }

    SignalPeer peer;
    std::unique_ptr<SignalService::TransportProxy> transport;
    std::unique_ptr<QSignalSpy> active;
    QStringList diary;
};

} // namespace HmiTest
