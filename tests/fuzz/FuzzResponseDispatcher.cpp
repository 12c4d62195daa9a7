#include "Surroundings.h"

#include <QLoggingCategory>
#include <algorithm>
#include <array>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>
#include <memory>
#include <vector>

#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/ResponseDispatcher.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <signal_service.pb.h>

using namespace SignalService;
using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::CodedInputStream;
using HmiFuzz::Input;
using HmiFuzz::require;

namespace {

/** Proxies need one. It never connects, and without an event loop it does not try again. */
TransportProxy& transportWithoutService()
{
    HmiFuzz::application();
    QLoggingCategory::setFilterRules(QStringLiteral("hmi.shared=false"));
    static TransportProxy transport(QStringLiteral("/nonexistent/signal_service"));
    return transport;
}

/** The number of the kind: the last that is known, 1 when the field is not there, 0 for all others. */
int kindOf(const std::string& aMessage)
{
    CodedInputStream fields(reinterpret_cast<const std::uint8_t*>(aMessage.data()),
                            static_cast<int>(aMessage.size()));
    int kind = 1;
    bool isKnown = false;
    while (const std::uint32_t tag = fields.ReadTag()) {
        std::uint64_t number = 0;
        if (tag != WireFormatLite::MakeTag(1, WireFormatLite::WIRETYPE_VARINT)) {
            WireFormatLite::SkipField(&fields, tag);
        } else if (fields.ReadVarint64(&number)) {
            const int value = static_cast<int>(number);
            const bool isKind = value >= 1 && value <= 7;
            if (isKind || !isKnown)
                kind = isKind ? value : 0;
            isKnown = isKnown || isKind;
        }
    }
    return kind;
}

/** The reference: what a message says, its kind read in another way than the dispatcher does. */
struct Decoded
{
    explicit Decoded(const std::string& aMessage) :
        valid(response.ParseFromString(aMessage)), kind(valid ? kindOf(aMessage) : 0)
    {}

    bool isComplete() const
    {
        const bool path = response.has_path();
        switch (kind) {
        case 1:
            return response.has_active();
        case 2:
            return path && response.has_value() && response.has_status();
        case 3:
            return path && response.has_status();
        case 4:
        case 5:
        case 6:
        case 7:
            return path && response.has_text();
        default:
            return false;
        }
    }

    ResponseMessage response;
    const bool valid;
    const int kind;
};

constexpr std::size_t ReaderCount = 6;
constexpr std::size_t WriterCount = 4;

struct Reader
{
    std::unique_ptr<RxSignalProxy> proxy;
    bool subscribed = false;
    int requested = 0;
};

/** One dispatcher with proxies of the paths "a" and "b", whose slots do what the input chooses. */
class Scene
{
public:
    explicit Scene(Input& aInput) : mInput(aInput)
    {
        QObject::connect(
            &mDispatcher, &ResponseDispatcher::activeChanged, &mDispatcher, [this](bool aActive) {
                delivered({1}, std::string(),
                          [=](const ResponseMessage& aSaid) { return aSaid.active() == aActive; });
            });
        QObject::connect(&mDispatcher, &ResponseDispatcher::rxSignalAdded, &mDispatcher,
                         [this](const QString& aPath) { added(6, aPath); });
        QObject::connect(&mDispatcher, &ResponseDispatcher::txSignalAdded, &mDispatcher,
                         [this](const QString& aPath) { added(7, aPath); });
        for (std::size_t index = 0; index < mReaders.size(); ++index)
            addReader(index);
        for (std::size_t index = 0; index < mWriters.size(); ++index)
            addWriter(index);
    }

    void dispatchAll()
    {
        while (mInput.getRestSize() > 0)
            dispatchNext();
    }

private:
    static std::string pathOf(std::size_t aIndex) { return aIndex % 2 == 0 ? "a" : "b"; }

    /** The next message: a length, then as many bytes of it as there are. Exactly as large as it is. */
    std::vector<char> takeMessage()
    {
        const std::size_t size = static_cast<unsigned char>(*mInput.getRest());
        mInput.skip(1);
        const std::size_t there = std::min(size, mInput.getRestSize());
        std::vector<char> message(mInput.getRest(), mInput.getRest() + there);
        mInput.skip(there);
        return message;
    }

