#include <hmi/shared/signal-service/ResponseDispatcher.h>

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <signal_service.pb.h>

namespace SignalService {

using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::CodedInputStream;

static constexpr std::uint32_t KindTag =
    WireFormatLite::MakeTag(ResponseMessage::kTypeFieldNumber, WireFormatLite::WIRETYPE_VARINT);

ResponseDispatcher::ResponseDispatcher() { registerDataBuffer(); }

ResponseDispatcher::~ResponseDispatcher() = default;

/** A slot may run an event loop in which the next response comes in: that takes a message of its own. */
bool ResponseDispatcher::dispatch(const char* aMessage, int aSize)
{
    std::unique_ptr<ResponseMessage> response = std::move(mSpare);
    if (!response)
        response = std::make_unique<ResponseMessage>();
    const bool parsed = response->ParseFromArray(aMessage, aSize);
    if (parsed)
        route(*response);
    mSpare = std::move(response);
    return parsed;
}

/** An unknown kind is kept among the unknown fields, and the field reads as its default. */
static bool isOfUnknownKind(const ResponseMessage& aResponse)
{
    const std::string& unknown = aResponse.unknown_fields();
    if (aResponse.has_type() || unknown.empty())
        return false;
    CodedInputStream fields(reinterpret_cast<const std::uint8_t*>(unknown.data()),
                            static_cast<int>(unknown.size()));
    std::uint32_t tag = fields.ReadTag();
    while (tag != 0 && tag != KindTag && WireFormatLite::SkipField(&fields, tag))
        tag = fields.ReadTag();
    return tag == KindTag;
}

void ResponseDispatcher::route(const ResponseMessage& aResponse)
{
    if (isOfUnknownKind(aResponse))
        return;
    switch (aResponse.type()) {
    case RESPONSE_ACTIVE:
        if (aResponse.has_active())
            emit activeChanged(aResponse.active());
        break;
    case RESPONSE_VALUE:
        handOutValue(aResponse);
        break;
    case RESPONSE_PUT_RESULT:
        handOutPutResult(aResponse);
        break;
    case RESPONSE_READER_TEXT:
    case RESPONSE_READER_ADDED:
        handOutText(readers, aResponse);
        break;
    case RESPONSE_WRITER_TEXT:
    case RESPONSE_WRITER_ADDED:
        handOutText(writers, aResponse);
        break;
    }
}

void ResponseDispatcher::handOutValue(const ResponseMessage& aResponse)
{
    if (!aResponse.has_path() || !aResponse.has_value() || !aResponse.has_status())
        return;
    const std::string& path = aResponse.path();
    const std::string& bytes = aResponse.value();
    const int status = aResponse.status();
    const QVariant value =
        QVariant::fromValue(DataBuffer(QByteArray(bytes.data(), static_cast<int>(bytes.size()))));
    const auto update = [&](RxSignalProxy& aReader) { emit aReader.ValueUpdated(value, status); };
    const auto answer = [&](RxSignalProxy& aReader) {
        // First, as its slot may ask again.
        oneShotReaders.remove(path, aReader);
        update(aReader);
    };
    // Both before the first slot: a value that comes in while one waits is newer for everyone.
    ProxyTable<RxSignalProxy>::Walk updates(subscribers, path, update);
    ProxyTable<RxSignalProxy>::Walk answers(oneShotReaders, path, answer);
    answers.finish();
    updates.finish();
}

void ResponseDispatcher::handOutPutResult(const ResponseMessage& aResponse)
{
    if (!aResponse.has_path() || !aResponse.has_status())
        return;
    const int status = aResponse.status();
    writers.forEach(aResponse.path(), [=](TxSignalProxy& aWriter) { emit aWriter.PutValueResult(status); });
}

template <class Proxy>
void ResponseDispatcher::handOutText(ProxyTable<Proxy>& aProxies, const ResponseMessage& aResponse)
{
    if (!aResponse.has_path() || !aResponse.has_text())
        return;
    const QString text = QString::fromStdString(aResponse.text());
    aProxies.forEach(aResponse.path(), [&](Proxy& aProxy) { emit aProxy.TextReceived(text); });
    if (aResponse.type() == RESPONSE_READER_ADDED)
        emit rxSignalAdded(QString::fromStdString(aResponse.path()));
    else if (aResponse.type() == RESPONSE_WRITER_ADDED)
        emit txSignalAdded(QString::fromStdString(aResponse.path()));
}

} // namespace SignalService
