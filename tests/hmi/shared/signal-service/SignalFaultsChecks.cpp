#include <QThread>
#include <QTimer>
#include <algorithm>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <tests/hmi/shared/signal-service/SignalLine.h>
#include <thread>
#include <unistd.h>
#include <vector>

using SignalService::DataBuffer;
using SignalService::RxSignalProxy;
using SignalService::TransportProxy;
using SignalService::TxSignalProxy;

namespace {

using SignalFaults = HmiTest::SignalLine;

const QString sReadError = QStringLiteral("Signal Service read error, disconnecting");
const QString sWriteError = QStringLiteral("Signal Service write error, disconnecting");
const QString sAway = QStringLiteral("The signal service at '.*' is away .*");

QtMessageHandler sUsualHandler;
QStringList sInfos;

void keepInfos(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    if (aType == QtInfoMsg)
        sInfos.append(aText);
    sUsualHandler(aType, aContext, aText);
}

/** In a thread: a receiver that waits for the rest of a message blocks its own. */
void sendAll(int aLine, const QByteArray& aBytes)
{
    pollfd room{aLine, POLLOUT, 0};
    for (qint64 sent = 0, count = 0; sent < aBytes.size(); sent += std::max<qint64>(count, 0)) {
        if (::poll(&room, 1, 20000) != 1 || (room.revents & (POLLERR | POLLHUP)) != 0)
            return;
        count = ::send(aLine, aBytes.constData() + sent, static_cast<std::size_t>(aBytes.size() - sent),
                       MSG_NOSIGNAL);
    }
}

/** A service that listens and takes no more clients. */
class FullService
{
public:
    explicit FullService(const QString& aPath)
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, qUtf8Printable(aPath), sizeof(address.sun_path));
        const auto* const name = reinterpret_cast<const sockaddr*>(&address);
        mSockets.push_back(::socket(AF_UNIX, SOCK_STREAM, 0));
        EXPECT_TRUE(::bind(mSockets[0], name, sizeof(address)) == 0 && ::listen(mSockets[0], 0) == 0);
        do {
            mSockets.push_back(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0));
        } while (::connect(mSockets.back(), name, sizeof(address)) == 0);
    }
    ~FullService() { std::for_each(mSockets.begin(), mSockets.end(), &::close); }
    Q_DISABLE_COPY(FullService)

private:
    std::vector<int> mSockets;
};

struct Damage
{
    const char* name;
    const char* hex;
    bool closes;
    const char* told;
    bool readError;
};

const Damage sDamages[] = {
    {"rest never comes", "0408", false, "", true},
    {"rest never comes after a good one", "0a08021201611a013128000408", false, "a1", true},
    {"closed within a message", "0408", true, "", true},
    {"closed after the length", "04", true, "", true},
    {"closed after a good one", "0a08021201611a01312800", true, "a1", false},
    {"no message", "03ffffff", false, "", true},
    {"length of a field too large", "04081a7f00", false, "", true},
    {"no message after a good one", "0a08021201611a0131280003ffffff", false, "a1", true},
};

} // namespace

TEST_F(SignalFaults, EndTheConnectionOnceAndItComesBack)
{
    connectLine();
    auto subscriber = reader("a", "a");
    subscriber->RequestUpdates();
    for (const Damage& damage : sDamages) {
        SCOPED_TRACE(damage.name);
        QSignalSpy changes(transport.get(), &TransportProxy::ConnectedChanged);
        HmiTest::expectMessageMatching(QtWarningMsg, damage.readError ? sReadError : sAway);
        peer.sendBytes(QByteArray::fromHex(damage.hex));
        if (damage.closes)
            peer.drop();
        EXPECT_TRUE(HmiTest::waitUntil([&] { return changes.count() == 1; }));
        EXPECT_FALSE(transport->IsConnected());
        EXPECT_EQ(HmiTest::joined(std::exchange(diary, {})), damage.told);
        peer.drop();
        reconnect();
        EXPECT_EQ(told(peer.value("a", "2")), "a2") << "nothing of the old line is left";
        EXPECT_EQ(changes.count(), 2);
    }
}

TEST_F(SignalFaults, OfASlowPeerAreBoundedAsAWhole)
{
    connectLine();
    HmiTest::expectWarning(sReadError);
    const int line = static_cast<int>(peer.line->socketDescriptor());
    std::thread drip([line] {
        const QByteArray bytes = QByteArray::fromHex("0408012001");
        for (const char byte : bytes) {
            if (::send(line, &byte, 1, MSG_NOSIGNAL) != 1)
                return;
            QThread::msleep(100);
        }
    });
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !transport->IsConnected(); }));
    EXPECT_EQ(active->count(), 0);
    drip.join();
}

TEST_F(SignalFaults, AreNotALengthOfZeroWhichEndsWhatIsPending)
{
    connectLine();
    auto subscriber = reader("a", "a");
    subscriber->RequestUpdates();
    peer.sendBytes(peer.value("a", "1") + '\0' + peer.value("a", "2"));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !diary.isEmpty(); }));
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    EXPECT_EQ(HmiTest::joined(diary), "a1");
    EXPECT_EQ(told(peer.value("a", "3")), "a1,a2,a3");
}

