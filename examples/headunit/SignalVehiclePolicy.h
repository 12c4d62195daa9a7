#pragma once

#include <QString>
#include <QVariant>
#include <memory>

#include <hmi/shared/vehicle/RestrictedModePolicyVehicleGear.h>
#include <hmi/shared/vehicle/VehicleInformationPolicy.h>

class VehicleSignalConfigs;

namespace SignalService {
class TransportProxy;
}

/**
 * This product's vehicle: the live values come from the vehicle signal service, under the paths of the
 * configuration. A value that is not valid, or not of the expected type, which is a warning, leaves the last
 * one; only the gear is then unknown, so that restricted mode is on.
 *
 * The odometer is in metres. Main thread only.
 */
class SignalVehiclePolicy : public Hmi::Shared::VehicleInformationPolicy
{
    Q_OBJECT
    /** As the vehicle sends it, "P" for park; empty while it is not known. */
    Q_PROPERTY(QString gear READ getGear NOTIFY gearChanged)

public:
    /** Without a transport (the signal service is not enabled) the values stay unknown. */
    SignalVehiclePolicy(const std::shared_ptr<SignalService::TransportProxy>& aTransport,
                        const VehicleSignalConfigs& aSignals, QObject* aParent = nullptr);

    QString getGear() const { return mGear; }

    /** Restricted whenever the gear is not park; lives as long as this object. */
    Hmi::Shared::RestrictedModePolicyVehicleGear* getRestrictedModePolicy() { return &mRestrictedModePolicy; }

signals:
    void gearChanged();

private:
    /** Takes a value, invalid where the vehicle has none; false when it is of another type. */
    using Take = bool (SignalVehiclePolicy::*)(const QVariant& aValue);

    void follow(const QString& aPath, Take aTake);
    bool takeOdometer(const QVariant& aValue);
    bool takeFuelRange(const QVariant& aValue);
    bool takeVehicleMoving(const QVariant& aValue);
    bool takeGear(const QVariant& aValue);

    const std::shared_ptr<SignalService::TransportProxy> mTransport;
    Hmi::Shared::RestrictedModePolicyVehicleGear mRestrictedModePolicy;
    QString mGear;
};
