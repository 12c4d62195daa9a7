#pragma once

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>
#include <string>

#include <hmi/shared/signal-service/FrameReader.h>
#include <hmi/shared/signal-service/ResponseDispatcher.h>

namespace SignalService {

class DataBuffer;
class RequestMessage;
class RxSignalProxy;
class TxSignalProxy;

/**
 * The HMI's line to the vehicle signal service, and the switchboard of its proxies: sends their requests,
 * hands out the responses. A line that is down is tried again every second; then every subscription, every
 * read that waits for its value, and every writer's announcement go out again. One warning tells that the
 * service is away, one info that it is back.
 *
 * Errors of reading (a message that stays incomplete for 250 ms, or is none) and of writing (a service that
 * does not read any more) end the connection. Values may arrive at any rate: after at most 2 ms of handing
 * out, the event loop gets its turn, and what waits in the socket stays there. A slot may wait in a nested
 * event loop for further responses.
 *
 * It lives in the main thread and outlives no QCoreApplication. It must not be destroyed from inside a slot
 * that it called; DeleteWhenIdle() is right there.
 */
class Q_DECL_EXPORT TransportProxy : public QObject
{
    Q_OBJECT

public:
    enum class SendResult {
        Sent,
        NotConnected,
        TooLarge, ///< more than 255 bytes
        Failed    ///< the connection was ended
    };

    /** "/var/run/signal_service" */
    static QString DefaultSocketPath();

    /** Connects at once, or, where no service listens yet, as soon as one does. */
    explicit TransportProxy(const QString& aSocketPath = DefaultSocketPath(), QObject* aParent = nullptr);
    ~TransportProxy() override;

    /** As deleteLater(), also from within its slots and the event loops that they run. */
    void DeleteWhenIdle();

    bool IsConnected() const { return mConnected; }
    QString GetSocketPath() const { return mSocketPath; }

    // Service-wide requests, which no proxy sends. ActiveChanged() answers the first, RxSignalAdded() and
    // TxSignalAdded() the second.
    SendResult RequestActive();
    SendResult RequestSignals();

    /** Sends now what else the event loop would send in its next turn: for a start-up that is yet to reach
     * it. */
    void Flush() { mSocket.flush(); }

    // For the proxies.
    void RegisterReader(RxSignalProxy& aReader);
    /** Forgets the reader, and cancels its updates. */
    void UnregisterReader(RxSignalProxy& aReader);
    bool StartUpdates(RxSignalProxy& aReader);
    void CancelUpdates(RxSignalProxy& aReader);
    bool RequestValue(RxSignalProxy& aReader);
    void RegisterWriter(TxSignalProxy& aWriter);
    void UnregisterWriter(TxSignalProxy& aWriter);
    SendResult AnnounceWriter(const TxSignalProxy& aWriter);
    SendResult PutValue(const TxSignalProxy& aWriter, const DataBuffer& aValue);

public slots:
    void OnReadyRead();
    void OnSocketStateChanged(QLocalSocket::LocalSocketState a_state);
    void OnSocketConnected();
    void OnTimeout();

signals:
    /** False also after each attempt to connect that failed. */
    void ConnectedChanged(bool a_connected);
    void ActiveChanged(bool a_active);
    void RxSignalAdded(const QString& a_path);
    void TxSignalAdded(const QString& a_path);

private:
    /** Slots are being called: this object may not be destroyed. */
    class Busy
    {
    public:
        explicit Busy(TransportProxy& aTransport) : mTransport(aTransport) { ++mTransport.mBusy; }
        ~Busy()
        {
            if (--mTransport.mBusy == 0 && mTransport.mObsolete)
                mTransport.deleteLater();
        }
        Q_DISABLE_COPY(Busy)

    private:
        TransportProxy& mTransport;
    };

    enum class Reading { Done, MoreLater, Failed };

    void connectToService();
    Reading readFrames();
    void continueReading();
    void onAboutToBlock();
    void disconnectAfterError(const char* aMessage);
    void repeatRequests();
    bool fits(int aRequestType, const std::string& aPath);
    const RequestMessage& compose(int aRequestType, const std::string& aPath);
    SendResult send(int aRequestType, const std::string& aPath = std::string());
    SendResult sendComposed();

    const QString mSocketPath;
    QLocalSocket mSocket;
    QTimer mReconnect;
    FrameReader mFrames;
    ResponseDispatcher mDispatcher;
    std::unique_ptr<RequestMessage> mRequest;
    bool mConnected = false;
    bool mLossTold = false;
    bool mContinuing = false; ///< continueReading() is on its way
    bool mObsolete = false;
    int mBusy = 0; ///< calls of slots under way, above 1 in the event loop of one
};

} // namespace SignalService
