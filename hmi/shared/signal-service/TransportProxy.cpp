#include <hmi/shared/signal-service/TransportProxy.h>

#include <QAbstractEventDispatcher>
#include <utility>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <signal_service.pb.h>

namespace SignalService {

using Hmi::Shared::hmiShared;

static constexpr int ReconnectInterval = 1000; ///< milliseconds

/** How long values are handed out before the event loop gets its turn, in milliseconds. */
static constexpr qint64 ReadingTime = 2;

/** What waits in the process to be handed out, and to be sent, in bytes. */
static constexpr qint64 ReadBufferSize = 65536;
static constexpr qint64 WriteBufferSize = qint64(1024) * 1024;

QString TransportProxy::DefaultSocketPath() { return QStringLiteral("/var/run/signal_service"); }

TransportProxy::TransportProxy(const QString& aSocketPath, QObject* aParent) :
    QObject(aParent), mSocketPath(aSocketPath), mFrames(mSocket), mRequest(std::make_unique<RequestMessage>())
{
    mSocket.setReadBufferSize(ReadBufferSize);
    connect(&mSocket, &QLocalSocket::readyRead, this, &TransportProxy::OnReadyRead);
    connect(&mSocket, &QLocalSocket::stateChanged, this, &TransportProxy::OnSocketStateChanged);
    connect(&mSocket, &QLocalSocket::connected, this, &TransportProxy::OnSocketConnected);
    mReconnect.setInterval(ReconnectInterval);
    connect(&mReconnect, &QTimer::timeout, this, &TransportProxy::OnTimeout);
    connect(&mDispatcher, &ResponseDispatcher::activeChanged, this, &TransportProxy::ActiveChanged);
    connect(&mDispatcher, &ResponseDispatcher::rxSignalAdded, this, &TransportProxy::RxSignalAdded);
    connect(&mDispatcher, &ResponseDispatcher::txSignalAdded, this, &TransportProxy::TxSignalAdded);
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &TransportProxy::onAboutToBlock);
    connectToService();
}

TransportProxy::~TransportProxy() { mSocket.disconnect(this); }

void TransportProxy::DeleteWhenIdle()
{
    mObsolete = true;
    if (mBusy == 0)
        deleteLater();
}

/** A service that takes no more clients would keep Qt trying without a pause. */
void TransportProxy::connectToService()
{
    mSocket.connectToServer(mSocketPath, QIODevice::ReadWrite);
    if (mSocket.state() == QLocalSocket::ConnectingState)
        mSocket.abort();
}

void TransportProxy::OnTimeout()
{
    if (mSocket.state() == QLocalSocket::UnconnectedState)
        connectToService();
}

void TransportProxy::OnSocketStateChanged(QLocalSocket::LocalSocketState a_state)
{
    if (a_state != QLocalSocket::UnconnectedState)
        return;
    // Within a message it is an error of reading, which is told as that.
    if (!mFrames.isWaiting() && !std::exchange(mLossTold, true))
        qCWarning(hmiShared, "The signal service at '%s' is away (%s); it is tried again every second.",
                  qUtf8Printable(mSocketPath), qUtf8Printable(mSocket.errorString()));
    mConnected = false;
    mReconnect.start();
    const Busy busy(*this);
    emit ConnectedChanged(false);
}

void TransportProxy::OnSocketConnected()
{
    mFrames.clear();
    mConnected = true;
    mReconnect.stop();
    if (std::exchange(mLossTold, false))
        qCInfo(hmiShared, "The signal service at '%s' is connected.", qUtf8Printable(mSocketPath));
    const Busy busy(*this);
    repeatRequests();
    if (mConnected)
        emit ConnectedChanged(true);
}

void TransportProxy::repeatRequests()
{
    for (const std::string& path : mDispatcher.subscribers.getPaths())
        send(REQUEST_START_UPDATES, path);
    for (const std::string& path : mDispatcher.oneShotReaders.getPaths()) {
        send(REQUEST_ANNOUNCE_READER, path);
        send(REQUEST_VALUE, path);
    }
}

void TransportProxy::disconnectAfterError(const char* aMessage)
{
    qCWarning(hmiShared, "%s", aMessage);
    mLossTold = true;
    mSocket.abort();
}

void TransportProxy::OnReadyRead()
{
    // A second turn in one round of the event loop would be time taken from everyone else.
    if (mContinuing)
        return;
    const Busy busy(*this);
    const Reading result = readFrames();
    if (result == Reading::Failed)
        disconnectAfterError("Signal Service read error, disconnecting");
    else if (result == Reading::MoreLater && !std::exchange(mContinuing, true))
        QMetaObject::invokeMethod(this, &TransportProxy::continueReading, Qt::QueuedConnection);
}

TransportProxy::Reading TransportProxy::readFrames()
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < ReadingTime) {
        if (mSocket.state() != QLocalSocket::ConnectedState)
            return Reading::Failed;
        const FrameReader::Result result = mFrames.next();
        if (result == FrameReader::Result::Nothing)
            return Reading::Done;
        if (result == FrameReader::Result::Broken ||
            !mDispatcher.dispatch(mFrames.getMessage(), mFrames.getMessageSize()))
            return Reading::Failed;
    }
    return Reading::MoreLater;
}

