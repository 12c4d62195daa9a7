#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QLocalSocket>
#include <QObject>
#include <QTimer>
#include <deque>
#include <memory>
#include <string>
#include <unordered_set>

#include <signal_service.pb.h>

namespace Hmi::Simulator {

/**
 * The connection of one client: cuts what it sends into requests and sends it frames, late where that is
 * wanted. A client that sends what is no request, asks about more paths than a car has, or does not read what
 * it is sent, is disconnected with one line of output. Owned by the server, which deletes it some time after
 * disconnected(); until then it takes frames and drops them.
 */
class SignalClient : public QObject
{
    Q_OBJECT

public:
    /** What waits for a client that does not read, in bytes. */
    static constexpr qint64 MaximumOutput = qint64(1024) * 1024;
    static constexpr std::size_t MaximumPaths = 8192;

    /** Takes the socket, which is connected. */
    SignalClient(QLocalSocket* aSocket, QObject* aParent);
    ~SignalClient() override;

    /** Also keeps frames in order. One that is empty is not sent. */
    void send(const QByteArray& aFrame);
    /** Of everything that is sent from now on, in milliseconds; with 0 what still waits is sent at once. */
    void setDelay(int aMilliseconds);
    /** Sends these bytes at once, and then nothing ever again. */
    void stall(const QByteArray& aBytes);
    void disconnectNow();
    /** The same, with a line that says why. */
    void reject(const QString& aReason);

    /** Keeps in mind which paths the client asked about; one with too many is rejected, and gets false. */
    bool addPath(const std::string& aPath);
    const std::unordered_set<std::string>& getPaths() const { return mPaths; }

signals:
    void requested(Hmi::Simulator::SignalClient& aClient, const SignalService::RequestMessage& aRequest);
    /** Once, and never from inside a call. */
    void disconnected();

private:
    struct LateFrame
    {
        qint64 due; ///< milliseconds of the clock
        QByteArray frame;
    };

    void readMore();
    /** False where the bytes are no request. */
    bool cutRequests();
    void sendDue();
    void write(const QByteArray& aFrame);

    QLocalSocket& mSocket;
    QByteArray mInput; ///< the beginning of a frame
    std::unique_ptr<SignalService::RequestMessage> mRequest;
    std::unordered_set<std::string> mPaths;
    QElapsedTimer mClock;
    QTimer mNextDue;
    std::deque<LateFrame> mLate;
    qint64 mLateSize = 0; ///< bytes
    int mDelay = 0;
    bool mMute = false;
    bool mGone = false;
};

} // namespace Hmi::Simulator
