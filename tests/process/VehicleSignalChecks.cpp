#include "Simulator.h"

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QTemporaryDir>
#include <examples/headunit/SignalVehiclePolicy.h>
#include <examples/headunit/VehicleSignalConfigs.h>
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/signal-service/TransportProxy.h>

using HmiTest::waitUntil;

namespace {

/** Qt's QML tool with a screen, which says what it sees. */
class Screen
{
public:
    Screen(const QTemporaryDir& aFolder, const QByteArray& aContent)
    {
        HmiTest::writeFile(aFolder, "Screen.qml", "import QtQuick 2.15\nimport hmi.shared 1.0\n" + aContent);
        HmiTest::writeFile(aFolder, "host.ini",
                           "[HmiShared]\nSignalServiceEnabled=true\nSignalServicePath=signals\n");
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString& entry : QStringLiteral(HMI_QML_TOOL_ENVIRONMENT).split(QLatin1Char('|')))
            environment.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
        environment.insert(QStringLiteral("HMI_CONFIG"), aFolder.filePath(QStringLiteral("host.ini")));
        mProcess.setProcessEnvironment(environment);
        mProcess.setProcessChannelMode(QProcess::MergedChannels);
        mProcess.start(QStringLiteral(HMI_QT_TOOLS "/qml"), {aFolder.filePath(QStringLiteral("Screen.qml"))});
    }
    ~Screen()
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }

    /** Whether the line comes; what came before it is forgotten. */
    bool says(const QByteArray& aLine)
    {
        int found = -1;
        const bool said = waitUntil([&] {
            mOutput += mProcess.readAll();
            found = mOutput.indexOf("qml: " + aLine + '\n');
            return found >= 0;
        });
        EXPECT_TRUE(said) << mOutput.toStdString();
        mOutput.remove(0, found + aLine.size());
        return said;
    }

private:
    QProcess mProcess;
    QByteArray mOutput;
};

} // namespace

TEST(VehicleSignals, ReachScreensAndAreWrittenByThem)
{
    const QTemporaryDir folder;
    const QString socket = folder.filePath(QStringLiteral("signals"));
    // The service is not there yet.
    Screen screen(folder, R"(
Item {
    RxSignalProxy {
        id: reader
        property real number
        property int whole
        property bool flag
        property string text
        path: "Speed"
        onValueUpdated: {
            if (status !== 0)
                return console.log(path, "unavailable")
            switch (path) {
            case "Speed": number = value; console.log(path, number); writer.putValue(number + 1.5); break
            case "Doors": whole = value; console.log(path, whole); writer.putValue({ an: "object" }); break
            case "On": flag = value; console.log(path, flag); break
            case "Gear": text = value; console.log(path, text); break
            }
        }
        Component.onCompleted: requestUpdates()
    }
    RxSignalProxy {
        path: "Next"
        onValueUpdated: reader.path = value
        Component.onCompleted: requestUpdates()
    }
    RxSignalProxy {
        property int answers: 0
        path: "Speed"
        onValueUpdated: console.log("once", ++answers)
        Component.onCompleted: requestUpdate()
    }
    TxSignalProxy {
        id: writer
        path: "Target"
        onPutValueSuccess: console.log("put", value)
        onPutValueFail: console.log("not put")
        Component.onCompleted: putValue(1.5)
    }
})");
    EXPECT_TRUE(screen.says("not put")) << "there is nobody";

    Simulator simulator(socket);
    EXPECT_TRUE(screen.says("once 1")) << "waited for the service";
    simulator.command("set Target 0.5");
    simulator.command("set Speed 12.25");
    EXPECT_TRUE(screen.says("Speed 12.25"));
    EXPECT_TRUE(screen.says("put 13.75"));
    EXPECT_TRUE(simulator.says("put Target 13.75"));
    // The path changes while it is subscribed, from within its slot's caller too.
    const std::pair<QByteArray, QByteArray> rows[] = {
        {"Doors 4", "Doors 4"}, {"On true", "On true"}, {"Gear D", "Gear D"}};
    for (const auto& [value, line] : rows) {
        simulator.command("set " + value);
        simulator.command("set Next " + value.left(value.indexOf(' ')));
        EXPECT_TRUE(screen.says(line));
        EXPECT_TRUE(!value.startsWith("Doors") || screen.says("not put")) << "an object has no form";
    }
    simulator.command("set Next Speed");
    EXPECT_TRUE(screen.says("Speed 12.25"));
    // The line breaks before the answer comes.
    simulator.command("late 2000");
    simulator.command("set Speed 50");
    EXPECT_TRUE(simulator.says("put Target 51.5"));
    simulator.command("drop");
    EXPECT_TRUE(screen.says("not put"));
    simulator.command("late 0");
    EXPECT_TRUE(screen.says("Speed 50")) << "subscribed again";
}