    void dispatchNext()
    {
        if (mInput.getRestSize() == 0)
            return;
        const std::vector<char> message = takeMessage();
        const Decoded decoded(std::string(message.begin(), message.end()));
        // Counting walks the tables, which is a delivery's work to finish when it happens within one.
        const int expected = mInHand.empty() ? mDeliveries + countReceivers(decoded) : 0;
        const int actions = mActions;
        mInHand.push_back(&decoded);
        require(mDispatcher.dispatch(message.data(), static_cast<int>(message.size())) == decoded.valid,
                "what is no message is refused, and nothing else");
        mInHand.pop_back();
        // With changes from inside slots only the single deliveries are checked.
        require(!mInHand.empty() || mActions != actions || mDeliveries == expected,
                "everyone concerned is told, once");
    }

    int countReceivers(const Decoded& aDecoded)
    {
        if (!aDecoded.isComplete())
            return 0;
        int count = 0;
        const auto visit = [&count](auto&) { ++count; };
        const std::string& path = aDecoded.response.path();
        if (aDecoded.kind == 2) {
            mDispatcher.oneShotReaders.forEach(path, visit);
            mDispatcher.subscribers.forEach(path, visit);
        } else if (aDecoded.kind == 4 || aDecoded.kind == 6) {
            mDispatcher.readers.forEach(path, visit);
        } else if (aDecoded.kind != 1) {
            mDispatcher.writers.forEach(path, visit);
        }
        return count + (aDecoded.kind == 1 || aDecoded.kind >= 6 ? 1 : 0);
    }

    /** Every delivery comes by here: it has to be what a message in hand says, as one within another has two.
     */
    template <class Says>
    void delivered(std::initializer_list<int> aKinds, const std::string& aPath, Says aSays)
    {
        ++mDeliveries;
        const auto isSource = [&](const Decoded* aMessage) {
            return aMessage->isComplete() &&
                   std::find(aKinds.begin(), aKinds.end(), aMessage->kind) != aKinds.end() &&
                   (aMessage->kind == 1 || aMessage->response.path() == aPath) && aSays(aMessage->response);
        };
        require(std::any_of(mInHand.begin(), mInHand.end(), isSource),
                "only what a complete message of a known kind says is told, to the proxies of its path");
    }

    void added(int aKind, const QString& aPath)
    {
        const auto says = [&](const ResponseMessage& aSaid) {
            return QString::fromStdString(aSaid.path()) == aPath;
        };
        delivered({aKind}, mInHand.back()->response.path(), says);
        act();
    }

    void valueUpdated(std::size_t aIndex, const QVariant& aValue, int aStatus)
    {
        const auto bytes = aValue.value<DataBuffer>().getBytes();
        delivered({2}, pathOf(aIndex), [&](const ResponseMessage& aSaid) {
            return aSaid.value() == bytes.toStdString() && aSaid.status() == aStatus;
        });
        Reader& reader = mReaders.at(aIndex);
        require(reader.subscribed || reader.requested-- > 0, "only who asked is told a value");
        bool isInt = false;
        bool isDouble = false;
        aValue.toInt(&isInt);
        aValue.toDouble(&isDouble);
        require(isInt == (bytes.size() == 4) && isDouble == (bytes.size() == 8), "sizes decide about types");
        act();
    }

    void textReceived(std::initializer_list<int> aKinds, std::size_t aIndex, const QString& aText)
    {
        delivered(aKinds, pathOf(aIndex), [&](const ResponseMessage& aSaid) {
            return QString::fromStdString(aSaid.text()) == aText;
        });
        act();
    }

    void putResult(std::size_t aIndex, int aStatus)
    {
        delivered({3}, pathOf(aIndex),
                  [=](const ResponseMessage& aSaid) { return aSaid.status() == aStatus; });
        act();
    }

