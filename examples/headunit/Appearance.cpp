#include "Appearance.h"

#include "SignalVehiclePolicy.h"
#include <hmi/core/language/LanguageManager.h>
#include <hmi/core/view/ThemeManager.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/settings/SettingsManager.h>

using Hmi::Shared::Setting;
using Hmi::Shared::SettingsManager;

static const QString sLanguageName = QStringLiteral("languageText");
static const QString sThemeName = QStringLiteral("theme");

void Appearance::setVehicle(const SignalVehiclePolicy* aVehicle)
{
    if (mVehicle)
        mVehicle->disconnect(this);
    mVehicle = aVehicle;
    if (mVehicle)
        connect(mVehicle, &SignalVehiclePolicy::nightChanged, this, &Appearance::applyTheme);
}

bool Appearance::initialize()
{
    SettingsManager* const settings = SettingsManager::instance();
    settings->addSetting(new Setting(QStringLiteral("HeadUnitTheme"), sThemeName, Setting::SettingTypeInt,
                                     int(ThemeAutomatic), Setting::SettingCategoryUser));
    connect(settings->getSetting(sLanguageName), &Setting::valueChanged, this, &Appearance::applyLanguage);
    connect(settings->getSetting(sThemeName), &Setting::valueChanged, this, &Appearance::applyTheme);
    applyLanguage();
    applyTheme();
    return true;
}

void Appearance::deInitialize()
{
    setVehicle(nullptr);
    for (const QString& name : {sLanguageName, sThemeName})
        SettingsManager::instance()->getSetting(name)->disconnect(this);
}

void Appearance::applyLanguage()
{
    Hmi::Core::LanguageManager::instance()->setCurrentLanguage(
        SettingsManager::instance()->getSettingValue(sLanguageName).toString());
}

void Appearance::applyTheme()
{
    const int theme = SettingsManager::instance()->getSettingValue(sThemeName).toInt();
    const bool isNight = theme == ThemeNight || (theme != ThemeDay && mVehicle && mVehicle->getNight());
    Hmi::Core::ThemeManager::instance()->setCurrentTheme(isNight ? QStringLiteral("night")
                                                                 : QStringLiteral("day"));
}
