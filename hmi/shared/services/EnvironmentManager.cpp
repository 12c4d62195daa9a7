#include <hmi/shared/services/EnvironmentManager.h>

namespace Hmi::Shared {

void EnvironmentManager::completeStartup()
{
    if (!mDelayStartup)
        return;
    mDelayStartup = false;
    emit delayCompleted();
}

} // namespace Hmi::Shared
