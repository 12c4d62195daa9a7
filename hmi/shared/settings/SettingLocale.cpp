#include <hmi/shared/settings/SettingLocale.h>

#include <QJsonObject>

#include <hmi/shared/settings/SharedSettings.h>

namespace Hmi::Shared {

SettingLocale::SettingLocale(QObject* aParent) :
    Setting(QStringLiteral("SettingsSharedLocale"), QStringLiteral("locale"), SettingTypeString,
            SharedSettings::defaults().value(QLatin1String("languageText")).toString(), true,
            SettingCategoryGlobal, aParent)
{
    connect(this, &Setting::valueChanged, this, &SettingLocale::onSettingValueChanged);
}

QVariant SettingLocale::getValue()
{
    QVariant value = Setting::getValue();
    onSettingValueChanged();
    return value;
}

QLocale SettingLocale::localeValue()
{
    if (!isLoaded())
        getValue();
    return mLocale;
}

void SettingLocale::onSettingValueChanged()
{
    const QString name = currentValue().toString();
    const QLocale locale(name);
    // "en" stands for "en_US": compared by name alone, each read would be a change.
    if (name == mLocale.name() || (locale == mLocale && locale == QLocale()))
        return;
    install(locale);
    emit localeValueChanged();
}

void SettingLocale::install(const QLocale& aLocale)
{
    mLocale = aLocale;
    QLocale::setDefault(aLocale);
}

} // namespace Hmi::Shared
