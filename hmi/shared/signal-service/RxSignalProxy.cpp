#include <hmi/shared/signal-service/RxSignalProxy.h>

#include <hmi/shared/signal-service/TransportProxy.h>

namespace SignalService {

RxSignalProxy::RxSignalProxy(TransportProxy& aTransport, const QString& aPath, QObject* aParent) :
    QObject(aParent), mPath(aPath.toStdString()), mTransport(&aTransport)
{
    mTransport->RegisterReader(*this);
}

RxSignalProxy::~RxSignalProxy()
{
    if (mTransport)
        mTransport->UnregisterReader(*this);
}

bool RxSignalProxy::RequestUpdates() { return mTransport && mTransport->StartUpdates(*this); }

void RxSignalProxy::CancelUpdates()
{
    if (mTransport)
        mTransport->CancelUpdates(*this);
}

bool RxSignalProxy::RequestUpdate() { return mTransport && mTransport->RequestValue(*this); }

} // namespace SignalService
