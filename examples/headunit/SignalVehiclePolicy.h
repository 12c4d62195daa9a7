#pragma once

#include <QString>
#include <QVariant>
#include <QtNumeric>
#include <memory>

#include <hmi/shared/vehicle/OdometerDistanceRecorder.h>
#include <hmi/shared/vehicle/RestrictedModePolicyVehicleGear.h>
#include <hmi/shared/vehicle/VehicleInformationPolicy.h>

class VehicleSignalConfigs;

namespace SignalService {
class TransportProxy;
}

/**
 * This product's vehicle: the live values come from the vehicle signal service, under the paths of the
 * configuration. A value that is not valid, or not of the expected type, which is a warning, leaves the last
 * one of odometer, range, movement and night; the others are then unknown. So are gear and speed when the
 * line to the service is lost; an unknown gear, once there was one, means restricted mode.
 *
 * The odometer is in metres, 0 until it is known. Main thread only.
 */
class SignalVehiclePolicy : public Hmi::Shared::VehicleInformationPolicy
{
    Q_OBJECT
    /** Whether the line to the signal service stands. */
    Q_PROPERTY(bool online READ getOnline NOTIFY onlineChanged)
    /** As the vehicle sends it, "P" for park; empty while it is not known. */
    Q_PROPERTY(QString gear READ getGear NOTIFY gearChanged)
    // Not a number while they are not known.
    /** Kilometres per hour. */
    Q_PROPERTY(double speed READ getSpeed NOTIFY speedChanged)
    /** Metres, of the vehicle's own trip meter. */
    Q_PROPERTY(double tripDistance READ getTripDistance NOTIFY tripDistanceChanged)
    /** Degrees Celsius. */
    Q_PROPERTY(double airTemperature READ getAirTemperature NOTIFY airTemperatureChanged)
    /** Metres driven since the odometer was first read. */
    Q_PROPERTY(double drivenDistance READ getDrivenDistance NOTIFY odometerChanged)
    Q_PROPERTY(bool night READ getNight NOTIFY nightChanged)

public:
    /** Without a transport (the signal service is not enabled) the values stay unknown. */
    SignalVehiclePolicy(const std::shared_ptr<SignalService::TransportProxy>& aTransport,
                        const VehicleSignalConfigs& aSignals, QObject* aParent = nullptr);

    bool getOnline() const { return mOnline; }
    QString getGear() const { return mGear; }
    double getSpeed() const { return mSpeed; }
    double getTripDistance() const { return mTripDistance; }
    double getAirTemperature() const { return mAirTemperature; }
    double getDrivenDistance();
    bool getNight() const { return mNight; }

    /** Restricted whenever the gear is not park; lives as long as this object. */
    Hmi::Shared::RestrictedModePolicyVehicleGear* getRestrictedModePolicy() { return &mRestrictedModePolicy; }

signals:
    void onlineChanged();
    void gearChanged();
    void speedChanged();
    void tripDistanceChanged();
    void airTemperatureChanged();
    void nightChanged();

private:
    /** Takes a value, invalid where the vehicle has none; false when it is of another type. */
    using Take = bool (SignalVehiclePolicy::*)(const QVariant& aValue);
    using Signal = void (SignalVehiclePolicy::*)();

    void follow(const QString& aPath, Take aTake);
    void setOnline(bool aOnline);
    bool assignNumber(double& aField, const QVariant& aValue, double aFactor, Signal aChanged);
    bool takeOdometer(const QVariant& aValue);
    bool takeTrip(const QVariant& aValue);
    bool takeFuelRange(const QVariant& aValue);
    bool takeSpeed(const QVariant& aValue);
    bool takeVehicleMoving(const QVariant& aValue);
    bool takeGear(const QVariant& aValue);
    bool takeAirTemperature(const QVariant& aValue);
    bool takeNight(const QVariant& aValue);

    const std::shared_ptr<SignalService::TransportProxy> mTransport;
    Hmi::Shared::RestrictedModePolicyVehicleGear mRestrictedModePolicy;
    Hmi::Shared::OdometerDistanceRecorder mDriven;
    bool mOdometerRead = false;
    bool mOnline = false;
    QString mGear;
    double mSpeed = qQNaN();
    double mTripDistance = qQNaN();
    double mAirTemperature = qQNaN();
    bool mNight = false;
};