void TransportProxy::continueReading()
{
    mContinuing = false;
    if (mConnected)
        OnReadyRead();
}

/** Qt does not tell of new data within readyRead(), where a slot that waits for it may be. */
void TransportProxy::onAboutToBlock()
{
    if (mBusy > 0 && mConnected && mFrames.hasPending())
        OnReadyRead();
}

void TransportProxy::RegisterReader(RxSignalProxy& aReader)
{
    mDispatcher.readers.insert(aReader.GetPathBytes(), aReader);
}

void TransportProxy::UnregisterReader(RxSignalProxy& aReader)
{
    CancelUpdates(aReader);
    mDispatcher.oneShotReaders.remove(aReader.GetPathBytes(), aReader);
    mDispatcher.readers.remove(aReader.GetPathBytes(), aReader);
}

bool TransportProxy::StartUpdates(RxSignalProxy& aReader)
{
    const std::string& path = aReader.GetPathBytes();
    if (!fits(REQUEST_START_UPDATES, path))
        return false;
    if (mDispatcher.subscribers.insert(path, aReader))
        send(REQUEST_START_UPDATES, path);
    return true;
}

void TransportProxy::CancelUpdates(RxSignalProxy& aReader)
{
    const std::string& path = aReader.GetPathBytes();
    if (mDispatcher.subscribers.remove(path, aReader) && !mDispatcher.subscribers.contains(path))
        send(REQUEST_CANCEL_UPDATES, path);
}

bool TransportProxy::RequestValue(RxSignalProxy& aReader)
{
    // A write error may make a slot destroy the reader.
    const std::string path = aReader.GetPathBytes();
    if (!fits(REQUEST_VALUE, path))
        return false;
    mDispatcher.oneShotReaders.insert(path, aReader);
    send(REQUEST_ANNOUNCE_READER, path);
    send(REQUEST_VALUE, path);
    return true;
}

void TransportProxy::RegisterWriter(TxSignalProxy& aWriter)
{
    mDispatcher.writers.insert(aWriter.GetPathBytes(), aWriter);
    if (fits(REQUEST_ANNOUNCE_WRITER, aWriter.GetPathBytes()))
        AnnounceWriter(aWriter);
}

void TransportProxy::UnregisterWriter(TxSignalProxy& aWriter)
{
    mDispatcher.writers.remove(aWriter.GetPathBytes(), aWriter);
}

TransportProxy::SendResult TransportProxy::AnnounceWriter(const TxSignalProxy& aWriter)
{
    return send(REQUEST_ANNOUNCE_WRITER, aWriter.GetPathBytes());
}

static void warnOfSize(const RequestMessage& aRequest)
{
    qCWarning(hmiShared,
              "The signal service cannot be asked about '%s': that takes %zu bytes, and a message has "
              "at most %d. Shorten the path or the value.",
              aRequest.path().c_str(), aRequest.ByteSizeLong(), MaximumMessageSize);
}

TransportProxy::SendResult TransportProxy::PutValue(const TxSignalProxy& aWriter, const DataBuffer& aValue)
{
    compose(REQUEST_PUT_VALUE, aWriter.GetPathBytes());
    const QByteArray& bytes = aValue.getBytes();
    mRequest->set_value(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const SendResult result = sendComposed();
    if (result == SendResult::TooLarge)
        warnOfSize(*mRequest);
    return result;
}

TransportProxy::SendResult TransportProxy::RequestActive() { return send(REQUEST_ACTIVE); }

TransportProxy::SendResult TransportProxy::RequestSignals() { return send(REQUEST_LIST_SIGNALS); }

const RequestMessage& TransportProxy::compose(int aRequestType, const std::string& aPath)
{
    mRequest->Clear();
    mRequest->set_type(static_cast<RequestType>(aRequestType));
    if (!aPath.empty())
        mRequest->set_path(aPath);
    return *mRequest;
}

bool TransportProxy::fits(int aRequestType, const std::string& aPath)
{
    const bool fits = compose(aRequestType, aPath).ByteSizeLong() <= MaximumMessageSize;
    if (!fits)
        warnOfSize(*mRequest);
    return fits;
}

TransportProxy::SendResult TransportProxy::send(int aRequestType, const std::string& aPath)
{
    compose(aRequestType, aPath);
    return sendComposed();
}

TransportProxy::SendResult TransportProxy::sendComposed()
{
    if (mSocket.state() != QLocalSocket::ConnectedState)
        return SendResult::NotConnected;
    const std::size_t size = mRequest->ByteSizeLong();
    if (size > MaximumMessageSize)
        return SendResult::TooLarge;
    char frame[MaximumMessageSize + 1];
    frame[0] = static_cast<char>(size);
    const auto frameSize = static_cast<qint64>(size) + 1;
    // A service that does not read makes what waits to be sent grow.
    const bool written = mRequest->SerializeToArray(frame + 1, static_cast<int>(size)) &&
                         mSocket.bytesToWrite() + frameSize <= WriteBufferSize &&
                         mSocket.write(frame, frameSize) == frameSize;
    if (written)
        return SendResult::Sent;
    disconnectAfterError("Signal Service write error, disconnecting");
    return SendResult::Failed;
}

} // namespace SignalService
