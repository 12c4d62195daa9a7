#include <QTimer>
#include <tests/hmi/shared/signal-service/SignalLine.h>

#include <hmi/shared/events/EventLoop.h>

using Hmi::Shared::EventLoop;
using SignalService::ResponseMessage;
using SignalService::RxSignalProxy;
using SignalService::TransportProxy;
using SignalService::TxSignalProxy;

namespace {

struct SignalResponses : HmiTest::SignalLine
{
    SignalResponses() { connectLine(); }

    /** The response with all fields, except the kind, which may be one that there is not. */
    static ResponseMessage fullResponse()
    {
        ResponseMessage response;
        response.set_path("a");
        response.set_value("v");
        response.set_active(true);
        response.set_status(-3);
        response.set_text("t");
        return response;
    }
    static QByteArray frameOfKind(int aKind, const ResponseMessage& aResponse)
    {
        return peerFrame(QByteArray("\x08") + static_cast<char>(aKind), aResponse);
    }
    static QByteArray peerFrame(const QByteArray& aKind, const ResponseMessage& aResponse)
    {
        return HmiTest::SignalPeer::frame(aKind + QByteArray::fromStdString(aResponse.SerializeAsString()));
    }
    /** One more for the end of what is told, which may come in another turn of the event loop. */
    bool isActiveTold(int aBefore, int aTimes) const
    {
        return HmiTest::waitUntil([=] { return active->count() == aBefore + aTimes + 1; });
    }
    template <class Object, class... Arguments, class Tell>
    void note(Object& aObject, void (Object::*aSignal)(Arguments...), Tell aTell)
    {
        QObject::connect(&aObject, aSignal,
                         [=](const Arguments&... arguments) { diary.append(aTell(arguments...)); });
    }
};

constexpr int None = 0;
const std::pair<int, void (ResponseMessage::*)()> sFields[] = {
    {None, nullptr},
    {2, &ResponseMessage::clear_path},
    {3, &ResponseMessage::clear_value},
    {4, &ResponseMessage::clear_active},
    {5, &ResponseMessage::clear_status},
    {6, &ResponseMessage::clear_text},
};

struct Kind
{
    int number;
    std::string required; ///< field numbers
    const char* told;
};

// The subscriber of the path also reads it once.
const Kind sKinds[] = {
    {1, "4", "active"},
    {2, "235", "v(-3),v(-3)"},
    {3, "25", "put -3"},
    {4, "26", "reader t"},
    {5, "26", "writer t"},
    {6, "26", "reader t,+reader a"},
    {7, "26", "writer t,+writer a"},
    {8, "", ""},
    {9, "", ""},
    {0, "", ""},
    {127, "", ""},
};

} // namespace

TEST_F(SignalResponses, TellWhatTheirKindSaysOrNothing)
{
    const QString path = QStringLiteral("a");
    TxSignalProxy writer(*transport, path);
    auto subscriber = reader("", "a");
    auto stranger = reader("stranger", "b");
    TxSignalProxy strangeWriter(*transport, QStringLiteral("b"));
    subscriber->RequestUpdates();
    stranger->RequestUpdates();
    note(writer, &TxSignalProxy::PutValueResult, [](int s) { return QStringLiteral("put %1").arg(s); });
    note(writer, &TxSignalProxy::TextReceived,
         [](const QString& t) { return QStringLiteral("writer ") + t; });
    note(*subscriber, &RxSignalProxy::TextReceived,
         [](const QString& t) { return QStringLiteral("reader ") + t; });
    note(strangeWriter, &TxSignalProxy::PutValueResult, [](int) { return QStringLiteral("stranger"); });
    note(*transport, &TransportProxy::RxSignalAdded,
         [](const QString& p) { return QStringLiteral("+reader ") + p; });
    note(*transport, &TransportProxy::TxSignalAdded,
         [](const QString& p) { return QStringLiteral("+writer ") + p; });
    for (const Kind& kind : sKinds) {
        for (const auto& [field, clear] : sFields) {
            SCOPED_TRACE(testing::Message() << "kind " << kind.number << " without field " << field);
            subscriber->RequestUpdate();
            ResponseMessage response = fullResponse();
            if (clear)
                (response.*clear)();
            const bool required = kind.required.find(std::to_string(field)) != std::string::npos;
            const int before = active->count();
            const std::string told = this->told(frameOfKind(kind.number, response));
            if (kind.number == 1)
                EXPECT_TRUE(isActiveTold(before, required ? 0 : 1));
            else
                EXPECT_EQ(told, required ? "" : kind.told);
        }
    }
    // Without a kind it is the default's; an unknown one is no default, wherever the sender wrote it.
    for (const auto& [kind, count] : {std::pair{"", 1}, {"0809", 0}, {"08ffffffffffffffffff01", 0}}) {
        const int before = active->count();
        told(peerFrame(QByteArray::fromHex(kind), fullResponse()));
        EXPECT_TRUE(isActiveTold(before, count)) << kind;
    }
    ResponseMessage off = fullResponse();
    off.set_active(false);
    const int before = active->count();
    told(frameOfKind(1, off));
    ASSERT_TRUE(isActiveTold(before, 1));
    EXPECT_FALSE(active->at(active->count() - 2)[0].toBool());
}

