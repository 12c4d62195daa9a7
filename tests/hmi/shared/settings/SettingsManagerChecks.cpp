#include <hmi/shared/settings/SettingsManager.h>

#include <QJsonDocument>
#include <QPointer>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/settings/SettingLocaleSystem.h>
#include <tests/support/FullMedium.h>
#include <tuple>

#include "SettingsStore.h"

using namespace Hmi::Shared;
using namespace HmiTest;

namespace {

struct Settings : SettingsStore
{
    Settings()
    {
        start();
        mManager = SettingsManager::instance();
    }
    ~Settings() override
    {
        SettingsManager::instance()->clear();
        QLocale::setDefault(mLocale);
    }

    QVariantList values(const QList<const char*>& aNames) const
    {
        QVariantList result;
        for (const char* name : aNames)
            result.append(mManager->getSettingValue(QLatin1String(name)));
        return result;
    }

    /** The key is the name unless given. */
    static Setting* make(const char* aName, Setting::SettingCategory aCategory, const char* aKey = nullptr,
                         int aDefault = 1, bool aExportable = true)
    {
        return new Setting(QLatin1String(aKey ? aKey : aName), QLatin1String(aName), Setting::SettingTypeInt,
                           aDefault, aExportable, aCategory);
    }

    const QLocale mLocale;
    SettingsManager* mManager;
};

} // namespace

TEST_F(Settings, AreRefusedAndDeletedWhenTheyDoNotFit)
{
    const char* missing = "The given setting is missing required name or key values.";
    const char* global = "Cannot override a global setting with a user setting.";
    const std::tuple<const char*, const char*, Setting::SettingCategory, bool, const char*> rows[] = {
        {"mine", "key", User, false, nullptr},
        {"mine", "key", Global, false,
         "A setting with name mine has already been added to SettingsManager. .*"},
        {"", "key", User, false, missing},
        {"other", "", User, false, missing},
        {"other", "key", User, true, "Cannot find setting with name other."},
        {"mine", "", User, true, missing},
        {"mine", "key", Protected, true, nullptr},
        {"mine", "key", Global, true, nullptr},
        {"mine", "key", Protected, true, global},
        {"mine", "second", Global, true, nullptr},
    };
    QPointer<Setting> present;
    for (const auto& [name, key, category, overrides, warning] : rows) {
        const QPointer<Setting> setting = make(name, category, key);
        if (warning)
            warns(warning);
        EXPECT_EQ(overrides ? mManager->overrideSetting(setting) : mManager->addSetting(setting), !warning);
        EXPECT_EQ(setting.isNull(), warning != nullptr);
        EXPECT_EQ(present.isNull(), !warning) << "the replaced one is deleted";
        present = warning ? present : setting;
        EXPECT_EQ(mManager->getSetting(QStringLiteral("mine")), present);
    }
    EXPECT_TRUE(mManager->overrideSetting(present));
    EXPECT_EQ(mManager->getSetting(QStringLiteral("mine")), present) << "its own replacement stays";
    EXPECT_FALSE(mManager->overrideSetting(nullptr));
    warns("Cannot find setting with name NON_SETTING_VALUE.");
    EXPECT_EQ(values({"NON_SETTING_VALUE"}), QVariantList{QVariant()});
}

TEST_F(Settings, OfTheLibraryFollowTheThemeAndTheLocale)
{
    for (const char* name : {"zh_CN", "zh_TW"}) {
        auto* locale = new SettingLocaleSystem;
        SettingsManager::instance()->addSetting(locale);
        warns("The locale setting should not be modified .*");
        locale->setLocaleForTest(QLocale(QLatin1String(name)));
        SettingsManager::addSharedSettings();
        EXPECT_EQ(values({"languageKeyboard", "displayGeographicData"}),
                  (QVariantList{QLatin1String(name), locale->localeValue().country() != QLocale::China}));
        DataManager::FactoryReset();
        mManager->clear();
    }
    SettingsManager::addSharedSettings();
    SettingsManager::addSharedSettings();
    EXPECT_EQ(
        values({"locale", "languageText", "timeFormat", "dateFormat", "distanceUnit", "temperatureUnit"}),
        (QVariantList{QLatin1String("en_US"), QLatin1String("en_US"), QLatin1String("h:mm ap"),
                      QLatin1String("MM/dd/yyyy"), 4, 1}));
    EXPECT_EQ(values({"firstBoot", "versionPrevious", "version"}), (QVariantList{true, 3, 3}));
}

TEST_F(Settings, AreRestoredWhereThatIsAllowed)
{
    mManager->addSettings({make("plain", Global), make("hidden", Protected), make("kept", Global),
                           make("user", User), make("mine", User)});
    for (const char* name : {"kept", "mine"})
        mManager->getSetting(QLatin1String(name))->setAllowRestore(false);
    const char* stored =
        R"({"firstBoot": false, "hidden": 5, "kept": 5, "mine": 5, "plain": 5, "user": 5, "version": 2,
            "versionPrevious": 2})";
    EXPECT_TRUE(mManager->setValuesFromJson(QJsonDocument::fromJson(stored).object()));
    EXPECT_TRUE(mManager->restoreSettingsDefaults());
    EXPECT_EQ(values({"plain", "hidden", "kept", "user", "mine"}), (QVariantList{1, 5, 5, 1, 5}));
    int mine = 0;
    DataManager::Settings::getUserSetting(QStringLiteral("mine"), mine);
    EXPECT_EQ(mine, 5) << "stored, though the profile was reset";
    mManager->clear();
    SettingsManager::instance();
    EXPECT_EQ(values({"firstBoot", "versionPrevious", "version"}), (QVariantList{false, 2, 3}));
    const QString object = QStringLiteral("object");
    mManager->addSetting(new Setting(object, object, Setting::SettingTypeObject, QVariant(), Global));
    warns("Setting::setValue: Could not convert .*");
    EXPECT_FALSE(mManager->restoreSettingsDefaults());
}

