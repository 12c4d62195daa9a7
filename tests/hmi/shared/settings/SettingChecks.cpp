#include <hmi/shared/settings/Setting.h>

#include <tuple>

#include "SettingsStore.h"

using namespace HmiTest;
using Hmi::Shared::Setting;

namespace {

constexpr auto Bool = Setting::SettingTypeBool;
constexpr auto Int = Setting::SettingTypeInt;
constexpr auto Double = Setting::SettingTypeDouble;
constexpr auto String = Setting::SettingTypeString;
constexpr auto ByteArray = Setting::SettingTypeByteArray;

/** A setting that remembers what it announced. */
struct ListenedSetting : Setting
{
    explicit ListenedSetting(SettingCategory aCategory, SettingType aType = Int,
                             const QVariant& aDefault = 7) :
        Setting(QStringLiteral("SettingsIntTestSetting"), QString(), aType, aDefault, aCategory)
    {
        connect(this, &Setting::valueChanged, this, [this](const QVariant& value) { changes.append(value); });
    }
    QVariantList changes;
};

using SettingInStore = SettingsStore;

} // namespace

TEST_F(SettingInStore, KeepsWhatConvertsAsItsTypeAndRefusesTheRest)
{
    start();
    const QString longest(256, QLatin1Char('x'));
    // Type, first value, given one, and what is kept; invalid: it is refused.
    const std::tuple<Setting::SettingType, QVariant, QVariant, QVariant> rows[] = {
        {Int, 1, QLatin1String("22"), 22},
        {Int, 1, 6.6, 7},
        {Int, 1, QLatin1String("many"), {}},
        {Int, 1, qQNaN(), {}},
        {Int, 1, Q_UINT64_C(0xffffffffffffffff), {}},
        {Bool, true, QLatin1String(""), false},
        {Bool, true, QVariantList(), {}},
        {Double, 0.5, 2, 2.0},
        {String, QLatin1String("a"), longest, longest},
        {String, QLatin1String("a"), longest + QLatin1Char('x'), {}},
        {String, QLatin1String("a"), {}, {}},
        {ByteArray, QByteArray("a"), QLatin1String("b"), QByteArray("b")},
    };
    for (const auto& [type, first, given, kept] : rows) {
        ListenedSetting setting(User, type, first);
        EXPECT_EQ(setting.getValue(), first);
        if (!kept.isValid())
            warns("Setting::setValue: Could not convert new value to settings type: .*");
        EXPECT_EQ(setting.setValue(given), kept.isValid()) << qPrintable(given.toString());
        EXPECT_TRUE(!kept.isValid() || setting.setValue(given));
        EXPECT_EQ(setting.changes, kept.isValid() ? QVariantList{kept} : QVariantList());
        EXPECT_EQ(setting.getValue().userType(), first.userType()) << qPrintable(given.toString());
        EXPECT_EQ(ListenedSetting(User, type, first).getValue(), kept.isValid() ? kept : first);
        DataManager::FactoryReset();
    }
}

TEST_F(SettingInStore, LivesInMemoryUntilTheStoreIsReady)
{
    const std::tuple<bool, int, int> rows[] = {{false, 0, 44}, {false, 5, 5}, {true, 5, 44}};
    for (const auto& [precedence, storedBefore, expected] : rows) {
        ListenedSetting setting(Global);
        setting.setInMemoryPrecedence(precedence);
        warns("Setting::getValue: Data manager not ready. key: SettingsIntTestSetting .*7.");
        warns("Setting::setValue: Failed to save value to data manager. key: SettingsIntTestSetting .*44.");
        warns("Setting::getValue: Data manager not ready. key: SettingsIntTestSetting .*44.");
        EXPECT_EQ(setting.getValue(), 7);
        EXPECT_FALSE(setting.setValue(44));
        EXPECT_EQ(setting.getValue(), 44);
        start();
        if (storedBefore)
            DataManager::Settings::setGlobalSetting(setting.getKey(), storedBefore);
        emit Manager::instance()->readyChanged();
        int stored = 0;
        DataManager::Settings::getGlobalSetting(setting.getKey(), stored);
        EXPECT_EQ(stored, expected);
        EXPECT_EQ(setting.getValue(), expected);
        EXPECT_EQ(setting.changes, expected == 44 ? QVariantList{44} : (QVariantList{44, expected}));
        DataManager::FactoryReset();
        DataManager::ShutDown();
    }
}

TEST_F(SettingInStore, FollowsTheActiveProfile)
{
    start();
    ListenedSetting user(User), global(Global), kept(Protected);
    EXPECT_TRUE(user.setValue(1) && global.setValue(2) && kept.setValue(3));
    DataManager::UserProfile::addNewUserProfile(QStringLiteral("second"));
    for (const QLatin1String profile : {QLatin1String("second"), QLatin1String("driver")}) {
        DataManager::UserProfile::setActiveUserProfile(profile);
        Manager::instance()->onProfileChangedSignal(profile);
        EXPECT_EQ(user.getValue(), profile == QLatin1String("driver") ? 1 : 7);
        EXPECT_EQ((QVariantList{global.getValue(), kept.getValue()}), (QVariantList{2, 3}));
    }
    EXPECT_EQ(user.changes, (QVariantList{{}, {}}));
    EXPECT_TRUE(global.changes.isEmpty() && kept.changes.isEmpty());
}

TEST_F(SettingInStore, TakesWhatAnotherWriterStored)
{
    start();
    const QString key = ListenedSetting(Global).getKey();
    DataManager::Settings::setUserSetting(key, true);
    ListenedSetting setting(User);
    warns("Setting::getValue: Retrieve setting failed. key: SettingsIntTestSetting .*");
    EXPECT_EQ(setting.getValue(), 7) << "a value of another type is no value";
    EXPECT_TRUE(setting.restoreDefault()) << "written over";
    for (const int value : {7, 8, 8}) {
        DataManager::Settings::setUserSetting(key, value);
        setting.onStoredValueChanged();
    }
    DataManager::Settings::setUserSetting(key, true);
    setting.onStoredValueChanged();
    EXPECT_EQ(setting.getValue(), 8);
    DataManager::ResetUserProfile(QString());
    setting.onStoredValueChanged();
    EXPECT_EQ(setting.changes, (QVariantList{8, 7}));
}
