#include <hmi/shared/signal-service/qml/TxSignalProxy.h>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <hmi/shared/signal-service/SharedTransport.h>

namespace Hmi::Shared::SignalService {

using ::SignalService::DataBuffer;
using ::SignalService::MemcpyToDataBuffer;
using ::SignalService::TransportProxy;

TxSignalProxy::TxSignalProxy(QObject* aParent) : QObject(aParent), mTransport(sharedTransport())
{
    if (mTransport)
        connect(mTransport.get(), &TransportProxy::ConnectedChanged, this,
                &TxSignalProxy::onConnectedChanged);
}

TxSignalProxy::~TxSignalProxy() = default;

void TxSignalProxy::setPath(const QString& aPath)
{
    if (mPath == aPath)
        return;
    mPath = aPath;
    mProxy.reset();
    if (mTransport && !mPath.isEmpty()) {
        mProxy = std::make_unique<::SignalService::TxSignalProxy>(*mTransport, mPath);
        connect(mProxy.get(), &::SignalService::TxSignalProxy::PutValueResult, this,
                &TxSignalProxy::onPutValueResult);
    }
    failWaiting();
    emit pathChanged();
}

/** False for types that do not travel. */
static bool encode(const QVariant& aValue, DataBuffer& aBuffer)
{
    switch (static_cast<QMetaType::Type>(aValue.type())) {
    case QMetaType::Bool:
        aBuffer = MemcpyToDataBuffer(aValue.toBool());
        return true;
    case QMetaType::Int:
        aBuffer = MemcpyToDataBuffer(aValue.toInt());
        return true;
    case QMetaType::Double:
        aBuffer = MemcpyToDataBuffer(aValue.toDouble());
        return true;
    case QMetaType::QString:
        aBuffer = ::SignalService::StringToDataBuffer(aValue.toString());
        return true;
    default:
        return false;
    }
}

void TxSignalProxy::putValue(const QVariant& aValue)
{
    DataBuffer buffer;
    if (mProxy && encode(aValue, buffer) && mProxy->PutValue(buffer))
        mWaiting.enqueue(aValue);
    else
        emit putValueFail();
}

void TxSignalProxy::onPutValueResult(int aStatus)
{
    if (mWaiting.isEmpty())
        return;
    const QVariant value = mWaiting.dequeue();
    if (aStatus == 0)
        emit putValueSuccess(value);
    else
        emit putValueFail();
}

void TxSignalProxy::onConnectedChanged(bool aConnected)
{
    if (!aConnected)
        failWaiting();
}

void TxSignalProxy::failWaiting()
{
    for (int count = mWaiting.size(); count > 0 && !mWaiting.isEmpty(); --count) {
        mWaiting.removeFirst();
        emit putValueFail();
    }
}

} // namespace Hmi::Shared::SignalService
