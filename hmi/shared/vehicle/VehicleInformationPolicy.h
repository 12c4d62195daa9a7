#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>

namespace Hmi::Shared {

/**
 * What the HMI knows of the vehicle that it is built into. A product derives its own policy and feeds it,
 * from the vehicle's signals or from fixed data; screens bind to the properties. The getters are virtual, so
 * that a value may come from elsewhere than the field; who overrides one emits its signal.
 *
 * A setter that gets the value it has does nothing; any other value is stored and told once. -1 stands for a
 * number that is not known yet. Main thread only.
 */
class Q_DECL_EXPORT VehicleInformationPolicy : public QObject
{
    Q_OBJECT
    Q_PROPERTY(float airDrag READ getAirDrag NOTIFY airDragChanged)
    Q_PROPERTY(
        int batteryChargeLevelTarget READ getBatteryChargeLevelTarget NOTIFY batteryChargeLevelTargetChanged)
    Q_PROPERTY(DriveType driveType READ getDriveType NOTIFY driveTypeChanged)
    Q_PROPERTY(float engineEfficiency READ getEngineEfficiency NOTIFY engineEfficiencyChanged)
    /** Of EvConnector values, in the order in which they were set. */
    Q_PROPERTY(QVariantList evConnectors READ getEvConnectors NOTIFY evConnectorsChanged)
    Q_PROPERTY(float frontalArea READ getFrontalArea NOTIFY frontalAreaChanged)
    /** Metres. */
    Q_PROPERTY(float fuelRange READ getFuelRange NOTIFY fuelRangeChanged)
    Q_PROPERTY(FuelType fuelType READ getFuelType NOTIFY fuelTypeChanged)
    Q_PROPERTY(FuelWarning fuelWarning READ getFuelWarning NOTIFY fuelWarningChanged)
    Q_PROPERTY(bool hasRefueled READ getHasRefueled NOTIFY hasRefueledChanged)
    Q_PROPERTY(bool isAdasRequired READ getIsAdasRequired NOTIFY isAdasRequiredChanged)
    Q_PROPERTY(QString marketRegionDefault READ getMarketRegionDefault NOTIFY marketRegionDefaultChanged)
    Q_PROPERTY(QStringList marketRegions READ getMarketRegions NOTIFY marketRegionsChanged)
    Q_PROPERTY(int maxBatteryCapacity READ getMaxBatteryCapacity NOTIFY maxBatteryCapacityChanged)
    Q_PROPERTY(int maxTravelRange READ getMaxTravelRange NOTIFY maxTravelRangeChanged)
    Q_PROPERTY(
        bool memoryThresholdReached READ getMemoryThresholdReached NOTIFY memoryThresholdReachedChanged)
    /** In the product's odometer unit, the same for all readings. */
    Q_PROPERTY(qlonglong odometer READ getOdometer NOTIFY odometerChanged)
    Q_PROPERTY(
        QString oemHardwarePartNumber READ getOemHardwarePartNumber NOTIFY oemHardwarePartNumberChanged)
    Q_PROPERTY(QString oemHardwareVersion READ getOemHardwareVersion NOTIFY oemHardwareVersionChanged)
    Q_PROPERTY(
        QString oemSoftwarePartNumber READ getOemSoftwarePartNumber NOTIFY oemSoftwarePartNumberChanged)
    Q_PROPERTY(QString oemSoftwareVersion READ getOemSoftwareVersion NOTIFY oemSoftwareVersionChanged)
    Q_PROPERTY(float rollResistance READ getRollResistance NOTIFY rollResistanceChanged)
    Q_PROPERTY(quint32 unitId READ getUnitId NOTIFY unitIdChanged)
    /** Empty unless a product's policy answers getUsbMemoryPath(). */
    Q_PROPERTY(QString usbMemoryPath READ getUsbMemoryPath NOTIFY usbMemoryPathChanged)
    Q_PROPERTY(QString vehicleIdentificationNumber READ getVehicleIdentificationNumber NOTIFY
                   vehicleIdentificationNumberChanged)
    Q_PROPERTY(bool vehicleMoving READ getVehicleMoving NOTIFY vehicleMovingChanged)
    Q_PROPERTY(float vehicleWeight READ getVehicleWeight NOTIFY vehicleWeightChanged)

public:
    enum DriveType {
        DriveTypeUnknown,
        DriveTypeAwd,
        DriveTypeDuallyTwoWd,
        DriveTypeDuallyFourWd,
        DriveTypeFourWd,
        DriveTypeFwd,
        DriveTypeRwd
    };
    Q_ENUM(DriveType)

