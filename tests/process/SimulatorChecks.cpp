#include "ChildProcess.h"
#include "Simulator.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <hmi/shared/signal-service/DataBuffer.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/signal-service/TxSignalProxy.h>
#include <sys/stat.h>
#include <tests/support/FilesAndWaits.h>

using namespace SignalService;
using HmiTest::waitUntil;

namespace {

/** One subscription of a head unit, with what it was told. */
struct Reader
{
    Reader(TransportProxy& aTransport, const char* aPath) : proxy(aTransport, QLatin1String(aPath))
    {
        QObject::connect(&proxy, &RxSignalProxy::ValueUpdated, [this](const QVariant& aValue, int aStatus) {
            values.append(aStatus == 0 ? aValue.value<DataBuffer>() : DataBuffer(QByteArray("unavailable")));
        });
        proxy.RequestUpdates();
    }
    template <class T>
    bool got(const T& aValue)
    {
        return waitUntil([&] { return !values.isEmpty() && values.last() == MemcpyToDataBuffer(aValue); });
    }

    RxSignalProxy proxy;
    QList<DataBuffer> values;
};

class SimulatorProcess : public testing::Test
{
protected:
    QString file(const char* aName) const { return mFolder.filePath(QLatin1String(aName)); }
    ChildProcess run(const QStringList& aArguments) const
    {
        return ChildProcess::run(Simulator::getProgram(), aArguments);
    }

    QTemporaryDir mFolder;
    const QString mSocket = file("signals");
};

} // namespace

TEST_F(SimulatorProcess, AnswersCommandsAndKeepsTheTypesOfSignals)
{
    Simulator simulator(mSocket);
    const QByteArray tooLong = "set Long " + QByteArray(250, 'x');
    const std::vector<std::pair<QByteArray, QByteArray>> rows = {
        {"set Car.Speed 12.5", "value Car.Speed 12.5"},
        {"set Car.Speed 12", "value Car.Speed 12.0"},
        {"set Car.Speed fast", "error 'Car.Speed' has type double, of which fast is no value"},
        {"get Car.Speed", "value Car.Speed 12.0"},
        {"set Car.Doors 4", "value Car.Doors 4"},
        {"set Car.Doors 4.5", "error 'Car.Doors' has type int, of which 4.5 is no value"},
        {"set Car.On true", "value Car.On true"},
        {"set Car.Name  two words", "value Car.Name \"two words\""},
        {"set Car.Name 12", "value Car.Name \"12\""},
        {"set Car.Text \"1\\n\\u00e4\"", "value Car.Text \"1\\n\xc3\xa4\""},
        {"set Car.Text \"open", "error 'Car.Text' has type string, of which \"open is no value"},
        {"set New 99999999999",
         "error 99999999999 is no value: quotes have to close, and a whole number above "
         "2147483647 needs a fraction"},
        {"get New", "error there is no signal 'New'"},
        {tooLong, "error path and value do not fit a message of 255 bytes"},
        {"set Car.Speed", "error 'set' is used as: set PATH VALUE"},
        {"fly", "error 'fly' is no command; 'help' shows them"},
        {"drop all", "error 'drop' is used as: drop"},
        {"late soon", "error 'late' takes 0 to 60000 milliseconds, not 'soon'"},
        {QByteArray(70000, 'x'), "error a command has at most 65536 bytes"},
        {"list", "signal Car.Doors int writable 4"},
        {"help", "help get PATH                                  shows a value"}};
    for (const auto& [command, answer] : rows)
        EXPECT_TRUE(simulator.answers(command, answer)) << command.constData();
    simulator.getProcess().closeWriteChannel();
    EXPECT_TRUE(simulator.ends());
}

