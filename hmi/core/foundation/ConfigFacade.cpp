#include <hmi/core/foundation/ConfigFacade.h>

#include <hmi/core/foundation/ConfigManager.h>

namespace Hmi::Core {

void ConfigFacade::addPath(const QString& aKey, const QString& aDefault)
{
    ConfigManager::instance()->registerDefault(aKey, aDefault, true);
}

void ConfigFacade::addValue(const QString& aKey, const QVariant& aDefault)
{
    ConfigManager::instance()->registerDefault(aKey, aDefault, false);
}

bool ConfigFacade::flag(const QString& aKey)
{
    return ConfigManager::instance()->value(aKey, false).toBool();
}

int ConfigFacade::number(const QString& aKey)
{
    return ConfigManager::instance()->value(aKey, false).toInt();
}

QString ConfigFacade::text(const QString& aKey)
{
    return ConfigManager::instance()->text(aKey, false);
}

QString ConfigFacade::path(const QString& aKey)
{
    return ConfigManager::instance()->text(aKey, true);
}

} // namespace Hmi::Core
