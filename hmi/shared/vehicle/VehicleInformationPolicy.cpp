#include <hmi/shared/vehicle/VehicleInformationPolicy.h>

#include <QMetaEnum>
#include <QMetaType>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

static const char* nameOf(bool aValue) { return aValue ? "true" : "false"; }

template <class Enumeration>
static const char* nameOf(Enumeration aValue)
{
    return QMetaEnum::fromType<Enumeration>().valueToKey(aValue);
}

VehicleInformationPolicy::VehicleInformationPolicy(QObject* aParent) : QObject(aParent)
{
    qRegisterMetaType<DriveType>("DriveType");
    qRegisterMetaType<FuelType>("FuelType");
    qRegisterMetaType<FuelWarning>("FuelWarning");
    qRegisterMetaType<EvConnector>("EvConnector");
}

template <class T>
void VehicleInformationPolicy::assign(T& aField, const T& aValue, Signal aChanged)
{
    assign(aField, aValue, aChanged, [] {});
}

/** Says what is new between storing it and telling. */
template <class T, class Say>
void VehicleInformationPolicy::assign(T& aField, const T& aValue, Signal aChanged, Say aSay)
{
    if (aField == aValue)
        return;
    aField = aValue;
    aSay();
    emit(this->*aChanged)();
}

QVariantList VehicleInformationPolicy::getEvConnectors() const
{
    QVariantList connectors;
    for (const int connector : mEvConnectors)
        connectors.append(QVariant::fromValue(static_cast<EvConnector>(connector)));
    return connectors;
}

QStringList VehicleInformationPolicy::getUsbMemoryFilePatterns()
{
    if (mUsbMemoryFilePatterns.isEmpty())
        mUsbMemoryFilePatterns.append(QStringLiteral("*.v3d"));
    return mUsbMemoryFilePatterns;
}

void VehicleInformationPolicy::setAirDrag(float aAirDrag)
{
    assign(mAirDrag, aAirDrag, &VehicleInformationPolicy::airDragChanged);
}

void VehicleInformationPolicy::setBatteryChargeLevelTarget(int aBatteryChargeLevelTarget)
{
    assign(mBatteryChargeLevelTarget, aBatteryChargeLevelTarget,
           &VehicleInformationPolicy::batteryChargeLevelTargetChanged,
           [&] { qCInfo(hmiShared, "New battery charge level target is: %d", aBatteryChargeLevelTarget); });
}

void VehicleInformationPolicy::setDriveType(DriveType aDriveType)
{
    assign(mDriveType, aDriveType, &VehicleInformationPolicy::driveTypeChanged);
}

void VehicleInformationPolicy::setEvConnectorsQml(const QList<int>& aEvConnectors)
{
    assign(mEvConnectors, aEvConnectors, &VehicleInformationPolicy::evConnectorsChanged);
}

void VehicleInformationPolicy::setEngineEfficiency(float aEngineEfficiency)
{
    assign(mEngineEfficiency, aEngineEfficiency, &VehicleInformationPolicy::engineEfficiencyChanged);
}

void VehicleInformationPolicy::setFrontalArea(float aFrontalArea)
{
    assign(mFrontalArea, aFrontalArea, &VehicleInformationPolicy::frontalAreaChanged);
}

void VehicleInformationPolicy::setFuelRange(float aFuelRange)
{
    assign(mFuelRange, aFuelRange, &VehicleInformationPolicy::fuelRangeChanged,
           [&] { qCInfo(hmiShared, "New fuel range is: %g meters", static_cast<double>(aFuelRange)); });
}

void VehicleInformationPolicy::setFuelType(FuelType aFuelType)
{
    assign(mFuelType, aFuelType, &VehicleInformationPolicy::fuelTypeChanged,
           [&] { qCInfo(hmiShared, "New Fuel type is: %s", nameOf(aFuelType)); });
}

void VehicleInformationPolicy::setFuelWarning(FuelWarning aFuelWarning)
{
    assign(mFuelWarning, aFuelWarning, &VehicleInformationPolicy::fuelWarningChanged,
           [&] { qCInfo(hmiShared, "New Fuel warning is: %s", nameOf(aFuelWarning)); });
}

void VehicleInformationPolicy::setHasRefueled(bool aHasRefueled)
{
    assign(mHasRefueled, aHasRefueled, &VehicleInformationPolicy::hasRefueledChanged,
           [&] { qCInfo(hmiShared, "New has refueled is:%s", nameOf(aHasRefueled)); });
}

