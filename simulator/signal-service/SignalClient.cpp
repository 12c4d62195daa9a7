#include <simulator/signal-service/SignalClient.h>

#include <algorithm>
#include <simulator/Console.h>

namespace Hmi::Simulator {

/** What is read in one go, in bytes; more waits in the socket, so that other clients get their turn. */
static constexpr qint64 ReadBufferSize = 16384;

SignalClient::SignalClient(QLocalSocket* aSocket, QObject* aParent) :
    QObject(aParent), mSocket(*aSocket), mRequest(std::make_unique<SignalService::RequestMessage>())
{
    aSocket->setParent(this);
    mSocket.setReadBufferSize(ReadBufferSize);
    mClock.start();
    mNextDue.setSingleShot(true);
    mNextDue.setTimerType(Qt::PreciseTimer);
    connect(&mNextDue, &QTimer::timeout, this, &SignalClient::sendDue);
    // Queued: it may happen while the client is being answered.
    connect(&mSocket, &QLocalSocket::disconnected, this, &SignalClient::disconnected, Qt::QueuedConnection);
    connect(&mSocket, &QLocalSocket::readyRead, this, &SignalClient::readMore, Qt::QueuedConnection);
    // What came before the signals were connected.
    QMetaObject::invokeMethod(this, &SignalClient::readMore, Qt::QueuedConnection);
}

SignalClient::~SignalClient() { mSocket.disconnect(this); }

void SignalClient::readMore()
{
    mInput.append(mSocket.readAll());
    if (!mGone && !cutRequests())
        reject(QStringLiteral("the bytes it sent are no request"));
}

bool SignalClient::cutRequests()
{
    int begin = 0;
    while (begin < mInput.size() && !mGone) {
        const int size = static_cast<uchar>(mInput.at(begin));
        if (begin + size >= mInput.size())
            break;
        if (size > 0) {
            if (!mRequest->ParseFromArray(mInput.constData() + begin + 1, size))
                return false;
            if (!mMute)
                emit requested(*this, *mRequest);
        }
        begin += size + 1;
    }
    mInput.remove(0, begin);
    return true;
}

void SignalClient::send(const QByteArray& aFrame)
{
    if (mGone || mMute || aFrame.isEmpty())
        return;
    if (mSocket.bytesToWrite() + mLateSize + aFrame.size() > MaximumOutput) {
        reject(QStringLiteral("it does not read what it is sent"));
        return;
    }
    if (mDelay == 0) {
        write(aFrame);
        return;
    }
    const qint64 due = mClock.elapsed() + mDelay;
    mLate.push_back({mLate.empty() ? due : std::max(due, mLate.back().due), aFrame});
    mLateSize += aFrame.size();
    if (!mNextDue.isActive())
        mNextDue.start(mDelay);
}

void SignalClient::write(const QByteArray& aFrame) { mSocket.write(aFrame); }

void SignalClient::sendDue()
{
    const qint64 now = mClock.elapsed();
    while (!mLate.empty() && (mDelay == 0 || mLate.front().due <= now)) {
        mLateSize -= mLate.front().frame.size();
        write(mLate.front().frame);
        mLate.pop_front();
    }
    if (!mLate.empty())
        mNextDue.start(static_cast<int>(mLate.front().due - now));
}

void SignalClient::setDelay(int aMilliseconds)
{
    mDelay = aMilliseconds;
    if (mDelay == 0)
        sendDue();
}

void SignalClient::stall(const QByteArray& aBytes)
{
    mLate.clear();
    if (!mGone && !mMute)
        write(aBytes);
    mMute = true;
}

void SignalClient::disconnectNow()
{
    mGone = true;
    mLate.clear();
    mSocket.abort();
}

void SignalClient::reject(const QString& aReason)
{
    if (mGone)
        return;
    Console::print(QStringLiteral("rejected a client: ") + aReason);
    disconnectNow();
}

bool SignalClient::addPath(const std::string& aPath)
{
    mPaths.insert(aPath);
    const bool fits = mPaths.size() <= MaximumPaths;
    if (!fits)
        reject(QStringLiteral("it asks about more than %1 signals").arg(MaximumPaths));
    return fits;
}

} // namespace Hmi::Simulator
