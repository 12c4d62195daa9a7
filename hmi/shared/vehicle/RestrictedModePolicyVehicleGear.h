#pragma once

#include <QString>

#include <hmi/core/view/RestrictedModePolicy.h>

namespace Hmi::Shared {

/**
 * Restricted mode by the gear: on whenever the transmission is anything but in park, off until the first
 * status arrives. It watches nothing by itself; whoever has the vehicle's transmission signal hands each
 * status on.
 */
class Q_DECL_EXPORT RestrictedModePolicyVehicleGear : public Core::RestrictedModePolicy
{
    Q_OBJECT

public:
    RestrictedModePolicyVehicleGear() = default;

    bool isRestrictedModeOn() const override { return mRestrictedModeOn; }

public slots:
    /** The status as the vehicle sends it; "P" is park. Tells the mode each time, also when it is the same.
     */
    void handleSignalServiceGearStatus(const QString& aValue);

private:
    bool mRestrictedModeOn = false;
};

} // namespace Hmi::Shared