TEST_F(Settings, FollowWhatOthersStoreUnderTheirKeyInTheirCategory)
{
    const QString key = QStringLiteral("key");
    mManager->addSettings(
        {make("user", User, "key"), make("twin", User, "key"), make("global", Global, "key")});
    EXPECT_EQ(values({"user", "twin", "global"}), (QVariantList{1, 1, 1}));
    DataManager::Settings::setUserSetting(key, 2);
    DataManager::Settings::setGlobalSetting(key, 3);
    Manager::instance()->onSettingChangedSignal(0, key);
    EXPECT_EQ(values({"user", "twin", "global"}), (QVariantList{2, 2, 1}));
    Manager::instance()->onSettingChangedSignal(3, key);
    EXPECT_EQ(values({"user", "twin", "global"}), (QVariantList{2, 2, 3}));
    const QString owner = QCoreApplication::applicationName() + QStringLiteral("::SettingsManager");
    mManager->overrideSetting(make("twin", User, "moved"));
    EXPECT_EQ(DataManager::Settings::releaseSettingChangedSignal(key, owner), 0) << "two of the three remain";
    emit Manager::instance()->readyChanged();
    mManager->clear();
    EXPECT_EQ(DataManager::Settings::releaseSettingChangedSignal(key, owner), DataManager::SettingNotFound);
}

TEST_F(Settings, KeepByteOrderMarksInAFile)
{
    HmiSharedGlobal* global = HmiSharedGlobal::instance();
    const QString marked = QString(2, QChar::ByteOrderMark) + QLatin1Char('x');
    QList<Setting*> settings;
    for (const auto& [name, type] :
         {std::pair("text", Setting::SettingTypeString), std::pair("bytes", Setting::SettingTypeByteArray)})
        settings << new Setting(QLatin1String(name), QLatin1String(name), type, QByteArray(), Global);
    mManager->addSettings(settings);
    const auto set = [&](const QString& aText) {
        settings.first()->setValue(aText);
        settings.last()->setValue(aText.toUtf8());
    };
    set(marked);
    ASSERT_TRUE(global->exportSettings(mFolder.path()));
    set(QString());
    ASSERT_TRUE(global->importSettings(mFolder.path()));
    EXPECT_EQ(values({"text", "bytes"}), (QVariantList{marked, marked.toUtf8()}));
}

TEST_F(Settings, AreExportedAndImportedByName)
{
    HmiSharedGlobal* global = HmiSharedGlobal::instance();
    mManager->addSettings({make("open", Global), make("secret", User, "s", 1, false), make("last", User)});
    EXPECT_TRUE(global->exportSettings(mFolder.path()));
    const QByteArray content = readFile(mFolder.filePath(global->getSettingsFileName()));
    EXPECT_EQ(QJsonDocument::fromJson(content).toJson(QJsonDocument::Compact),
              R"({"last":1,"open":1,"version":3})");
    const std::tuple<QByteArray, const char*, bool, int> rows[] = {
        {R"({"open": 4})", nullptr, true, 4},
        {R"({"open": 5, "unknown": 1})", "No setting found with key unknown", true, 5},
        {R"({"last": 2, "open": "x"})", "Setting::setValue: Could not convert .*", false, 5},
        {R"({"last": "x", "open": 6})", "Setting::setValue: Could not convert .*", true, 6},
        {content.left(content.size() - 3), "The settings file '.*' was not imported.*", false, 6},
        {"[]", "The settings file '.*' was not imported.*", false, 6},
        {R"({"open": 7})" + QByteArray(4 << 20, ' '), "The settings file .*larger than 4 MiB.*", false, 6},
    };
    for (const auto& [file, warning, result, open] : rows) {
        writeFile(mFolder, "krvx_settings.json", file);
        if (warning)
            warns(warning);
        EXPECT_EQ(global->importSettings(mFolder.path()), result) << file.left(50).constData();
        EXPECT_EQ(values({"open"}), QVariantList{open}) << file.left(50).constData();
    }
    warns("The settings file 'nowhere/krvx_settings.json' was not written: .*");
    warns("The settings file 'nowhere/krvx_settings.json' was not imported.*");
    EXPECT_FALSE(global->exportSettings(QStringLiteral("nowhere")));
    warns("The settings file '.*' was not written: .*");
    writeFile(mFolder, "krvx_settings.json", "earlier");
    {
        const HmiTest::FullMedium full(10);
        EXPECT_FALSE(global->exportSettings(mFolder.path()));
    }
    EXPECT_EQ(HmiTest::readFile(mFolder.filePath(QStringLiteral("krvx_settings.json"))), "earlier");
    EXPECT_FALSE(global->importSettings(QStringLiteral("nowhere")));
}
