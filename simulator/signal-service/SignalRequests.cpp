#include <simulator/signal-service/SignalRequests.h>

#include <simulator/Console.h>
#include <simulator/signal-service/ResponseFrames.h>
#include <simulator/signal-service/Upstream.h>

namespace Hmi::Simulator {

using namespace SignalService;

static const std::string sAvailable = "available";
static const std::string sUnknown = "unknown signal";

SignalRequests::SignalRequests(SignalTable& aTable, Upstream* aUpstream, QObject* aParent) :
    QObject(aParent), mTable(aTable), mUpstream(aUpstream)
{
    connect(&mTable, &SignalTable::valueTaken, this, &SignalRequests::publish);
    connect(&mTable, &SignalTable::readerAdded, this,
            [this](const std::string& aPath) { tell(mReaders, aPath, RESPONSE_READER_ADDED); });
    connect(&mTable, &SignalTable::writerAdded, this,
            [this](const std::string& aPath) { tell(mWriters, aPath, RESPONSE_WRITER_ADDED); });
    if (!mUpstream)
        return;
    connect(mUpstream, &Upstream::valueArrived, this, &SignalRequests::onUpstreamValue);
    connect(mUpstream, &Upstream::putAnswered, this, &SignalRequests::onUpstreamPut);
    connect(mUpstream, &Upstream::lost, this, &SignalRequests::onUpstreamLost);
}

/** Newer clients may have requests that are unknown here; that field then stands first and is not understood.
 */
static bool isOfUnknownKind(const RequestMessage& aRequest)
{
    constexpr char kindTag = RequestMessage::kTypeFieldNumber << 3;
    const std::string& unknown = aRequest.unknown_fields();
    return !aRequest.has_type() && !unknown.empty() && unknown.front() == kindTag;
}

void SignalRequests::answer(SignalClient& aClient, const RequestMessage& aRequest)
{
    if (isOfUnknownKind(aRequest))
        return;
    const std::string& path = aRequest.path();
    if (aRequest.type() == REQUEST_ACTIVE)
        return aClient.send(ResponseFrames::active(!mUpstream || mUpstream->isConnected()));
    if (aRequest.type() == REQUEST_LIST_SIGNALS)
        return list(aClient);
    if (path.empty())
        return aClient.reject(QStringLiteral("a request of kind %1 lacks its path").arg(aRequest.type()));
    if (!aClient.addPath(path))
        return;
    switch (aRequest.type()) {
    case REQUEST_START_UPDATES:
        return startUpdates(aClient, path);
    case REQUEST_CANCEL_UPDATES:
        return cancelUpdates(aClient, path);
    case REQUEST_VALUE:
        return readOnce(aClient, path);
    case REQUEST_PUT_VALUE:
        return put(aClient, path, DataBuffer(QByteArray::fromStdString(aRequest.value())));
    case REQUEST_ANNOUNCE_READER:
        return announceReader(aClient, path);
    case REQUEST_ANNOUNCE_WRITER:
        return announceWriter(aClient, path);
    default:
        return;
    }
}

void SignalRequests::forget(SignalClient& aClient)
{
    for (const std::string& path : aClient.getPaths()) {
        cancelUpdates(aClient, path);
        mReaders.remove(path, aClient);
        mWriters.remove(path, aClient);
        mWaiting.remove(path, aClient);
    }
}

bool SignalRequests::isUpstream(const std::string& aPath) const
{
    const Signal* const signal = mTable.find(aPath);
    return mUpstream && (!signal || signal->upstream);
}

void SignalRequests::startUpdates(SignalClient& aClient, const std::string& aPath)
{
    mSubscribers.insert(aPath, aClient);
    const Signal* const signal = mTable.find(aPath);
    if (isUpstream(aPath) && !mUpstream->isSubscribed(aPath))
        mUpstream->subscribe(aPath);
    else if (signal && signal->value)
        aClient.send(ResponseFrames::value(aPath, signal->value));
}

void SignalRequests::cancelUpdates(SignalClient& aClient, const std::string& aPath)
{
    if (mSubscribers.remove(aPath, aClient) && mUpstream && !mSubscribers.contains(aPath))
        mUpstream->cancel(aPath);
}

void SignalRequests::readOnce(SignalClient& aClient, const std::string& aPath)
{
    const Signal* const signal = mTable.find(aPath);
    const std::optional<DataBuffer> value = signal ? signal->value : std::nullopt;
    const bool ask =
        isUpstream(aPath) && mUpstream->isConnected() && !(value && mUpstream->isSubscribed(aPath));
    if (!ask)
        return aClient.send(ResponseFrames::value(aPath, value));
    mWaiting.insert(aPath, aClient);
    mUpstream->requestValue(aPath);
}

QString SignalRequests::refusalOf(const std::string& aPath, const DataBuffer& aValue) const
{
    const Signal* const signal = mTable.find(aPath);
    if (!signal)
        return QStringLiteral("unknown");
    if (!signal->writable)
        return QStringLiteral("read-only");
    const int size = aValue.getBytes().size();
    const bool hasType = (signal->type != SignalType::Int || size == static_cast<int>(sizeof(int))) &&
                         (signal->type != SignalType::Double || size == static_cast<int>(sizeof(double))) &&
                         (signal->type != SignalType::Bool || size == static_cast<int>(sizeof(bool)));
    if (!hasType)
        return QStringLiteral("no-") + nameOf(signal->type);
    return ResponseFrames::value(aPath, aValue).isEmpty() ? QStringLiteral("too-long") : QString();
}

/** A path that a client made up may hold anything, so it is shown as text. */
static QString quoted(const std::string& aPath)
{
    return SignalValue{SignalType::Text, StringToDataBuffer(QString::fromStdString(aPath))}.toWord();
}

static void printRefusal(const std::string& aPath, const QString& aReason)
{
    Console::print(QStringLiteral("refused %1 %2").arg(quoted(aPath), aReason));
}

void SignalRequests::put(SignalClient& aClient, const std::string& aPath, const DataBuffer& aValue)
{
    if (isUpstream(aPath))
        return putUpstream(aClient, aPath, aValue);
    const QString refusal = refusalOf(aPath, aValue);
    aClient.send(
        ResponseFrames::putResult(aPath, refusal.isEmpty() ? ResponseFrames::Good : ResponseFrames::Refused));
    if (!refusal.isEmpty())
        return printRefusal(aPath, refusal);
    mTable.take(aPath, aValue);
    Console::print(
        QStringLiteral("put %1 %2").arg(QString::fromStdString(aPath), mTable.find(aPath)->toWord()));
}

void SignalRequests::putUpstream(SignalClient& aClient, const std::string& aPath, const DataBuffer& aValue)
{
    mPuts[aPath].push_back({&aClient, aValue});
    if (mUpstream->put(aPath, aValue))
        return;
    // Unless the attempt broke the connection, and with it told everyone who waits.
    if (mPuts.count(aPath) == 0)
        return;
    mPuts[aPath].pop_back();
    aClient.send(ResponseFrames::putResult(aPath, ResponseFrames::Refused));
    printRefusal(aPath, QStringLiteral("not-forwarded"));
}

void SignalRequests::onUpstreamPut(const std::string& aPath, int aStatus)
{
    const auto puts = mPuts.find(aPath);
    if (puts == mPuts.end() || puts->second.empty())
        return;
    const WaitingPut put = puts->second.front();
    puts->second.pop_front();
    if (put.client)
        put.client->send(ResponseFrames::putResult(aPath, aStatus));
    if (aStatus != ResponseFrames::Good)
        return printRefusal(aPath, QStringLiteral("upstream-status-%1").arg(aStatus));
    const Signal taken{SignalType::Bytes, true, true, put.value};
    Console::print(QStringLiteral("put %1 %2").arg(QString::fromStdString(aPath), taken.toWord()));
    mTable.declare(aPath, taken);
    // Else it comes back as a value.
    if (!mUpstream->isSubscribed(aPath))
        mTable.take(aPath, put.value);
}

void SignalRequests::onUpstreamLost()
{
    const auto lost = std::exchange(mPuts, {});
    for (const auto& [path, puts] : lost) {
        for (const WaitingPut& put : puts) {
            if (put.client)
                put.client->send(ResponseFrames::putResult(path, ResponseFrames::Refused));
            printRefusal(path, QStringLiteral("upstream-away"));
        }
    }
}

void SignalRequests::onUpstreamValue(const std::string& aPath, const std::optional<DataBuffer>& aValue)
{
    const QByteArray frame = ResponseFrames::value(aPath, aValue);
    mWaiting.forEach(aPath, [&](SignalClient& aClient) {
        mWaiting.remove(aPath, aClient);
        aClient.send(frame);
    });
}

void SignalRequests::announceReader(SignalClient& aClient, const std::string& aPath)
{
    mReaders.insert(aPath, aClient);
    const bool known = mTable.find(aPath);
    aClient.send(known ? ResponseFrames::text(RESPONSE_READER_ADDED, aPath, sAvailable)
                       : ResponseFrames::text(RESPONSE_READER_TEXT, aPath, sUnknown));
    if (!known && mUpstream)
        mUpstream->requestValue(aPath);
}

void SignalRequests::announceWriter(SignalClient& aClient, const std::string& aPath)
{
    mWriters.insert(aPath, aClient);
    const Signal* const signal = mTable.find(aPath);
    const bool known = signal && signal->writable;
    aClient.send(known ? ResponseFrames::text(RESPONSE_WRITER_ADDED, aPath, sAvailable)
                       : ResponseFrames::text(RESPONSE_WRITER_TEXT, aPath, signal ? "read-only" : sUnknown));
    if (!known && isUpstream(aPath))
        mUpstream->announceWriter(aPath);
}

void SignalRequests::list(SignalClient& aClient)
{
    for (const auto& [path, signal] : mTable.getSignals()) {
        aClient.send(ResponseFrames::text(RESPONSE_READER_ADDED, path, sAvailable));
        if (signal.writable)
            aClient.send(ResponseFrames::text(RESPONSE_WRITER_ADDED, path, sAvailable));
    }
}

void SignalRequests::tell(ProxyTable<SignalClient>& aClients, const std::string& aPath, ResponseType aType)
{
    const QByteArray frame = ResponseFrames::text(aType, aPath, sAvailable);
    aClients.forEach(aPath, [&](SignalClient& aClient) { aClient.send(frame); });
}

void SignalRequests::publish(const std::string& aPath, const Signal& aSignal)
{
    if (!mSubscribers.contains(aPath))
        return;
    const QByteArray frame = ResponseFrames::value(aPath, aSignal.value);
    mSubscribers.forEach(aPath, [&](SignalClient& aClient) { aClient.send(frame); });
}

} // namespace Hmi::Simulator