    /** What slots may do: the low three bits choose the deed, the others the proxy. */
    void act()
    {
        if (!mInput.hasChoice())
            return;
        ++mActions;
        const int choice = mInput.choose();
        const std::size_t index = static_cast<std::size_t>(choice >> 3);
        switch (choice & 7) {
        case 1:
            return removeReader(index % ReaderCount);
        case 2:
            return addReader(index % ReaderCount);
        case 3:
            return removeWriter(index % WriterCount);
        case 4:
            return addWriter(index % WriterCount);
        case 5:
            return subscribe(index % ReaderCount, index < 16);
        case 6:
            return request(index % ReaderCount);
        case 7:
            return dispatchNext(); // as a nested event loop would
        default:
            return;
        }
    }

    void addReader(std::size_t aIndex)
    {
        Reader& reader = mReaders.at(aIndex);
        if (reader.proxy)
            return;
        reader.proxy = std::make_unique<RxSignalProxy>(transportWithoutService(),
                                                       QString::fromStdString(pathOf(aIndex)));
        QObject::connect(reader.proxy.get(), &RxSignalProxy::ValueUpdated, &mDispatcher,
                         [=](const QVariant& aValue, int aStatus) { valueUpdated(aIndex, aValue, aStatus); });
        QObject::connect(reader.proxy.get(), &RxSignalProxy::TextReceived, &mDispatcher,
                         [=](const QString& aText) {
                             textReceived({4, 6}, aIndex, aText);
                         });
        mDispatcher.readers.insert(pathOf(aIndex), *reader.proxy);
        if (aIndex < 4)
            subscribe(aIndex, true);
        if (aIndex >= 2)
            request(aIndex);
    }

    void removeReader(std::size_t aIndex)
    {
        Reader& reader = mReaders.at(aIndex);
        if (!reader.proxy)
            return;
        mDispatcher.subscribers.remove(pathOf(aIndex), *reader.proxy);
        mDispatcher.oneShotReaders.remove(pathOf(aIndex), *reader.proxy);
        mDispatcher.readers.remove(pathOf(aIndex), *reader.proxy);
        reader = Reader();
    }

    void subscribe(std::size_t aIndex, bool aOn)
    {
        Reader& reader = mReaders.at(aIndex);
        if (!reader.proxy || reader.subscribed == aOn)
            return;
        const bool changed = aOn ? mDispatcher.subscribers.insert(pathOf(aIndex), *reader.proxy)
                                 : mDispatcher.subscribers.remove(pathOf(aIndex), *reader.proxy);
        require(changed, "a subscriber is there until it cancels");
        reader.subscribed = aOn;
    }

    void request(std::size_t aIndex)
    {
        Reader& reader = mReaders.at(aIndex);
        if (!reader.proxy)
            return;
        if (mDispatcher.oneShotReaders.insert(pathOf(aIndex), *reader.proxy))
            ++reader.requested;
        require(reader.requested > 0, "who was told its value can ask again");
    }

    void addWriter(std::size_t aIndex)
    {
        std::unique_ptr<TxSignalProxy>& writer = mWriters.at(aIndex);
        if (writer)
            return;
        writer = std::make_unique<TxSignalProxy>(transportWithoutService(),
                                                 QString::fromStdString(pathOf(aIndex)));
        QObject::connect(writer.get(), &TxSignalProxy::PutValueResult, &mDispatcher,
                         [=](int aStatus) { putResult(aIndex, aStatus); });
        QObject::connect(writer.get(), &TxSignalProxy::TextReceived, &mDispatcher, [=](const QString& aText) {
            textReceived({5, 7}, aIndex, aText);
        });
        mDispatcher.writers.insert(pathOf(aIndex), *writer);
    }

    void removeWriter(std::size_t aIndex)
    {
        std::unique_ptr<TxSignalProxy>& writer = mWriters.at(aIndex);
        if (!writer)
            return;
        mDispatcher.writers.remove(pathOf(aIndex), *writer);
        writer.reset();
    }

    Input& mInput;
    ResponseDispatcher mDispatcher;
    std::array<Reader, ReaderCount> mReaders;
    std::array<std::unique_ptr<TxSignalProxy>, WriterCount> mWriters;
    std::vector<const Decoded*> mInHand; ///< the outermost first
    int mDeliveries = 0;
    int mActions = 0;
};

} // namespace

// After the deeds of the slots come the messages as on the wire, each with its length before it; 0 is a
// message without fields.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    Input input(aData, aSize);
    Scene(input).dispatchAll();
    return 0;
}
