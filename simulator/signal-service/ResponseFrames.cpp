#include <simulator/signal-service/ResponseFrames.h>

#include <hmi/shared/signal-service/FrameReader.h>

namespace Hmi::Simulator {

using namespace SignalService;

static QByteArray framed(const ResponseMessage& aMessage)
{
    const std::size_t size = aMessage.ByteSizeLong();
    if (size > MaximumMessageSize)
        return {};
    QByteArray frame(static_cast<int>(size) + 1, Qt::Uninitialized);
    frame[0] = static_cast<char>(size);
    aMessage.SerializeToArray(frame.data() + 1, static_cast<int>(size));
    return frame;
}

QByteArray ResponseFrames::active(bool aActive)
{
    ResponseMessage message;
    message.set_type(RESPONSE_ACTIVE);
    message.set_active(aActive);
    return framed(message);
}

QByteArray ResponseFrames::value(const std::string& aPath, const std::optional<DataBuffer>& aValue)
{
    const QByteArray bytes = aValue ? aValue->getBytes() : QByteArray();
    ResponseMessage message;
    message.set_type(RESPONSE_VALUE);
    message.set_path(aPath);
    message.set_value(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    message.set_status(aValue ? Good : NotAvailable);
    return framed(message);
}

QByteArray ResponseFrames::putResult(const std::string& aPath, int aStatus)
{
    ResponseMessage message;
    message.set_type(RESPONSE_PUT_RESULT);
    message.set_path(aPath);
    message.set_status(aStatus);
    return framed(message);
}

QByteArray ResponseFrames::text(ResponseType aType, const std::string& aPath, const std::string& aText)
{
    ResponseMessage message;
    message.set_type(aType);
    message.set_path(aPath);
    message.set_text(aText);
    if (message.ByteSizeLong() > MaximumMessageSize)
        message.set_text(std::string());
    return framed(message);
}

QByteArray ResponseFrames::firstHalf()
{
    const QByteArray whole = active(true);
    return whole.left(1 + (whole.size() - 1) / 2);
}

QByteArray ResponseFrames::noMessage() { return QByteArrayLiteral("\x04\xff\xff\xff\xff"); }

} // namespace Hmi::Simulator
