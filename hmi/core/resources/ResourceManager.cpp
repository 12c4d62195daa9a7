#include <hmi/core/resources/ResourceManager.h>

#include <QCoreApplication>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

ResourceManager::ResourceManager() :
    mRegistry(HmiCoreConfigs::instance()->getThemesPath(), QCoreApplication::applicationDirPath())
{}

} // namespace Hmi::Core