TEST_F(SimulatorProcess, ServesEachClientItsOwnSubscriptionsAndTakesWrites)
{
    HmiTest::writeFile(mFolder, "s.json", R"({"signals": [{"path": "Fixed", "type": "int", "value": 7},
        {"path": "Warm", "type": "double", "writable": true}]})");
    Simulator simulator(mSocket, {QStringLiteral("--scenario"), file("s.json")});
    TransportProxy one(mSocket), other(mSocket);
    Reader fixed(one, "Fixed"), warm(one, "Warm"), later(other, "Later");
    TxSignalProxy writer(other, QStringLiteral("Warm")), wrong(other, QStringLiteral("Fixed"));
    QStringList results;
    QObject::connect(&writer, &TxSignalProxy::PutValueResult,
                     [&](int aStatus) { results << QString::number(aStatus); });
    QObject::connect(&wrong, &TxSignalProxy::PutValueResult,
                     [&](int aStatus) { results << QString::number(-aStatus); });
    QObject::connect(&one, &TransportProxy::RxSignalAdded, [&](const QString& aPath) { results << aPath; });
    QObject::connect(&one, &TransportProxy::TxSignalAdded,
                     [&](const QString& aPath) { results << aPath + QLatin1Char('!'); });
    EXPECT_TRUE(simulator.says("connected 2"));
    EXPECT_TRUE(fixed.got(7));
    EXPECT_TRUE(writer.PutValue(MemcpyToDataBuffer(21.5)));
    EXPECT_TRUE(simulator.says("put Warm 21.5"));
    EXPECT_TRUE(warm.got(21.5));
    EXPECT_TRUE(writer.PutValue(MemcpyToDataBuffer(21)));
    EXPECT_TRUE(simulator.says("refused \"Warm\" no-double"));
    EXPECT_TRUE(wrong.PutValue(MemcpyToDataBuffer(8)));
    EXPECT_TRUE(simulator.says("refused \"Fixed\" read-only"));
    EXPECT_TRUE(simulator.answers("set Later 3", "value Later 3"));
    EXPECT_TRUE(later.got(3));
    one.RequestSignals();
    EXPECT_TRUE(waitUntil([&] { return results.size() == 8; }));
    EXPECT_EQ(HmiTest::joined(results), "0,1,-1,Fixed,Later,Later!,Warm,Warm!");
    EXPECT_EQ(fixed.values.size() + warm.values.size() + later.values.size(), 3);
}

