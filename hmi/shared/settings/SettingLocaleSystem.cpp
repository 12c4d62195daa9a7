#include <hmi/shared/settings/SettingLocaleSystem.h>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

SettingLocaleSystem::SettingLocaleSystem(QObject* aParent) : SettingLocale(aParent) {}

QVariant SettingLocaleSystem::getValue()
{
    if (!isLoaded()) {
        install(QLocale::system());
        load(currentLocale().name());
    }
    return currentValue();
}

bool SettingLocaleSystem::restoreDefault() { return true; }

bool SettingLocaleSystem::setValue(const QVariant& aValue)
{
    qCWarning(hmiShared, "The locale setting should only be modified at run-time by operating system calls.");
    if (aValue == getValue())
        return false;
    load(aValue);
    emit valueChanged(aValue);
    return true;
}

bool SettingLocaleSystem::setLocaleForTest(const QLocale& a_newLocale)
{
    qCWarning(hmiShared, "The locale setting should not be modified at run-time because it is defined by the "
                         "operating system. This method should be called for testing purposes only.");
    if (a_newLocale.name() == currentLocale().name())
        return false;
    install(a_newLocale);
    load(a_newLocale.name());
    emit localeValueChanged();
    emit valueChanged(currentValue());
    return true;
}

} // namespace Hmi::Shared
