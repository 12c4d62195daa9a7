#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QTimer>
#include <grpcpp/grpcpp.h>

#include "Require.h"
#include "SignalReaders.h"
#include "SignalTally.h"
#include <signal_stream.grpc.pb.h>

void readByGrpc(const std::string& aAddress, SignalTally& aTally)
{
    const auto channel = grpc::CreateChannel("unix:" + aAddress, grpc::InsecureChannelCredentials());
    const auto stub = SignalStream::Stream::NewStub(channel);
    grpc::ClientContext context;
    const auto reader = stub->Values(&context, {});
    SignalService::ResponseMessage response;
    do
        require(reader->Read(&response), "reading the stream");
    while (!aTally.take(signalValue(response.value().data())));
}

namespace {

class Receiver : public QObject
{
    Q_OBJECT

public:
    explicit Receiver(SignalTally& aTally) : mTally(aTally) {}

public slots:
    void take(const QString&, const QByteArray& aValue, int)
    {
        if (mTally.take(signalValue(aValue.constData())))
            QCoreApplication::quit();
    }

private:
    SignalTally& mTally;
};

} // namespace

static void call(const QString& aMethod)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QString::fromLatin1(SignalBusName), QString::fromLatin1(SignalObjectPath), QString(), aMethod);
    require(QDBusConnection::sessionBus().call(message).type() == QDBusMessage::ReplyMessage,
            "calling the writer");
}

void readByDBus(const std::string&, SignalTally& aTally)
{
    Receiver receiver(aTally);
    require(QDBusConnection::sessionBus().connect(QString::fromLatin1(SignalBusName),
                                                  QString::fromLatin1(SignalObjectPath),
                                                  QString::fromLatin1(SignalBusName), QStringLiteral("value"),
                                                  &receiver, SLOT(take(QString, QByteArray, int))),
            "connecting to the signal");
    // Qt holds back what comes in before the event loop runs, and hands it out late.
    QTimer::singleShot(0, &receiver, [] { call(QStringLiteral("start")); });
    QCoreApplication::exec();
    call(QStringLiteral("quit"));
}

#include "SignalPeerReaders.moc"
