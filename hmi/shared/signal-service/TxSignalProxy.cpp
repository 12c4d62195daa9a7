#include <hmi/shared/signal-service/TxSignalProxy.h>

#include <hmi/shared/signal-service/TransportProxy.h>

namespace SignalService {

TxSignalProxy::TxSignalProxy(TransportProxy& aTransport, const QString& aPath, QObject* aParent) :
    QObject(aParent), mPath(aPath.toStdString()), mTransport(&aTransport)
{
    connect(mTransport, &TransportProxy::ConnectedChanged, this, &TxSignalProxy::OnConnectedChanged);
    mTransport->RegisterWriter(*this);
}

TxSignalProxy::~TxSignalProxy()
{
    if (mTransport)
        mTransport->UnregisterWriter(*this);
}

bool TxSignalProxy::PutValue(const DataBuffer& aValue)
{
    return mTransport && mTransport->PutValue(*this, aValue) == TransportProxy::SendResult::Sent;
}

void TxSignalProxy::OnConnectedChanged(bool a_connected)
{
    if (a_connected && mTransport)
        mTransport->AnnounceWriter(*this);
}

} // namespace SignalService
