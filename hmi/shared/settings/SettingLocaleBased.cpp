#include <hmi/shared/settings/SettingLocaleBased.h>

namespace Hmi::Shared {

SettingLocaleBased::SettingLocaleBased(const QString& aKey, const QString& aName, SettingType aType,
                                       const QVariant& aDefault, SettingCategory aCategory,
                                       QObject* aParent) :
    Setting(aKey, aName, aType, aDefault, aCategory, aParent)
{}

QVariant SettingLocaleBased::getValue()
{
    if (!isLoaded())
        load(getValueDefault());
    return currentValue();
}

bool SettingLocaleBased::restoreDefault() { return true; }

bool SettingLocaleBased::setValue(const QVariant& aValue)
{
    if (aValue == getValue())
        return false;
    load(aValue);
    emit valueChanged(aValue);
    return true;
}

} // namespace Hmi::Shared
