#pragma once

#include <QByteArray>
#include <optional>
#include <string>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <signal_service.pb.h>

/** The service's messages, ready for the socket: a length byte, then the message. Empty where one is too
 * long. */
namespace Hmi::Simulator::ResponseFrames {

/** Of a value, and of a write. */
enum Status { Good = 0, Refused = 1, NotAvailable = 1 };

QByteArray active(bool aActive);
/** Nothing is sent as an empty value that is not available. */
QByteArray value(const std::string& aPath, const std::optional<SignalService::DataBuffer>& aValue);
QByteArray putResult(const std::string& aPath, int aStatus);
/** A text that does not fit beside the path is left out. */
QByteArray text(SignalService::ResponseType aType, const std::string& aPath, const std::string& aText);

// Faults.
QByteArray firstHalf();
/** In a sound frame. */
QByteArray noMessage();

} // namespace Hmi::Simulator::ResponseFrames
