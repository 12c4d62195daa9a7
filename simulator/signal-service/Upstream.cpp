#include <simulator/signal-service/Upstream.h>

#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>

namespace Hmi::Simulator {

using SignalService::RxSignalProxy;
using SignalService::TransportProxy;
using SignalService::TxSignalProxy;

static Signal upstreamSignal(bool aWritable) { return {SignalType::Bytes, aWritable, true, std::nullopt}; }

Upstream::Upstream(SignalTable& aTable, const QString& aSocketPath, QObject* aParent) :
    QObject(aParent), mTable(aTable), mTransport(aSocketPath)
{
    connect(&mTransport, &TransportProxy::ConnectedChanged, this, &Upstream::onConnectedChanged);
    connect(&mTransport, &TransportProxy::RxSignalAdded, this,
            [this](const QString& aPath) { mTable.declare(aPath.toStdString(), upstreamSignal(false)); });
    connect(&mTransport, &TransportProxy::TxSignalAdded, this,
            [this](const QString& aPath) { mTable.declare(aPath.toStdString(), upstreamSignal(true)); });
    if (mTransport.IsConnected())
        onConnectedChanged(true);
}

Upstream::~Upstream() = default;

void Upstream::onConnectedChanged(bool aConnected)
{
    if (aConnected)
        mTransport.RequestSignals();
    else
        emit lost();
}

bool Upstream::isSubscribed(const std::string& aPath) const
{
    const auto reader = mReaders.find(aPath);
    return reader != mReaders.end() && reader->second.subscribed;
}

Upstream::Reader& Upstream::readerOf(const std::string& aPath)
{
    Reader& reader = mReaders[aPath];
    if (reader.proxy)
        return reader;
    reader.proxy = std::make_unique<RxSignalProxy>(mTransport, QString::fromStdString(aPath));
    connect(reader.proxy.get(), &RxSignalProxy::ValueUpdated, this,
            [this, aPath](const QVariant& aValue, int aStatus) {
                onValue(aPath, aValue.value<DataBuffer>(), aStatus);
            });
    return reader;
}

void Upstream::subscribe(const std::string& aPath)
{
    Reader& reader = readerOf(aPath);
    reader.subscribed = true;
    reader.proxy->RequestUpdates();
}

void Upstream::cancel(const std::string& aPath)
{
    const auto reader = mReaders.find(aPath);
    if (reader == mReaders.end())
        return;
    reader->second.subscribed = false;
    reader->second.proxy->CancelUpdates();
}

void Upstream::requestValue(const std::string& aPath) { readerOf(aPath).proxy->RequestUpdate(); }

TxSignalProxy& Upstream::writerOf(const std::string& aPath)
{
    std::unique_ptr<TxSignalProxy>& writer = mWriters[aPath];
    if (writer)
        return *writer;
    writer = std::make_unique<TxSignalProxy>(mTransport, QString::fromStdString(aPath));
    connect(writer.get(), &TxSignalProxy::PutValueResult, this,
            [this, aPath](int aStatus) { emit putAnswered(aPath, aStatus); });
    return *writer;
}

void Upstream::announceWriter(const std::string& aPath) { writerOf(aPath); }

bool Upstream::put(const std::string& aPath, const DataBuffer& aValue)
{
    return writerOf(aPath).PutValue(aValue);
}

void Upstream::onValue(const std::string& aPath, const DataBuffer& aBytes, int aStatus)
{
    const std::optional<DataBuffer> value = aStatus == 0 ? std::make_optional(aBytes) : std::nullopt;
    if (value)
        mTable.declare(aPath, upstreamSignal(false));
    const Signal* const signal = mTable.find(aPath);
    // What else says that it is not available is no news.
    if (signal && (value || signal->value))
        mTable.take(aPath, value);
    emit valueArrived(aPath, value);
}

} // namespace Hmi::Simulator