void VehicleInformationPolicy::setMaxBatteryCapacity(int aMaxBatteryCapacity)
{
    assign(mMaxBatteryCapacity, aMaxBatteryCapacity, &VehicleInformationPolicy::maxBatteryCapacityChanged,
           [&] { qCInfo(hmiShared, "New Max battery capacity is: %d", aMaxBatteryCapacity); });
}

void VehicleInformationPolicy::setMaxTravelRange(int aMaxTravelRange)
{
    if (mMaxTravelRange != aMaxTravelRange)
        qCInfo(hmiShared, "New Max EV range is: %d", aMaxTravelRange);
    assign(mMaxTravelRange, aMaxTravelRange, &VehicleInformationPolicy::maxTravelRangeChanged);
}

void VehicleInformationPolicy::setOemHardwarePartNumber(const QString& aNewValue)
{
    assign(mOemHardwarePartNumber, aNewValue, &VehicleInformationPolicy::oemHardwarePartNumberChanged);
}

void VehicleInformationPolicy::setOemHardwareVersion(const QString& aNewValue)
{
    assign(mOemHardwareVersion, aNewValue, &VehicleInformationPolicy::oemHardwareVersionChanged);
}

void VehicleInformationPolicy::setOemSoftwarePartNumber(const QString& aNewValue)
{
    assign(mOemSoftwarePartNumber, aNewValue, &VehicleInformationPolicy::oemSoftwarePartNumberChanged);
}

void VehicleInformationPolicy::setOemSoftwareVersion(const QString& aNewValue)
{
    assign(mOemSoftwareVersion, aNewValue, &VehicleInformationPolicy::oemSoftwareVersionChanged);
}

void VehicleInformationPolicy::setRollResistance(float aRollResistance)
{
    assign(mRollResistance, aRollResistance, &VehicleInformationPolicy::rollResistanceChanged);
}

void VehicleInformationPolicy::setVehicleIdentificationNumber(const QString& aVin)
{
    assign(mVehicleIdentificationNumber, aVin, &VehicleInformationPolicy::vehicleIdentificationNumberChanged);
}

void VehicleInformationPolicy::setVehicleWeight(float aVehicleWeight)
{
    assign(mVehicleWeight, aVehicleWeight, &VehicleInformationPolicy::vehicleWeightChanged);
}

void VehicleInformationPolicy::setIsAdasRequired(bool aIsAdasRequired)
{
    assign(mIsAdasRequired, aIsAdasRequired, &VehicleInformationPolicy::isAdasRequiredChanged,
           [&] { qCInfo(hmiShared, "New ADAS required status is: %s", nameOf(aIsAdasRequired)); });
}

void VehicleInformationPolicy::setMarketRegionDefault(const QString& aMarketRegionDefault)
{
    assign(
        mMarketRegionDefault, aMarketRegionDefault, &VehicleInformationPolicy::marketRegionDefaultChanged,
        [&] { qCInfo(hmiShared, "New market region default is: %s", qUtf8Printable(aMarketRegionDefault)); });
}

void VehicleInformationPolicy::setMarketRegions(const QStringList& aMarketRegions)
{
    assign(mMarketRegions, aMarketRegions, &VehicleInformationPolicy::marketRegionsChanged);
}

void VehicleInformationPolicy::setMemoryThresholdReached(bool aMemoryThresholdReached)
{
    assign(mMemoryThresholdReached, aMemoryThresholdReached,
           &VehicleInformationPolicy::memoryThresholdReachedChanged);
}

void VehicleInformationPolicy::setOdometer(qint64 aOdometer)
{
    assign(mOdometer, aOdometer, &VehicleInformationPolicy::odometerChanged);
}

void VehicleInformationPolicy::setUnitId(quint32 aUnitId)
{
    assign(mUnitId, aUnitId, &VehicleInformationPolicy::unitIdChanged);
}

void VehicleInformationPolicy::setUsbMemoryPath(const QString& aUsbMemoryPath)
{
    assign(mUsbMemoryPath, aUsbMemoryPath, &VehicleInformationPolicy::usbMemoryPathChanged);
}

void VehicleInformationPolicy::setVehicleMoving(bool aVehicleMoving)
{
    assign(mVehicleMoving, aVehicleMoving, &VehicleInformationPolicy::vehicleMovingChanged);
}

} // namespace Hmi::Shared