    enum FuelWarning { FuelWarningNone, FuelWarningLow, FuelWarningCritical };
    Q_ENUM(FuelWarning)

    enum FuelType {
        FuelTypeUnknown,
        FuelTypeGasoline,
        FuelTypeDiesel,
        FuelTypeCompressedNaturalGas,
        FuelTypeElectricity,
        FuelTypeHydrogen,
        FuelTypePetrolRegular,
        FuelTypePetrolMidGrade,
        FuelTypePetrolPremium,
        FuelTypePetrolLeaded,
        FuelTypeE85,
        FuelTypeDieselPlus,
        FuelTypeTruckDiesel,
        FuelTypeBioDiesel,
        FuelTypeGas,
        FuelTypeLiquidPetroleumGas
    };
    Q_ENUM(FuelType)

    enum EvConnector {
        EvConnectorUnknown,
        EvConnectorTesla,
        EvConnectorDomestic,
        EvConnectorJEVS,
        EvConnectorIEC621962TYPE1,
        EvConnectorIEC621962TYPE2,
        EvConnectorIEC621962TYPE3,
        EvConnectorCCSType1,
        EvConnectorCCSType2,
        EvConnectorGBT202342,
        EvConnectorGBT202343,
        EvConnectorMarechal
    };
    Q_ENUM(EvConnector)

    explicit VehicleInformationPolicy(QObject* aParent = nullptr);

    virtual float getAirDrag() const { return mAirDrag; }
    virtual int getBatteryChargeLevelTarget() const { return mBatteryChargeLevelTarget; }
    virtual DriveType getDriveType() const { return mDriveType; }
    virtual float getEngineEfficiency() const { return mEngineEfficiency; }
    virtual QVariantList getEvConnectors() const;
    virtual float getFrontalArea() const { return mFrontalArea; }
    virtual float getFuelRange() const { return mFuelRange; }
    virtual FuelType getFuelType() const { return mFuelType; }
    virtual FuelWarning getFuelWarning() const { return mFuelWarning; }
    virtual bool getHasRefueled() const { return mHasRefueled; }
    virtual bool getIsAdasRequired() const { return mIsAdasRequired; }
    virtual QString getMarketRegionDefault() const { return mMarketRegionDefault; }
    virtual QStringList getMarketRegions() const { return mMarketRegions; }
    virtual int getMaxBatteryCapacity() const { return mMaxBatteryCapacity; }
    virtual int getMaxTravelRange() const { return mMaxTravelRange; }
    virtual bool getMemoryThresholdReached() const { return mMemoryThresholdReached; }
    virtual quint64 getOdometer() const { return static_cast<quint64>(mOdometer); }
    virtual QString getOemHardwarePartNumber() const { return mOemHardwarePartNumber; }
    virtual QString getOemHardwareVersion() const { return mOemHardwareVersion; }
    virtual QString getOemSoftwarePartNumber() const { return mOemSoftwarePartNumber; }
    virtual QString getOemSoftwareVersion() const { return mOemSoftwareVersion; }
    virtual float getRollResistance() const { return mRollResistance; }
    virtual quint32 getUnitId() const { return mUnitId; }
    virtual QString getUsbMemoryPath() const { return QString(); }
    virtual QString getVehicleIdentificationNumber() const { return mVehicleIdentificationNumber; }
    virtual bool getVehicleMoving() const { return mVehicleMoving; }
    virtual float getVehicleWeight() const { return mVehicleWeight; }

    /** Where to look for files on the USB memory, and their name patterns: "*.v3d" unless a product adds
     * some. */
    virtual QStringList getUsbMemoryPaths() const { return {getUsbMemoryPath()}; }
    virtual QStringList getUsbMemoryFilePatterns();

    /** Answers that products override. */
    Q_INVOKABLE virtual bool isIgnoreTsrRegion() const { return false; }
    Q_INVOKABLE virtual bool isFoursquareSupported() const { return true; }
    Q_INVOKABLE virtual bool isTrafficMarketRegion() const { return true; }

