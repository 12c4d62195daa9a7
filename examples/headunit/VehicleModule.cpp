#include "VehicleModule.h"

#include "VehicleSignalConfigs.h"
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/signal-service/SharedTransport.h>

using Hmi::Core::RestrictedModeManager;

bool VehicleModule::initialize()
{
    mPolicy =
        std::make_unique<SignalVehiclePolicy>(Hmi::Shared::SignalService::sharedTransport(),
                                              VehicleSignalConfigs(*Hmi::Core::ConfigManager::instance()));
    RestrictedModeManager::instance()->setPolicy(mPolicy->getRestrictedModePolicy());
    return true;
}

void VehicleModule::deInitialize()
{
    RestrictedModeManager::instance()->setPolicy(nullptr);
    mPolicy.reset();
}