TEST_F(SignalFaults, OfAPeerThatDoesNotReadAreBoundedInMemory)
{
    connectLine();
    TxSignalProxy writer(*transport, QStringLiteral("a"));
    auto subscriber = reader("a", "a");
    int changes = 0;
    QObject::connect(transport.get(), &TransportProxy::ConnectedChanged, [&] {
        ++changes;
        subscriber.reset();
    });
    const std::function<void()> floods[] = {
        [&] { writer.PutValue(DataBuffer(QByteArray(200, 'x'))); },
        [&] { subscriber->RequestUpdate(); },
        [&] {
            subscriber->RequestUpdates();
            if (subscriber)
                subscriber->CancelUpdates();
        },
    };
    for (const auto& flood : floods) {
        HmiTest::expectWarning(sWriteError);
        int count = 0;
        for (changes = 0; changes == 0 && count < 1000000; ++count)
            flood();
        EXPECT_EQ(changes, 1);
        EXPECT_GT(count, 1000) << "some slowness is no fault";
        EXPECT_FALSE(transport->IsConnected() || writer.PutValue(DataBuffer()));
        peer.drop();
        reconnect();
        EXPECT_TRUE(transport->IsConnected());
        asked();
        subscriber = reader("a", "a");
    }
}

TEST_F(SignalFaults, OfAPeerThatClosesWithoutReadingEndTheConnection)
{
    connectLine();
    TxSignalProxy writer(*transport, QStringLiteral("a"));
    for (int put = 0; put < 3000; ++put)
        EXPECT_TRUE(writer.PutValue(DataBuffer(QByteArray(200, 'x'))));
    HmiTest::expectMessageMatching(QtWarningMsg, sAway);
    peer.drop();
    EXPECT_TRUE(HmiTest::waitUntil([&] { return !transport->IsConnected(); }));
    reconnect();
    EXPECT_EQ(asked(), "7 a");
}

TEST_F(SignalFaults, AreNotManyValuesAtOnceAndTheEventLoopGoesOn)
{
    connectLine();
    auto subscriber = std::make_unique<RxSignalProxy>(*transport, QStringLiteral("a"));
    constexpr int Count = 200000;
    int next = 0;
    int outOfOrder = 0;
    QObject::connect(subscriber.get(), &RxSignalProxy::ValueUpdated,
                     [&](const QVariant& value) { outOfOrder += value.toInt() != next++; });
    subscriber->RequestUpdates();
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { turns += next > 0; });
    timer.start(0);
    QByteArray all;
    for (int value = 0; value < Count; ++value)
        all += peer.value("a", SignalService::MemcpyToDataBuffer(value).getBytes());
    std::thread flood(&sendAll, static_cast<int>(peer.line->socketDescriptor()), std::cref(all));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return next == Count; }, 60000)) << next;
    flood.join();
    EXPECT_EQ(outOfOrder, 0);
    EXPECT_GT(turns, 10);
    asked();
}

TEST_F(SignalFaults, AreNotSlowSlotsWhichKeepTheEventLoopTurning)
{
    connectLine();
    RxSignalProxy subscriber(*transport, QStringLiteral("a"));
    int values = 0, inThisTurn = 0, most = 0;
    QObject::connect(&subscriber, &RxSignalProxy::ValueUpdated, [&] {
        ++values;
        most = std::max(most, ++inThisTurn);
        QElapsedTimer work;
        for (work.start(); work.elapsed() <= 6;)
            ;
    });
    subscriber.RequestUpdates();
    asked();
    int sent = 30;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        inThisTurn = 0;
        if (sent++ < 60)
            peer.sendBytes(peer.value("a", "1"));
    });
    timer.start(0);
    QByteArray backlog;
    for (int value = 0; value < sent; ++value)
        backlog += peer.value("a", "1");
    peer.sendBytes(backlog);
    EXPECT_TRUE(HmiTest::waitUntil([&] { return values == 60; }));
    EXPECT_LE(most, 3);
}

TEST_F(SignalFaults, OfAnAbsentServiceAreToldOnceAnOutage)
{
    peer.stop();
    HmiTest::writeFile(peer.folder, "plain", "x");
    const QString full = peer.folder.filePath(QStringLiteral("full"));
    const FullService service(full);
    const QString paths[] = {peer.folder.filePath(QStringLiteral("missing")),
                             peer.folder.path(),
                             QString(),
                             peer.folder.filePath(QStringLiteral("plain")),
                             full,
                             peer.folder.filePath(QString(200, QLatin1Char('l'))),
                             peer.path()};
    for (const QString& path : paths) {
        SCOPED_TRACE(path.toStdString());
        HmiTest::expectMessageMatching(QtWarningMsg, sAway);
        transport = std::make_unique<TransportProxy>(path);
        QSignalSpy changes(transport.get(), &TransportProxy::ConnectedChanged);
        for (int attempt = 1; attempt <= 3; ++attempt) {
            transport->OnTimeout();
            EXPECT_EQ(changes.count(), attempt);
        }
        EXPECT_FALSE(transport->IsConnected() || changes.last()[0].toBool());
    }
    sInfos.clear();
    sUsualHandler = qInstallMessageHandler(&keepInfos);
    peer.start();
    for (int outage = 0; outage < 2; ++outage) {
        reconnect();
        transport->OnTimeout();
        EXPECT_TRUE(transport->IsConnected());
        EXPECT_EQ(HmiTest::joined(std::exchange(sInfos, {})),
                  "The signal service at '" + peer.path().toStdString() + "' is connected.");
        HmiTest::expectMessageMatching(QtWarningMsg, sAway);
        peer.drop();
        EXPECT_TRUE(HmiTest::waitUntil([&] { return !transport->IsConnected(); }));
    }
    qInstallMessageHandler(sUsualHandler);
}