TEST_F(SignalResponses, GoToOneShotReadersOnceAndToSubscribersAlways)
{
    auto once = reader("once", "a");
    auto first = reader("first", "a");
    auto second = reader("second", "a");
    auto idle = reader("idle", "a");
    auto again = reader("again", "b");
    QObject::connect(again.get(), &RxSignalProxy::ValueUpdated, [&] { again->RequestUpdate(); });
    once->RequestUpdate();
    once->RequestUpdate();
    first->RequestUpdates();
    second->RequestUpdates();
    again->RequestUpdate();
    EXPECT_EQ(told(peer.value("a", "1") + peer.value("a", "2", 1)),
              "once1,first1,second1,first2(1),second2(1)");
    EXPECT_EQ(told(peer.value("b", "1") + peer.value("b", "2") + peer.value("c", "3")), "again1,again2");
    const QByteArray longest(255 - 10, 'x');
    ASSERT_EQ(static_cast<unsigned char>(peer.value("a", longest)[0]), 255);
    first->CancelUpdates();
    EXPECT_EQ(told(peer.value("a", longest) + peer.value("a", "")),
              "second" + longest.toStdString() + ",second");
}

TEST_F(SignalResponses, FindTheProxiesAsTheSlotsBeforeLeftThem)
{
    // What the first proxy does on the value, and who hears of this value and the next.
    std::unique_ptr<RxSignalProxy> one, two, made;
    std::vector<std::unique_ptr<RxSignalProxy>> many;
    const std::pair<std::function<void()>, const char*> deeds[] = {
        {[&] { one.reset(); }, "one1,two1,two2"},
        {[&] { two.reset(); }, "one1,one2"},
        {[&] { two.reset(), one.reset(); }, "one1"},
        {[&] { one->CancelUpdates(), one->RequestUpdates(); }, "one1,two1,two2,one2"},
        {[&] { made = reader("made", "a"), made->RequestUpdates(); }, "one1,two1,one2,two2,made2"},
        {[&] { made = reader("made", "a"), made->RequestUpdate(); }, "one1,two1,made2,one2,two2"},
        {[&] {
             for (int path = 0; path < 1000; ++path) {
                 many.push_back(reader("", std::to_string(path).c_str()));
                 many.back()->RequestUpdates();
             }
         },
         "one1,two1,one2,two2"},
    };
    for (const bool oneShot : {false, true}) {
        for (const auto& [deed, expected] : deeds) {
            SCOPED_TRACE(testing::Message() << expected << oneShot);
            const auto read = oneShot ? &RxSignalProxy::RequestUpdate : &RxSignalProxy::RequestUpdates;
            one = reader("one", "a");
            two = reader("two", "a");
            bool done = false;
            QObject::connect(one.get(), &RxSignalProxy::ValueUpdated, [&, act = deed] {
                if (!std::exchange(done, true))
                    act();
            });
            (one.get()->*read)();
            (two.get()->*read)();
            if (!oneShot)
                EXPECT_EQ(told(peer.value("a", "1") + peer.value("a", "2")), expected);
            else
                EXPECT_EQ(told(peer.value("a", "1")).substr(0, 4), "one1");
            one.reset();
            two.reset();
            made.reset();
            many.clear();
        }
    }
}

TEST_F(SignalResponses, ReachASlotThatWaitsForTheNextOne)
{
    for (const bool buffered : {true, false}) {
        SCOPED_TRACE(buffered);
        auto one = reader("one", "a");
        auto two = reader("two", "a");
        int waits = 0;
        QObject::connect(one.get(), &RxSignalProxy::ValueUpdated, [&] {
            if (++waits > 2)
                return;
            EventLoop loop;
            EXPECT_EQ(loop.exec(10000, one.get(), SIGNAL(ValueUpdated(QVariant, int))),
                      EventLoop::s_exitCodeSuccess);
            diary.append(QStringLiteral("back"));
        });
        one->RequestUpdates();
        two->RequestUpdates();
        if (!buffered) {
            QTimer::singleShot(20, one.get(), [&] { peer.sendBytes(peer.value("a", "2")); });
            QTimer::singleShot(40, one.get(), [&] { peer.sendBytes(peer.value("a", "3")); });
            peer.sendBytes(peer.value("a", "1"));
        } else {
            peer.sendBytes(peer.value("a", "1") + peer.value("a", "2") + peer.value("a", "3"));
        }
        EXPECT_TRUE(HmiTest::waitUntil([&] { return diary.size() == 8; }));
        const std::string order = told({});
        EXPECT_EQ(order, "one1,two1,one2,two2,one3,two3,back,back") << "nobody hears of the past last";
    }
}

TEST_F(SignalResponses, MayEndTheTransport)
{
    auto one = reader("one", "a");
    auto two = reader("two", "a");
    TxSignalProxy writer(*transport, QStringLiteral("a"));
    QPointer<TransportProxy> guard(transport.get());
    QObject::connect(one.get(), &RxSignalProxy::ValueUpdated, [&] {
        QEventLoop nested;
        QTimer::singleShot(0, [&] { transport.release()->DeleteWhenIdle(); });
        QTimer::singleShot(10, &nested, &QEventLoop::quit);
        nested.exec();
        EXPECT_TRUE(guard) << "deleted while it calls this";
    });
    one->RequestUpdates();
    two->RequestUpdates();
    peer.sendBytes(peer.value("a", "1"));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !guard; }));
    EXPECT_EQ(HmiTest::joined(diary), "one1,two1");
    EXPECT_FALSE(one->RequestUpdates() || one->RequestUpdate() || writer.PutValue({}));
    one->CancelUpdates();
    writer.OnConnectedChanged(true);
}
