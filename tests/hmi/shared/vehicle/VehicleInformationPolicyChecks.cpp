#include <hmi/shared/vehicle/VehicleInformationPolicy.h>

#include <QMetaProperty>
#include <QSignalSpy>
#include <climits>
#include <functional>
#include <gtest/gtest.h>

#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/vehicle/OdometerDistanceRecorder.h>
#include <hmi/shared/vehicle/RestrictedModePolicyVehicleGear.h>

using Hmi::Shared::OdometerDistanceRecorder;
using Hmi::Shared::RestrictedModePolicyVehicleGear;
using Policy = Hmi::Shared::VehicleInformationPolicy;

namespace {

struct Row
{
    const char* property;
    QVariant first;
    QVariant then;
    std::function<void(Policy&)> set;
};

QString text(const char* aText) { return QString::fromLatin1(aText); }

const Row rows[] = {
    {"airDrag", -1.0F, 0.25F, [](Policy& p) { p.setAirDrag(0.25F); }},
    {"batteryChargeLevelTarget", -1, 80, [](Policy& p) { p.setBatteryChargeLevelTarget(80); }},
    {"driveType", 0, 6, [](Policy& p) { p.setDriveType(Policy::DriveTypeRwd); }},
    {"engineEfficiency", -1.0F, 0.5F, [](Policy& p) { p.setEngineEfficiency(0.5F); }},
    {"frontalArea", -1.0F, 2.5F, [](Policy& p) { p.setFrontalArea(2.5F); }},
    {"fuelRange", -1.0F, 120000.0F, [](Policy& p) { p.setFuelRange(120000.0F); }},
    {"fuelType", 0, 15, [](Policy& p) { p.setFuelType(Policy::FuelTypeLiquidPetroleumGas); }},
    {"fuelWarning", 0, 2, [](Policy& p) { p.setFuelWarning(Policy::FuelWarningCritical); }},
    {"hasRefueled", false, true, [](Policy& p) { p.setHasRefueled(true); }},
    {"isAdasRequired", false, true, [](Policy& p) { p.setIsAdasRequired(true); }},
    {"marketRegionDefault", QString(), text("EU"), [](Policy& p) { p.setMarketRegionDefault(text("EU")); }},
    {"marketRegions", QStringList(), QStringList{text("EU"), text("NA")},
     [](Policy& p) {
         p.setMarketRegions({text("EU"), text("NA")});
     }},
    {"maxBatteryCapacity", -1, 77, [](Policy& p) { p.setMaxBatteryCapacity(77); }},
    {"maxTravelRange", -1, 500, [](Policy& p) { p.setMaxTravelRange(500); }},
    {"memoryThresholdReached", false, true, [](Policy& p) { p.setMemoryThresholdReached(true); }},
    {"odometer", 0, qlonglong(1) << 40, [](Policy& p) { p.setOdometer(qint64(1) << 40); }},
    {"oemHardwarePartNumber", QString(), text("a"), [](Policy& p) { p.setOemHardwarePartNumber(text("a")); }},
    {"oemHardwareVersion", QString(), text("b"), [](Policy& p) { p.setOemHardwareVersion(text("b")); }},
    {"oemSoftwarePartNumber", QString(), text("c"), [](Policy& p) { p.setOemSoftwarePartNumber(text("c")); }},
    {"oemSoftwareVersion", QString(), text("d"), [](Policy& p) { p.setOemSoftwareVersion(text("d")); }},
    {"rollResistance", -1.0F, 0.5F, [](Policy& p) { p.setRollResistance(0.5F); }},
    {"unitId", 0, 4000000000U, [](Policy& p) { p.setUnitId(4000000000U); }},
    {"vehicleIdentificationNumber", QString(), text("v"),
     [](Policy& p) { p.setVehicleIdentificationNumber(text("v")); }},
    {"vehicleMoving", false, true, [](Policy& p) { p.setVehicleMoving(true); }},
    {"vehicleWeight", -1.0F, 1500.0F, [](Policy& p) { p.setVehicleWeight(1500.0F); }},
};

} // namespace

