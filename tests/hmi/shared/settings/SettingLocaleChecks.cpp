#include <hmi/shared/settings/SettingLocale.h>

#include <hmi/shared/settings/SettingLocaleBased.h>
#include <hmi/shared/settings/SettingLocaleSystem.h>
#include <tuple>

#include "SettingsStore.h"

using namespace Hmi::Shared;

namespace {

struct LocaleSettings : HmiTest::SettingsStore
{
    LocaleSettings()
    {
        QLocale::setDefault(QLocale(QLocale::Swedish));
        start();
    }
    ~LocaleSettings() override { QLocale::setDefault(mLocale); }

    const QLocale mLocale;
};

} // namespace

TEST_F(LocaleSettings, TheChosenLocaleIsStoredAndTheDefaultOfTheProcess)
{
    SettingLocale setting;
    int changes = 0;
    QObject::connect(&setting, &SettingLocale::localeValueChanged, [&] { ++changes; });
    const std::tuple<const char*, const char*, int> rows[] = {
        {"en_US", "en_US", 1}, {"de", "de_DE", 2}, {"de_DE", "de_DE", 2}, {"en", "en_US", 3}};
    EXPECT_EQ(setting.localeValue().name(), QLatin1String("en_US"));
    for (const auto& [chosen, used, count] : rows) {
        EXPECT_TRUE(setting.setValue(QLatin1String(chosen)));
        EXPECT_EQ(setting.getValue(), QLatin1String(chosen));
        EXPECT_EQ(SettingLocale().getValue(), QLatin1String(chosen)) << "stored";
        EXPECT_EQ(QLocale().name(), QLatin1String(used));
        EXPECT_EQ(changes, count) << chosen;
    }
}

TEST_F(LocaleSettings, TheSystemsLocaleAndWhatFollowsFromItAreNeverStored)
{
    const QString system = QLocale::system().name();
    const QLocale other(system == QLatin1String("de_DE") ? QLocale::French : QLocale::German);
    SettingLocaleSystem setting;
    EXPECT_EQ(setting.getValue(), system);
    EXPECT_EQ(QLocale().name(), system);
    for (const bool changes : {true, false}) {
        warns("The locale setting should not be modified at run-time because .* for testing purposes only.");
        EXPECT_EQ(setting.setLocaleForTest(other), changes);
        EXPECT_EQ(setting.getValue(), other.name());
        EXPECT_EQ(QLocale(), other);
    }
    for (const bool changes : {true, false}) {
        warns("The locale setting should only be modified at run-time by operating system calls.");
        EXPECT_EQ(setting.setValue(QStringLiteral("sv_SE")), changes);
        EXPECT_EQ(QLocale(), QLocale(QLocale::Swedish));
    }
    SettingLocaleBased based(setting.getKey(), QString(), Setting::SettingTypeString, 1,
                             setting.getCategory());
    EXPECT_TRUE(!based.setValue(1) && based.setValue(3));
    EXPECT_TRUE(setting.restoreDefault() && based.restoreDefault());
    EXPECT_EQ((QVariantList{setting.getValue(), based.getValue()}),
              (QVariantList{QLatin1String("sv_SE"), 3}));
    QString stored;
    EXPECT_EQ(DataManager::Settings::getGlobalSetting(setting.getKey(), stored),
              DataManager::SettingNotFound);
}
