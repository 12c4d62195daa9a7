#include <hmi/shared/settings/SharedSettings.h>

#include <QLocale>
#include <QMetaEnum>
#include <QVector>

#include <hmi/core/resources/HandleDefaultsResource.h>
#include <hmi/core/resources/ResourceManager.h>
#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/units/DateTimeFormat.h>
#include <hmi/shared/units/MeasurementUnits.h>

namespace Hmi::Shared::SharedSettings {

struct Row
{
    const char* name;
    const char* key;
    Setting::SettingType type;
    QVariant value;
};

template <class Unit>
static int findUnit(const QString& aName, const char* aQuantity)
{
    bool found = false;
    const int unit = QMetaEnum::fromType<Unit>().keyToValue(aName.toUtf8().constData(), &found);
    if (!found)
        qCWarning(hmiShared, " Not a valid %s unit: %s", aQuantity, qUtf8Printable(aName));
    return unit;
}

static QVector<Row> makeTable(const QJsonObject& aDefaults, const QLocale& aLocale)
{
    const auto text = [&](const char* aName) { return aDefaults.value(QLatin1String(aName)).toString(); };
    const int distance = findUnit<MeasurementUnits::UnitDistance>(text("distanceUnit"), "distance");
    const int temperature =
        findUnit<MeasurementUnits::UnitTemperature>(text("temperatureUnit"), "temperature");
    const QString language = aLocale.name();
    const bool isGeographicDataShown = aLocale.country() != QLocale::China;
    constexpr auto Bool = Setting::SettingTypeBool;
    constexpr auto Int = Setting::SettingTypeInt;
    constexpr auto String = Setting::SettingTypeString;
    return {
        {"manualTime", "SettingsManualTime", Bool, false},
        {"timeZoneDstOffset", "SettingsTimeZoneDstOffset", Int, 0},
        {"timeFormat", "SettingsTimeDateAndUnitsTimeFormat", String, text("timeFormat")},
        {"dateFormat", "SettingsTimeDateAndUnitsDateFormat", String,
         QString(DateTimeFormat::FormatMonthDayLongYear)},
        {"displayDeveloperPageEntry", "SettingsDisplayDeveloperPageEntry", Bool, false},
        {"displayFps", "SettingsDisplayFps", Bool, false},
        {"distanceUnit", "SettingsTimeDateAndUnitsDistanceUnits", Int, distance},
        {"temperatureUnit", "SettingsTimeDateAndUnitsTemperatureUnits", Int, temperature},
        {"languageText", "SettingsLanguageText", String, language},
        {"languageVoice", "SettingsLanguageVoice", String, QStringLiteral("American English-Ava")},
        {"languageKeyboard", "SettingsLanguageKeyboard", String, language},
        {"navigationInstructions", "SettingsNavigationInstructions", Int, 2},
        {"asrSessions", "SettingsAsrSessions", Int, 1},
        {"adjustSoundQuality", "SettingsAdjustSoundQuality", Int, 1},
        {"touchSounds", "SettingsTouchSounds", Bool, true},
        {"displayGeographicData", "SettingsDisplayGeographicData", Bool, isGeographicDataShown},
        {"deviceName", "SettingsDeviceName", String, QLatin1String("")},
    };
}

QJsonObject defaults()
{
    Core::ResourceManager::instance()->addBuiltInTable(QStringLiteral(":/hmi/shared/settings/resources.xml"));
    return Core::HandleDefaultsResource(QStringLiteral("DEFAULTS_SETTINGS_SHARED")).getObject();
}

QList<Setting*> create(const QLocale& aLocale)
{
    QList<Setting*> settings;
    const QVector<Row> rows = makeTable(defaults(), aLocale);
    for (const Row& row : rows)
        settings.append(new Setting(QLatin1String(row.key), QLatin1String(row.name), row.type, row.value,
                                    Setting::SettingCategoryUser));
    return settings;
}

} // namespace Hmi::Shared::SharedSettings
