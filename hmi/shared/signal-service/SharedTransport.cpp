#include <hmi/shared/signal-service/SharedTransport.h>

#include <QDir>

#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/signal-service/TransportProxy.h>

namespace Hmi::Shared::SignalService {

using ::SignalService::TransportProxy;

/** The last user may go in a slot that the transport called. */
static std::shared_ptr<TransportProxy> makeTransport()
{
    // Qt looks for a socket with a relative path in the folder for temporary files.
    const QString path = QDir().absoluteFilePath(HmiSharedConfigs::instance()->getSignalServicePath());
    return {new TransportProxy(path), [](TransportProxy* aTransport) { aTransport->DeleteWhenIdle(); }};
}

std::shared_ptr<TransportProxy> sharedTransport()
{
    static std::weak_ptr<TransportProxy> sTransport;
    std::shared_ptr<TransportProxy> transport = sTransport.lock();
    if (!transport && HmiSharedConfigs::instance()->getSignalServiceEnabled()) {
        transport = makeTransport();
        sTransport = transport;
    }
    return transport;
}

} // namespace Hmi::Shared::SignalService
