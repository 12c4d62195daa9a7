#pragma once

#include <QtGlobal>
#include <memory>

namespace SignalService {
class TransportProxy;
}

namespace Hmi::Shared::SignalService {

/**
 * The one transport of this process, for the QML types and for a product's policies: made with the first
 * user, gone with the last. Null where the configuration does not enable the signal service
 * ("HmiShared/SignalServiceEnabled"). Main thread only.
 */
Q_DECL_EXPORT std::shared_ptr<::SignalService::TransportProxy> sharedTransport();

} // namespace Hmi::Shared::SignalService
