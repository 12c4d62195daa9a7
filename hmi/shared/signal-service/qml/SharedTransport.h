#pragma once

#include <memory>

namespace SignalService {
class TransportProxy;
}

namespace Hmi::Shared::SignalService {

/**
 * The one transport of the QML types: made with the first of them, gone with the last. Null where the
 * configuration does not enable the signal service ("HmiShared/SignalServiceEnabled"). Main thread only.
 */
std::shared_ptr<::SignalService::TransportProxy> sharedTransport();

} // namespace Hmi::Shared::SignalService