    Q_INVOKABLE void setAirDrag(float aAirDrag);
    Q_INVOKABLE void setBatteryChargeLevelTarget(int aBatteryChargeLevelTarget);
    Q_INVOKABLE void setDriveType(Hmi::Shared::VehicleInformationPolicy::DriveType aDriveType);
    /** Takes the numbers of EvConnector. */
    Q_INVOKABLE void setEvConnectorsQml(const QList<int>& aEvConnectors);
    Q_INVOKABLE void setEngineEfficiency(float aEngineEfficiency);
    Q_INVOKABLE void setFrontalArea(float aFrontalArea);
    Q_INVOKABLE void setFuelRange(float aFuelRange);
    Q_INVOKABLE void setFuelType(Hmi::Shared::VehicleInformationPolicy::FuelType aFuelType);
    Q_INVOKABLE void setFuelWarning(Hmi::Shared::VehicleInformationPolicy::FuelWarning aFuelWarning);
    Q_INVOKABLE void setHasRefueled(bool aHasRefueled);
    Q_INVOKABLE void setMaxBatteryCapacity(int aMaxBatteryCapacity);
    Q_INVOKABLE void setMaxTravelRange(int aMaxTravelRange);
    Q_INVOKABLE void setOemHardwarePartNumber(const QString& aNewValue);
    Q_INVOKABLE void setOemHardwareVersion(const QString& aNewValue);
    Q_INVOKABLE void setOemSoftwarePartNumber(const QString& aNewValue);
    Q_INVOKABLE void setOemSoftwareVersion(const QString& aNewValue);
    Q_INVOKABLE void setRollResistance(float aRollResistance);
    Q_INVOKABLE void setVehicleIdentificationNumber(const QString& aVin);
    Q_INVOKABLE void setVehicleWeight(float aVehicleWeight);

    // For who feeds live data; screens do not set these.
    void setIsAdasRequired(bool aIsAdasRequired);
    void setMarketRegionDefault(const QString& aMarketRegionDefault);
    void setMarketRegions(const QStringList& aMarketRegions);
    void setMemoryThresholdReached(bool aMemoryThresholdReached);
    void setOdometer(qint64 aOdometer);
    void setUnitId(quint32 aUnitId);
    /** Tells of the path that the product's getUsbMemoryPath() answers. */
    void setUsbMemoryPath(const QString& aUsbMemoryPath);
    void setVehicleMoving(bool aVehicleMoving);

signals:
    void airDragChanged();
    void batteryChargeLevelTargetChanged();
    void driveTypeChanged();
    void evConnectorsChanged();
    void engineEfficiencyChanged();
    void frontalAreaChanged();
    void fuelRangeChanged();
    void fuelTypeChanged();
    void fuelWarningChanged();
    void hasRefueledChanged();
    void isAdasRequiredChanged();
    void marketRegionDefaultChanged();
    void marketRegionsChanged();
    void maxBatteryCapacityChanged();
    void maxTravelRangeChanged();
    void memoryThresholdReachedChanged();
    void odometerChanged();
    void oemHardwarePartNumberChanged();
    void oemHardwareVersionChanged();
    void oemSoftwarePartNumberChanged();
    void oemSoftwareVersionChanged();
    void rollResistanceChanged();
    void unitIdChanged();
    void usbMemoryPathChanged();
    void vehicleIdentificationNumberChanged();
    void vehicleMovingChanged();
    void vehicleWeightChanged();

private:
    using Signal = void (VehicleInformationPolicy::*)();

    template <class T>
    void assign(T& aField, const T& aValue, Signal aChanged);
    template <class T, class Say>
    void assign(T& aField, const T& aValue, Signal aChanged, Say aSay);

    float mAirDrag = -1.0F;
    int mBatteryChargeLevelTarget = -1;
    DriveType mDriveType = DriveTypeUnknown;
    QList<int> mEvConnectors;
    float mEngineEfficiency = -1.0F;
    float mFrontalArea = -1.0F;
    float mFuelRange = -1.0F;
    FuelType mFuelType = FuelTypeUnknown;
    FuelWarning mFuelWarning = FuelWarningNone;
    bool mHasRefueled = false;
    bool mIsAdasRequired = false;
    QString mMarketRegionDefault;
    QStringList mMarketRegions;
    int mMaxBatteryCapacity = -1;
    int mMaxTravelRange = -1;
    bool mMemoryThresholdReached = false;
    qint64 mOdometer = 0;
    QString mOemHardwarePartNumber;
    QString mOemHardwareVersion;
    QString mOemSoftwarePartNumber;
    QString mOemSoftwareVersion;
    float mRollResistance = -1.0F;
    quint32 mUnitId = 0;
    QString mUsbMemoryPath;
    QStringList mUsbMemoryFilePatterns;
    QString mVehicleIdentificationNumber;
    bool mVehicleMoving = false;
    float mVehicleWeight = -1.0F;
};

} // namespace Hmi::Shared
