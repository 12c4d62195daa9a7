#include <hmi/core/foundation/ConfigFacade.h>

#include <hmi/core/foundation/ConfigManager.h>

namespace Hmi::Core {

void ConfigFacade::addPath(const QString& aKey, const QString& aDefault)
{
    mConfig.registerDefault(aKey, aDefault, true);
}

void ConfigFacade::addValue(const QString& aKey, const QVariant& aDefault)
{
    mConfig.registerDefault(aKey, aDefault, false);
}

bool ConfigFacade::hasValue(const QString& aKey) const { return mConfig.value(aKey, true).isValid(); }

bool ConfigFacade::flag(const QString& aKey) const { return mConfig.value(aKey, false).toBool(); }

/** By way of the text: QVariant cuts off what is too large for an int. */
int ConfigFacade::number(const QString& aKey) const { return mConfig.text(aKey, false).toInt(); }

QString ConfigFacade::text(const QString& aKey) const { return mConfig.text(aKey, false); }

QString ConfigFacade::path(const QString& aKey) const { return mConfig.text(aKey, true); }

} // namespace Hmi::Core
