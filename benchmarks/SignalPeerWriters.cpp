#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QTimer>
#include <future>
#include <grpcpp/grpcpp.h>

#include "Require.h"
#include "SignalPeers.h"
#include "SignalWriters.h"
#include <signal_stream.grpc.pb.h>

namespace {

class Stream final : public SignalStream::Stream::Service
{
public:
    explicit Stream(SignalSource& aSource) : mSource(aSource) {}

    grpc::Status Values(grpc::ServerContext*, const SignalService::RequestMessage*,
                        grpc::ServerWriter<SignalService::ResponseMessage>* aWriter) override
    {
        std::vector<SignalService::ResponseMessage> responses;
        for (int number = 0; number < SignalBatch; ++number)
            responses.push_back(signalResponse(number, 0));
        aWriter->SendInitialMetadata();
        double value = 0;
        for (std::size_t index = 0; mSource.next(value); index = (index + 1) % responses.size()) {
            const bool flush =
                mSource.pace != SignalPace::Batches || index + 1 == responses.size() || mSource.isLast();
            grpc::WriteOptions options;
            if (!flush)
                options.set_buffer_hint();
            responses[index].set_value(&value, sizeof value);
            require(aWriter->Write(responses[index], options), "writing to the stream");
        }
        mDone.set_value();
        return grpc::Status::OK;
    }

    void waitUntilDone() { mDone.get_future().wait(); }

private:
    SignalSource& mSource;
    std::promise<void> mDone;
};

/** Called by the reader. */
class Emitter : public QObject
{
    Q_OBJECT

public:
    explicit Emitter(SignalSource& aSource) : mSource(aSource) {}

public slots:
    void start() { QTimer::singleShot(0, this, &Emitter::run); }
    void quit() { QTimer::singleShot(0, qApp, &QCoreApplication::quit); }

private:
    void run()
    {
        QStringList paths;
        for (int number = 0; number < SignalPaths; ++number)
            paths += QString::fromStdString(signalPath(number));
        double value = 0;
        for (int index = 0; mSource.next(value); index = (index + 1) % SignalPaths) {
            QDBusMessage message =
                QDBusMessage::createSignal(QString::fromLatin1(SignalObjectPath),
                                           QString::fromLatin1(SignalBusName), QStringLiteral("value"));
            message << paths[index] << QByteArray(reinterpret_cast<const char*>(&value), sizeof value) << 0;
            require(QDBusConnection::sessionBus().send(message), "sending a signal");
        }
    }

    SignalSource& mSource;
};

} // namespace

void writeToGrpc(const std::string& aAddress, SignalSource& aSource)
{
    Stream stream(aSource);
    grpc::ServerBuilder builder;
    builder.AddListeningPort("unix:" + aAddress, grpc::InsecureServerCredentials());
    builder.RegisterService(&stream);
    const std::unique_ptr<grpc::Server> server = builder.BuildAndStart();
    require(server != nullptr, "listening with gRPC");
    printReady();
    stream.waitUntilDone();
    server->Shutdown();
}

void writeToDBus(const std::string&, SignalSource& aSource)
{
    Emitter emitter(aSource);
    QDBusConnection bus = QDBusConnection::sessionBus();
    require(bus.registerObject(QString::fromLatin1(SignalObjectPath), &emitter,
                               QDBusConnection::ExportAllSlots) &&
                bus.registerService(QString::fromLatin1(SignalBusName)),
            "being on the session bus");
    printReady();
    QCoreApplication::exec();
}

#include "SignalPeerWriters.moc"
