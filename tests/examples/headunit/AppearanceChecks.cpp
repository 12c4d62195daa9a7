#include <examples/headunit/Appearance.h>
#include <examples/headunit/SignalVehiclePolicy.h>
#include <examples/headunit/VehicleSignalConfigs.h>
#include <functional>
#include <gtest/gtest.h>
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/language/LanguageManager.h>
#include <hmi/core/view/ThemeManager.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/settings/SettingsManager.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <tests/process/Simulator.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/PrivateBus.h>

using Hmi::Shared::DataManagerWrapper;
using Hmi::Shared::SettingsManager;
using HmiTest::waitUntil;

static void set(const char* aName, const QVariant& aValue)
{
    EXPECT_TRUE(SettingsManager::instance()->getSetting(QLatin1String(aName))->setValue(aValue));
}

static void use(const char* aProfile)
{
    DataManagerWrapper::instance()->setActiveUserProfile(QLatin1String(aProfile));
}

TEST(Appearance, FollowsTheActiveProfileAndTheNight)
{
    ASSERT_TRUE(HmiTest::PrivateBus::start());
    const QTemporaryDir folder;
    HmiTest::writeFile(folder, "DataManagerConf.ini", "[Storage]\nPath=settings.db\n");
    HmiTest::writeFile(folder, "product.ini",
                       "[HmiCore]\nThemesPath=" HMI_HEADUNIT_DATA "/themes\n"
                       "LanguagesPath=" HMI_HEADUNIT_DATA "/translations\n[HmiShared]\n"
                       "DataManagerEnabled=true\nDataManagerConfigPath=DataManagerConf.ini\n");
    auto& config = *Hmi::Core::ConfigManager::instance();
    ASSERT_TRUE(config.load(folder.filePath(QStringLiteral("product.ini"))));
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("resourcesPath: .*"));
    auto& global = *Hmi::Shared::HmiSharedGlobal::instance();
    global.getEnvironmentManager()->completeStartup();
    global.startUp();
    delete DataManagerWrapper::instance()->addNewUserProfile(QStringLiteral("Anna"));
    const QString socket = folder.filePath(QStringLiteral("signals"));
    Simulator simulator(socket);
    SignalVehiclePolicy vehicle(std::make_shared<SignalService::TransportProxy>(socket),
                                VehicleSignalConfigs(config));
    Appearance appearance;
    appearance.setVehicle(&vehicle);

    const struct
    {
        const char* action;
        std::function<void()> act;
        QString languageAndTheme;
    } rows[] = {
        {"start", [&] { appearance.initialize(); }, QStringLiteral("en_US day")},
        {"choose the night", [] { set("theme", Appearance::ThemeNight); }, QStringLiteral("en_US night")},
        {"choose German", [] { set("languageText", QStringLiteral("de_DE")); },
         QStringLiteral("de_DE night")},
        {"another profile", [] { use("Anna"); }, QStringLiteral("en_US day")},
        {"night falls", [&] { simulator.command("set Vehicle.Cabin.Lights.IsNight true"); },
         QStringLiteral("en_US night")},
        {"choose the day", [] { set("theme", Appearance::ThemeDay); }, QStringLiteral("en_US day")},
        {"the first profile", [] { use("driver"); }, QStringLiteral("de_DE night")},
        {"reset", [] { SettingsManager::instance()->restoreSettingsDefaults(); },
         QStringLiteral("en_US night")},
        {"the sun rises", [&] { simulator.command("set Vehicle.Cabin.Lights.IsNight false"); },
         QStringLiteral("en_US day")},
    };
    for (const auto& row : rows) {
        row.act();
        const auto seen = [] {
            return Hmi::Core::LanguageManager::instance()->getLanguageCode() + QLatin1Char(' ') +
                   Hmi::Core::ThemeManager::instance()->getCurrentTheme();
        };
        EXPECT_TRUE(waitUntil([&] { return seen() == row.languageAndTheme; }))
            << row.action << ": " << seen().toStdString();
    }
    appearance.deInitialize();
    set("theme", Appearance::ThemeNight);
    EXPECT_EQ(Hmi::Core::ThemeManager::instance()->getCurrentTheme(), QLatin1String("day"));
    global.shutDown(nullptr);
    HmiTest::PrivateBus::stop();
}