TEST(VehicleSignals, MoveTheBindingsOfAProductsPolicy)
{
    const QTemporaryDir folder;
    HmiTest::writeFile(folder, "product.ini", "[VehicleSignals]\nGear=Car.Gear\n");
    Hmi::Core::ConfigManager config;
    ASSERT_TRUE(config.load(folder.filePath(QStringLiteral("product.ini"))));
    const QString socket = folder.filePath(QStringLiteral("signals"));
    Simulator simulator(socket);
    const auto transport = std::make_shared<SignalService::TransportProxy>(socket);
    SignalVehiclePolicy vehicle(transport, VehicleSignalConfigs(config));
    Hmi::Core::RestrictedModeManager restriction;
    restriction.setPolicy(vehicle.getRestrictedModePolicy());

    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("vehicle"), &vehicle);
    engine.rootContext()->setContextProperty(QStringLiteral("restriction"), &restriction);
    QQmlComponent component(&engine);
    component.setData(
        "import QtQml 2.15\nQtObject { property string line: [vehicle.odometer, vehicle.fuelRange,"
        "vehicle.vehicleMoving, vehicle.gear, restriction.restrictedModeOn].join() }",
        QUrl());
    const std::unique_ptr<QObject> screen(component.create());
    ASSERT_TRUE(screen) << component.errorString().toStdString();

    const std::pair<QByteArray, QString> rows[] = {
        {"set Vehicle.TraveledDistance 12.3456", QStringLiteral("12346,-1,false,,false")},
        {"set Vehicle.Powertrain.Range 423000", QStringLiteral("12346,423000,false,,false")},
        {"set Vehicle.IsMoving true", QStringLiteral("12346,423000,true,,false")},
        {"set Car.Gear D", QStringLiteral("12346,423000,true,D,true")},
        {"set Car.Gear P", QStringLiteral("12346,423000,true,P,false")}};
    for (const auto& [command, line] : rows) {
        simulator.command(command);
        EXPECT_TRUE(waitUntil([&] { return screen->property("line") == line; }))
            << command.constData() << ": " << screen->property("line").toString().toStdString();
    }
}

TEST(VehicleSignals, AreUnknownToAProductsPolicyWhileTheLineIsLost)
{
    const QTemporaryDir folder;
    Hmi::Core::ConfigManager config;
    const QString socket = folder.filePath(QStringLiteral("signals"));
    auto simulator = std::make_unique<Simulator>(socket);
    SignalVehiclePolicy vehicle(std::make_shared<SignalService::TransportProxy>(socket),
                                VehicleSignalConfigs(config));
    Hmi::Core::RestrictedModeManager restriction;
    restriction.setPolicy(vehicle.getRestrictedModePolicy());
    const auto line = [&] {
        const double numbers[] = {vehicle.getSpeed(), vehicle.getTripDistance(), vehicle.getAirTemperature(),
                                  vehicle.getDrivenDistance()};
        QString text = vehicle.getGear();
        for (const double number : numbers)
            text += QLatin1Char(' ') + QString::number(number);
        return text + (vehicle.getNight() ? QStringLiteral(" night") : QString()) +
               (vehicle.getOnline() ? QString() : QStringLiteral(" away")) +
               (restriction.isRestrictedModeOn() ? QStringLiteral(" restricted") : QString());
    };
    const std::pair<QByteArray, const char*> rows[] = {
        {"set Vehicle.Speed 12.5", " 12.5 nan nan nan"},
        {"set Vehicle.TripMeterReading 1.5", " 12.5 1500 nan nan"},
        {"set Vehicle.Exterior.AirTemperature -7.5", " 12.5 1500 -7.5 nan"},
        {"set Vehicle.TraveledDistance 100.0", " 12.5 1500 -7.5 0"},
        {"set Vehicle.TraveledDistance 100.25", " 12.5 1500 -7.5 250"},
        {"set Vehicle.Cabin.Lights.IsNight true", " 12.5 1500 -7.5 250 night"},
        {"set Vehicle.Powertrain.Transmission.SelectedGear P", "P 12.5 1500 -7.5 250 night"},
        {"quit", " nan 1500 -7.5 250 night away restricted"},
        {"", " nan 1500 -7.5 250 night restricted"},
        {"set Vehicle.Powertrain.Transmission.SelectedGear P", "P nan 1500 -7.5 250 night"},
        {"set Vehicle.Speed 3.5", "P 3.5 1500 -7.5 250 night"},
    };
    for (const auto& [command, expected] : rows) {
        if (command.isEmpty())
            simulator = std::make_unique<Simulator>(socket);
        else
            simulator->command(command);
        EXPECT_TRUE(waitUntil([&, text = expected] { return line() == QLatin1String(text); }))
            << command.constData() << ": " << line().toStdString();
    }
}