TEST(VehicleInformationPolicy, TellsEachNewValueOnce)
{
    for (const Row& row : rows) {
        Policy policy;
        const QMetaProperty property =
            policy.metaObject()->property(policy.metaObject()->indexOfProperty(row.property));
        QSignalSpy changed(&policy, property.notifySignal());
        EXPECT_EQ(property.read(&policy), row.first) << row.property;
        row.set(policy);
        row.set(policy);
        EXPECT_EQ(property.read(&policy), row.then) << row.property;
        EXPECT_EQ(changed.count(), 1) << row.property;
        EXPECT_FALSE(property.isWritable());
    }
}

TEST(VehicleInformationPolicy, ConvertsItsConnectors)
{
    Policy policy;
    QSignalSpy changed(&policy, &Policy::evConnectorsChanged);
    policy.setEvConnectorsQml({Policy::EvConnectorMarechal, Policy::EvConnectorTesla});
    policy.setEvConnectorsQml({11, 1});
    policy.setEvConnectorsQml({11});
    EXPECT_EQ(changed.count(), 2);
    ASSERT_EQ(policy.getEvConnectors().size(), 1);
    EXPECT_EQ(policy.getEvConnectors().first().value<Policy::EvConnector>(), Policy::EvConnectorMarechal);
    EXPECT_EQ(policy.getEvConnectors().first().userType(), QMetaType::type("EvConnector"));
}

TEST(VehicleInformationPolicy, LetsAProductAnswerForItself)
{
    struct Product : Policy
    {
        QString getUsbMemoryPath() const override { return text("/media/usb"); }
    } product;
    QSignalSpy changed(&product, &Policy::usbMemoryPathChanged);
    product.setUsbMemoryPath(text("/media/usb"));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(product.property("usbMemoryPath"), text("/media/usb"));
    EXPECT_EQ(product.getUsbMemoryPaths(), QStringList{text("/media/usb")});
    EXPECT_EQ(Policy().getUsbMemoryPath(), QString());
    EXPECT_EQ(product.getUsbMemoryFilePatterns(), QStringList{text("*.v3d")});
    EXPECT_EQ(product.getUsbMemoryFilePatterns().size(), 1) << "filled once";
}

TEST(OdometerDistance, IsWhatWasDrivenSinceTheResetAndNeverNegative)
{
    auto policy = std::make_unique<Policy>();
    OdometerDistanceRecorder recorder(policy.get());
    const struct
    {
        qint64 odometer;
        bool reset;
        float distance;
    } steps[] = {{1000, false, 1000}, {1000, true, 0}, {1015, false, 15}, {2000, false, 1000},
                 {2000, true, 0},     {500, false, 0}, {750, true, 0},    {1000, false, 250}};
    for (const auto& step : steps) {
        policy->setOdometer(step.odometer);
        if (step.reset) {
            EXPECT_EQ(recorder.resetDistance(), step.odometer);
        }
        EXPECT_EQ(recorder.getDistance(), step.distance) << step.odometer;
    }
    policy.reset();
    EXPECT_EQ(recorder.getDistance(), 0);
    EXPECT_EQ(recorder.resetDistance(), 0);
}

TEST(RestrictedModeByGear, IsOnInAnyGearButPark)
{
    RestrictedModePolicyVehicleGear gear;
    QSignalSpy told(&gear, &RestrictedModePolicyVehicleGear::modeChanged);
    Hmi::Core::RestrictedModeManager* const manager = Hmi::Core::RestrictedModeManager::instance();
    manager->setPolicy(&gear);
    QSignalSpy changed(manager, &Hmi::Core::RestrictedModeManager::modeChanged);
    EXPECT_FALSE(gear.isRestrictedModeOn());
    for (const char* status : {"D", "D", "P", "", "P", "p"}) {
        gear.handleSignalServiceGearStatus(text(status));
        EXPECT_EQ(gear.isRestrictedModeOn(), qstrcmp(status, "P") != 0) << status;
        EXPECT_EQ(manager->isRestrictedModeOn(), gear.isRestrictedModeOn());
    }
    EXPECT_EQ(told.count(), 6) << "each status";
    EXPECT_EQ(changed.count(), 5) << "each change";
    manager->setPolicy(nullptr);
}
