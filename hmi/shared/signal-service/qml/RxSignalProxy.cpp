#include <hmi/shared/signal-service/qml/RxSignalProxy.h>

#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/SharedTransport.h>

namespace Hmi::Shared::SignalService {

RxSignalProxy::RxSignalProxy(QObject* aParent) : QObject(aParent), mTransport(sharedTransport()) {}

RxSignalProxy::~RxSignalProxy() = default;

void RxSignalProxy::setPath(const QString& aPath)
{
    if (mPath == aPath)
        return;
    mPath = aPath;
    mProxy.reset();
    if (mTransport && !mPath.isEmpty()) {
        mProxy = std::make_unique<::SignalService::RxSignalProxy>(*mTransport, mPath);
        connect(mProxy.get(), &::SignalService::RxSignalProxy::ValueUpdated, this,
                &RxSignalProxy::valueUpdated);
        if (mUpdating)
            mProxy->RequestUpdates();
    }
    emit pathChanged();
}

void RxSignalProxy::requestUpdates()
{
    mUpdating = true;
    if (mProxy)
        mProxy->RequestUpdates();
}

void RxSignalProxy::cancelUpdates()
{
    mUpdating = false;
    if (mProxy)
        mProxy->CancelUpdates();
}

void RxSignalProxy::requestUpdate()
{
    if (mProxy)
        mProxy->RequestUpdate();
}

} // namespace Hmi::Shared::SignalService
