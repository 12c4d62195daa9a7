#include <tests/hmi/shared/signal-service/SignalLine.h>

using SignalService::DataBuffer;
using SignalService::RxSignalProxy;
using SignalService::TransportProxy;
using SignalService::TxSignalProxy;

namespace {

using SignalRequests = HmiTest::SignalLine;

QString text(const char* aText) { return QString::fromUtf8(aText); }

void expectTooLong(const char* aPath, int aBytes)
{
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral("The signal service cannot be asked about '%1': "
                                                  "that takes %2 bytes, .*")
                                       .arg(text(aPath))
                                       .arg(aBytes));
}

} // namespace

TEST_F(SignalRequests, AreThisOnTheWire)
{
    connectLine();
    std::unique_ptr<TxSignalProxy> writer;
    RxSignalProxy reader(*transport, text("a"));
    const std::pair<const char*, std::function<void()>> requests[] = {
        {"020801", [&] { transport->RequestActive(); }},
        {"050802120161", [&] { reader.RequestUpdates(); }},
        {"050803120161", [&] { reader.CancelUpdates(); }},
        {"050806120161050804120161", [&] { reader.RequestUpdate(); }},
        {"050807120161", [&] { writer = std::make_unique<TxSignalProxy>(*transport, text("a")); }},
        {"0b08051201611a0401000000", [&] { writer->PutValue(SignalService::MemcpyToDataBuffer(1)); }},
        {"0708051201611a00", [&] { writer->PutValue(DataBuffer()); }},
        {"020808", [&] { transport->RequestSignals(); }},
    };
    for (const auto& [hex, request] : requests) {
        const QByteArray bytes = QByteArray::fromHex(hex);
        peer.received.clear();
        request();
        EXPECT_TRUE(HmiTest::waitUntil([&] { return peer.received.size() >= bytes.size(); })) << hex;
        EXPECT_EQ(peer.received.toHex().toStdString(), hex);
    }
}

TEST_F(SignalRequests, AreRefusedWhereAMessageCannotHoldThem)
{
    connectLine();
    TxSignalProxy writer(*transport, text("a"));
    // Field numbers, lengths, kind and path take 8 bytes with a longer value.
    expectTooLong("a", 256);
    expectTooLong("a", 308);
    EXPECT_TRUE(writer.PutValue(DataBuffer(QByteArray(247, 'x'))));
    EXPECT_FALSE(writer.PutValue(DataBuffer(QByteArray(248, 'x'))));
    EXPECT_FALSE(writer.PutValue(SignalService::StringToDataBuffer(QString(300, QLatin1Char('x')))));
    EXPECT_EQ(asked(), "7 a,5 a=" + QByteArray(247, 'x').toHex().toStdString());
    EXPECT_TRUE(transport->IsConnected());

    const QByteArray longest(250, 'p');
    RxSignalProxy fits(*transport, text(longest));
    EXPECT_TRUE(fits.RequestUpdates());
    EXPECT_EQ(asked(), "2 " + longest.toStdString());
    const QByteArray longer(251, 'p');
    for (int refusal = 0; refusal < 3; ++refusal)
        expectTooLong(longer, 256);
    RxSignalProxy tooLong(*transport, text(longer));
    EXPECT_FALSE(tooLong.RequestUpdates());
    EXPECT_FALSE(tooLong.RequestUpdate());
    TxSignalProxy tooLongWriter(*transport, text(longer));
    EXPECT_EQ(asked(), "");
    fits.CancelUpdates();
    reconnectAfterLoss();
    EXPECT_EQ(asked(), "7 a") << "nothing of what was refused";
}

TEST_F(SignalRequests, SubscribeAProxyOnceAndCancelWithTheLastOfAPath)
{
    connectLine();
    auto one = reader("", "a");
    auto two = reader("", "a");
    auto other = reader("", "b");
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"", [&] { one->CancelUpdates(); }},
        {"2 a", [&] { one->RequestUpdates(); }},
        {"", [&] { one->RequestUpdates(); }},
        {"2 a", [&] { two->RequestUpdates(); }},
        {"2 b", [&] { other->RequestUpdates(); }},
        {"", [&] { one->CancelUpdates(); }},
        {"", [&] { one->CancelUpdates(); }},
        {"", [&] { one.reset(); }},
        {"3 a", [&] { two.reset(); }},
        {"3 b", [&] { other->CancelUpdates(); }},
        {"", [&] { other.reset(); }},
    };
    int step = 0;
    for (const auto& [expected, act] : steps) {
        act();
        EXPECT_EQ(asked(), expected) << "step " << step;
        ++step;
    }
}

TEST_F(SignalRequests, WaitForTheServiceAndGoOutAgainWithEachReturn)
{
    peer.stop();
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("The signal service at '.*' is away .*"));
    transport = std::make_unique<TransportProxy>(peer.path());
    auto one = reader("one ", "a");
    auto two = reader("two ", "a");
    auto once = reader("once ", "b");
    auto gone = reader("gone ", "c");
    auto cancelled = reader("cancelled ", "d");
    TxSignalProxy writer(*transport, text("e"));
    for (const auto& proxy : {&one, &two, &gone, &cancelled})
        EXPECT_TRUE((*proxy)->RequestUpdates());
    EXPECT_TRUE(once->RequestUpdate());
    EXPECT_TRUE(gone->RequestUpdate());
    gone.reset();
    cancelled->CancelUpdates();
    EXPECT_FALSE(writer.PutValue(DataBuffer())) << "not kept for later";

    // What is sent from the signal comes after what the transport repeats by itself.
    QStringList changes;
    QObject::connect(transport.get(), &TransportProxy::ConnectedChanged, [&](bool connected) {
        changes.append(connected ? text("+") : text("-"));
        EXPECT_EQ(transport->IsConnected(), connected);
        transport->RequestSignals();
    });
    peer.start();
    watch();
    EXPECT_EQ(asked(), "2 a,6 b,4 b,7 e,8");
    peer.stop();
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("The signal service at '.*' is away .*"));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !transport->IsConnected(); }));
    EXPECT_FALSE(writer.PutValue(DataBuffer()));
    peer.start();
    EXPECT_TRUE(HmiTest::waitUntil([&] { return transport->IsConnected() && peer.line; }, 5000));
    EXPECT_EQ(asked(), "2 a,6 b,4 b,7 e,8") << "the same after a restart";
    EXPECT_EQ(HmiTest::joined(changes), "+,-,+");

    EXPECT_EQ(told(peer.value("b", "1")), "once 1");
    reconnectAfterLoss();
    EXPECT_EQ(asked(), "2 a,7 e,8") << "an answered read is not repeated";
}

TEST_F(SignalRequests, AreNotRepeatedForAPathThatASlotGaveUp)
{
    connectLine();
    auto one = reader("", "a");
    one->RequestUpdates();
    QObject::connect(one.get(), &RxSignalProxy::ValueUpdated, [&] {
        one->CancelUpdates();
        reconnectAfterLoss();
    });
    asked();
    peer.sendBytes(peer.value("a", "1"));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return diary.size() == 1; }));
    EXPECT_EQ(asked(), "");
}