TEST_F(SimulatorProcess, TakesItsSocketWithExactPermissionsAndOnlyWhereItMay)
{
    {
        Simulator dies(mSocket, {QStringLiteral("--permissions"), QStringLiteral("0606")});
        struct stat status;
        ASSERT_EQ(::stat(qPrintable(mSocket), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0606U);
        const ChildProcess second = run({QStringLiteral("--signal-service"), mSocket});
        EXPECT_EQ(second.status, 1);
        EXPECT_TRUE(
            second.output.contains(QStringLiteral("A service already listens at '%1'; end it").arg(mSocket)));
    }
    EXPECT_TRUE(QFileInfo::exists(mSocket));
    Simulator replaces(mSocket, {QStringLiteral("--no-commands")}, QStringLiteral("/dev/null"));
    TransportProxy client(mSocket);
    EXPECT_TRUE(replaces.says("connected 1"));
    replaces.getProcess().terminate();
    EXPECT_TRUE(replaces.ends());

    HmiTest::writeFile(mFolder, "file", "text");
    const std::vector<std::pair<QStringList, const char*>> refusals = {
        {{QStringLiteral("--signal-service"), file("file")},
         "/file' is no socket and is left alone; remove it"},
        {{QStringLiteral("--signal-service"), file("no/s")}, "/no' for the socket '"},
        {{QStringLiteral("--permissions"), QStringLiteral("0999")}, "--permissions takes octal digits"},
        {{QStringLiteral("--speed"), QStringLiteral("0")},
         "--speed takes a number from 0.01 to 1000, not '0'"},
        {{QStringLiteral("--signal-service"), mSocket, QStringLiteral("--upstream"), mSocket},
         "another socket than"},
        {{QStringLiteral("--signal-service"), mSocket, QStringLiteral("--record"), file("no/r")},
         "/no/r' could not be"},
        {{QStringLiteral("--signal-service"), mSocket, QStringLiteral("--scenario"), file("file")},
         "/file' is not played: line 1: "}};
    for (const auto& [arguments, message] : refusals) {
        const ChildProcess child = run(arguments);
        EXPECT_EQ(child.status, 1) << message;
        EXPECT_TRUE(child.output.contains(QLatin1String(message))) << qPrintable(child.output);
    }
    EXPECT_EQ(HmiTest::readFile(file("file")), "text");
}

TEST_F(SimulatorProcess, PutsFaultsOnTheLineFromWhichClientsRecover)
{
    Simulator simulator(mSocket);
    EXPECT_TRUE(simulator.answers("set A 1", "value A 1"));
    TransportProxy client(mSocket);
    Reader reader(client, "A");
    int value = 1;
    for (const char* fault : {"drop", "stall", "garbage"}) {
        EXPECT_TRUE(reader.got(value)) << fault;
        const QByteArray answer = fault == QByteArray("drop")    ? "dropped 1"
                                  : fault == QByteArray("stall") ? "stalled 1"
                                                                 : "garbage 1";
        EXPECT_TRUE(simulator.answers(fault, answer));
        EXPECT_TRUE(simulator.says("disconnected 0")) << fault;
        EXPECT_TRUE(simulator.says("connected 1")) << fault;
        simulator.command("set A " + QByteArray::number(++value));
    }
    EXPECT_TRUE(reader.got(value));
    EXPECT_TRUE(simulator.answers("late 300", "late 300"));
    QElapsedTimer clock;
    clock.start();
    simulator.command("set A 10");
    simulator.command("set A 11");
    EXPECT_TRUE(reader.got(11));
    EXPECT_GE(clock.elapsed(), 290);
    EXPECT_EQ(reader.values.at(reader.values.size() - 2), MemcpyToDataBuffer(10));
    EXPECT_TRUE(simulator.answers("late 60000", "late 60000"));
    simulator.command("set A 12");
    EXPECT_TRUE(simulator.answers("late 0", "late 0"));
    EXPECT_TRUE(reader.got(12));
}

TEST_F(SimulatorProcess, LosesOnlyTheClientsThatMisbehave)
{
    Simulator simulator(mSocket);
    EXPECT_TRUE(simulator.answers("set A 1", "value A 1"));
    TransportProxy good(mSocket);
    Reader reader(good, "A");
    EXPECT_TRUE(simulator.says("connected 1"));
    QByteArray lists; // without end, and nobody reads the answers
    for (int index = 0; index < 100000; ++index)
        lists += QByteArray("\x02\x08\x08", 3);
    const std::vector<std::pair<QByteArray, QByteArray>> rows = {
        {QByteArray("\x03\xff\xff\xff", 4), "the bytes it sent are no request"},
        {QByteArray("\x04\x12\x09go", 5), "the bytes it sent are no request"},
        {QByteArray("\x02\x08\x02", 3), "a request of kind 2 lacks its path"},
        {lists, "it does not read what it is sent"}};
    for (const auto& [bytes, reason] : rows) {
        QLocalSocket bad;
        bad.setReadBufferSize(1);
        bad.connectToServer(mSocket);
        ASSERT_TRUE(bad.waitForConnected());
        EXPECT_TRUE(simulator.says("connected 2"));
        bad.write(bytes);
        EXPECT_TRUE(simulator.says("rejected a client: " + reason));
        EXPECT_TRUE(simulator.says("disconnected 1"));
    }
    QLocalSocket odd; // an empty frame, a request of a kind of later times, and one in two parts
    odd.connectToServer(mSocket);
    ASSERT_TRUE(odd.waitForConnected());
    odd.write(QByteArray("\x00\x02\x08\x63\x02", 5));
    odd.flush();
    odd.write(QByteArray("\x08\x01", 2));
    EXPECT_TRUE(waitUntil([&] { return odd.bytesAvailable() == 5; }));
    EXPECT_EQ(odd.readAll(), QByteArray("\x04\x08\x01\x20\x01", 5));
    simulator.command("set A 2");
    EXPECT_TRUE(reader.got(2));
    EXPECT_EQ(reader.values.size(), 2);
}

TEST_F(SimulatorProcess, PlaysWhatItRecorded)
{
    HmiTest::writeFile(mFolder, "s.json", R"({"signals": [{"path": "S", "type": "double", "value": 0},
        {"path": "I", "type": "int", "value": 5}],
        "steps": [{"at": 1, "path": "S", "ramp": {"from": 0, "to": 1, "during": 0.1, "every": 0.04}},
        {"at": 0.9, "path": "I", "value": null}]})");
    const QStringList record = {QStringLiteral("--record"), file("r.json")};
    const auto play = [&](const char* aScenario, const QStringList& aMore) {
        Simulator simulator(mSocket, QStringList{QStringLiteral("--scenario"), file(aScenario)} + aMore);
        TransportProxy client(mSocket);
        Reader speed(client, "S"), whole(client, "I"), text(client, "T");
        EXPECT_TRUE(simulator.says("scenario ended"));
        if (!aMore.isEmpty()) {
            EXPECT_TRUE(simulator.answers("set T \"D\"", "value T \"D\""));
            EXPECT_TRUE(simulator.answers("set S -0.0", "value S -0.0"));
        }
        EXPECT_TRUE(speed.got(-0.0));
        EXPECT_TRUE(waitUntil([&] { return !text.values.isEmpty(); }));
        simulator.command("quit");
        EXPECT_TRUE(simulator.ends());
        return speed.values + whole.values + text.values;
    };
    const QList<DataBuffer> values = play("s.json", record);
    EXPECT_EQ(values.size(), 9); // S: 0, then 0, 0.4, 0.8, 1, -0; I: 5, none; T
    EXPECT_EQ(values.at(3), MemcpyToDataBuffer(0.8));
    EXPECT_EQ(values.at(4), MemcpyToDataBuffer(1.0));
    EXPECT_EQ(play("r.json", {}), values);
}

