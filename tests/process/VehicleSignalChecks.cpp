#include "QmlScreen.h"
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

TEST(VehicleSignals, ReachScreensAndAreWrittenByThem)
{
    const QTemporaryDir folder;
    const QString socket = folder.filePath(QStringLiteral("signals"));
    HmiTest::writeFile(folder, "host.ini",
                       "[HmiShared]\nSignalServiceEnabled=true\nSignalServicePath=signals\n");
    // The service is not there yet.
    QmlScreen screen(folder, R"(
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

TEST(VehicleSignals, MoveTheBindingsOfAProductsPolicyAndAreUnknownWhileTheLineIsLost)
{
    const QTemporaryDir folder;
    HmiTest::writeFile(folder, "product.ini", "[VehicleSignals]\nGear=Car.Gear\n");
    Hmi::Core::ConfigManager config;
    ASSERT_TRUE(config.load(folder.filePath(QStringLiteral("product.ini"))));
    const QString socket = folder.filePath(QStringLiteral("signals"));
    auto simulator = std::make_unique<Simulator>(socket);
    SignalVehiclePolicy vehicle(std::make_shared<SignalService::TransportProxy>(socket),
                                VehicleSignalConfigs(config));
    Hmi::Core::RestrictedModeManager restriction;
    restriction.setPolicy(vehicle.getRestrictedModePolicy());

    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("v"), &vehicle);
    engine.rootContext()->setContextProperty(QStringLiteral("restriction"), &restriction);
    QQmlComponent component(&engine);
    component.setData(
        "import QtQml 2.15\nQtObject { property string line: [v.gear, v.speed, v.tripDistance, "
        "v.airTemperature, v.drivenDistance, v.odometer, v.fuelRange].join(' ') + (v.vehicleMoving ? "
        "' moving' : '') + (v.night ? ' night' : '') + (v.online ? '' : ' away') + "
        "(restriction.restrictedModeOn ? ' restricted' : '') }",
        QUrl());
    const std::unique_ptr<QObject> screen(component.create());
    ASSERT_TRUE(screen) << component.errorString().toStdString();

    const std::pair<QByteArray, const char*> rows[] = {
        {"set Vehicle.Speed 12.5", " 12.5 NaN NaN NaN 0 -1"},
        {"set Vehicle.TripMeterReading 1.5", " 12.5 1500 NaN NaN 0 -1"},
        {"set Vehicle.Exterior.AirTemperature -7.5", " 12.5 1500 -7.5 NaN 0 -1"},
        {"set Vehicle.TraveledDistance 100.0006", " 12.5 1500 -7.5 0 100001 -1"},
        {"set Vehicle.TraveledDistance 100.25", " 12.5 1500 -7.5 249 100250 -1"},
        {"set Vehicle.Powertrain.Range 423000", " 12.5 1500 -7.5 249 100250 423000"},
        {"set Vehicle.IsMoving true", " 12.5 1500 -7.5 249 100250 423000 moving"},
        {"set Vehicle.Cabin.Lights.IsNight true", " 12.5 1500 -7.5 249 100250 423000 moving night"},
        {"set Car.Gear D", "D 12.5 1500 -7.5 249 100250 423000 moving night restricted"},
        {"set Car.Gear P", "P 12.5 1500 -7.5 249 100250 423000 moving night"},
        {"quit", " NaN 1500 -7.5 249 100250 423000 moving night away restricted"},
        {"", " NaN 1500 -7.5 249 100250 423000 moving night restricted"},
        {"set Vehicle.Cabin.Lights.IsNight no", " NaN 1500 -7.5 249 100250 423000 moving night restricted"},
        {"set Car.Gear P", "P NaN 1500 -7.5 249 100250 423000 moving night"},
        {"set Vehicle.Speed 3.5", "P 3.5 1500 -7.5 249 100250 423000 moving night"},
    };
    for (const auto& [command, line] : rows) {
        if (command.isEmpty())
            simulator = std::make_unique<Simulator>(socket);
        else
            simulator->command(command);
        EXPECT_TRUE(waitUntil([&, text = line] { return screen->property("line") == QLatin1String(text); }))
            << command.constData() << ": " << screen->property("line").toString().toStdString();
    }
}
