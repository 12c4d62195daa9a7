#include <hmi/shared/vehicle/RestrictedModePolicyVehicleGear.h>

namespace Hmi::Shared {

void RestrictedModePolicyVehicleGear::handleSignalServiceGearStatus(const QString& aValue)
{
    mRestrictedModeOn = aValue != QLatin1String("P");
    emit modeChanged(mRestrictedModeOn);
}

} // namespace Hmi::Shared