TEST_F(SimulatorProcess, LoopsWithoutDrift)
{
    HmiTest::writeFile(mFolder, "s.json", R"({"signals": [{"path": "N", "type": "int"}], "steps": [
        {"at": 0, "path": "N", "ramp": {"from": 1, "to": 3, "during": 0.02, "every": 0.01}}], "loop": 0.025})");
    QElapsedTimer clock;
    clock.start();
    Simulator simulator(mSocket, {QStringLiteral("--scenario"), file("s.json")});
    TransportProxy client(mSocket);
    Reader reader(client, "N");
    ASSERT_TRUE(waitUntil([&] { return reader.values.size() >= 60; }));
    EXPECT_GE(clock.elapsed(), 20 * 25 - 50);
    for (int index = 2; index < 60; ++index)
        EXPECT_EQ(reader.values[index - 1].toInt() % 3 + 1, reader.values[index].toInt()) << index;
}

TEST_F(SimulatorProcess, PassesOnAnotherServiceAndRecordsIt)
{
    const QString vehicleSocket = file("vehicle");
    auto vehicle = std::make_unique<Simulator>(vehicleSocket);
    EXPECT_TRUE(vehicle->answers("set A 1", "value A 1"));
    EXPECT_TRUE(vehicle->answers("set Gear Park", "value Gear \"Park\""));
    Simulator simulator(
        mSocket, {QStringLiteral("--upstream"), vehicleSocket, QStringLiteral("--record"), file("r.json")});
    TransportProxy client(mSocket);
    Reader reader(client, "A"), gear(client, "Gear");
    TxSignalProxy writer(client, QStringLiteral("A"));
    int result = -1;
    QObject::connect(&writer, &TxSignalProxy::PutValueResult, [&](int aStatus) { result = aStatus; });
    EXPECT_TRUE(reader.got(1));
    EXPECT_TRUE(writer.PutValue(MemcpyToDataBuffer(2)));
    EXPECT_TRUE(vehicle->says("put A 2"));
    EXPECT_TRUE(simulator.says("put A 2"));
    EXPECT_TRUE(reader.got(2));
    EXPECT_EQ(result, 0);
    Reader once(client, "Once");
    once.proxy.CancelUpdates();
    EXPECT_TRUE(vehicle->answers("set Once 2.5", "value Once 2.5"));
    once.proxy.RequestUpdate();
    EXPECT_TRUE(once.got(2.5));

    vehicle.reset();
    EXPECT_TRUE(waitUntil([&] {
        return writer.PutValue(MemcpyToDataBuffer(3)) && waitUntil([&] { return result == 1; }, 200);
    }));
    vehicle = std::make_unique<Simulator>(vehicleSocket);
    EXPECT_TRUE(vehicle->says("connected 1"));
    EXPECT_TRUE(vehicle->answers("set A 4", "value A 4"));
    EXPECT_TRUE(reader.got(4));
    simulator.command("quit");
    EXPECT_TRUE(simulator.ends());

    Simulator replay(mSocket, {QStringLiteral("--scenario"), file("r.json")});
    EXPECT_TRUE(replay.says("scenario ended"));
    for (const char* const line :
         {"signal A int writable 4", "signal Gear bytes writable {\"bytes\":\"UGFyaw==\"}",
          "signal Once double read-only 2.5"})
        EXPECT_TRUE(replay.answers("list", line)) << line;
}
