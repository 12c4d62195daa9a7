#include <platform/data-manager/DataManager.h>

#include <QFile>
#include <QFileInfo>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <sys/stat.h>
#include <tests/support/ExpectedMessages.h>

#include "StoreFolder.h"

namespace Settings = DataManager::Settings;
namespace UserProfile = DataManager::UserProfile;

namespace {

struct DataManagerOperations : testing::Test, StoreFolder
{};

QString text(const char* aUtf8) { return QString::fromUtf8(aUtf8); }

QString activeProfile()
{
    QString name;
    EXPECT_EQ(UserProfile::getActiveUserProfile(name), DataManager::Ok);
    return name;
}

std::string profiles()
{
    QList<QString> names;
    EXPECT_EQ(UserProfile::getUserProfilesList(names), DataManager::Ok);
    return HmiTest::joined(QStringList(names));
}

/** Writes and reads in every scope, now and after a new start. */
template <class T>
void expectKept(StoreFolder& aStore, const QString& aId, const T& aValue)
{
    EXPECT_EQ(Settings::setProtectedSetting(aId, aValue), DataManager::Ok);
    EXPECT_EQ(Settings::setGlobalSetting(aId, aValue), DataManager::Ok);
    EXPECT_EQ(Settings::setUserSetting(aId, aValue), DataManager::Ok);
    for (int start = 0; start < 2; ++start) {
        T values[3] = {};
        EXPECT_EQ(Settings::getProtectedSetting(aId, values[0]), DataManager::Ok);
        EXPECT_EQ(Settings::getGlobalSetting(aId, values[1]), DataManager::Ok);
        EXPECT_EQ(Settings::getUserSetting(aId, values[2]), DataManager::Ok);
        for (const T& value : values)
            EXPECT_TRUE(value == aValue || (value != value && aValue != aValue)) << qPrintable(aId) << start;
        ASSERT_EQ(aStore.restart(), DataManager::Ok);
    }
}

} // namespace

TEST_F(DataManagerOperations, KeepEveryTypeOfValueInEveryScope)
{
    ASSERT_EQ(start(), DataManager::Ok);
    expectKept(*this, text("bool"), true);
    expectKept(*this, text("int"), std::numeric_limits<int>::min());
    for (const double real : {0.1, 5.0, -1e308, std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()})
        expectKept(*this, text("double"), real);
    expectKept(*this, text("text"), QString());
    expectKept(*this, text("text"), text("Grüße,\n\"quoted\" 'and' \\ 日本 🚗"));
    expectKept(*this, text("text"), QChar(QChar::ByteOrderMark) + text("marked"));
    expectKept(*this, text("bytes"), QByteArray("\0\xff\n'", 4));
    expectKept(*this, text("bytes"), QByteArray());
}

TEST_F(DataManagerOperations, TakeAnyTextForANameOrAnId)
{
    ASSERT_EQ(start(), DataManager::Ok);
    int number = 0;
    for (const QString& name :
         {text("O'Neil \"x\"; DROP TABLE setting;--"), text("line\nline\t\\%_*"),
          QString(10000, QLatin1Char('n')), text("Ünï 🚗 \u202e"), QStringLiteral("a\0b")}) {
        ASSERT_EQ(UserProfile::addNewUserProfile(name), DataManager::Ok);
        EXPECT_EQ(Settings::setUserSetting(name, ++number, name), DataManager::Ok);
        EXPECT_EQ(Settings::setGlobalSetting(name + name, number), DataManager::Ok);
    }
    EXPECT_EQ(Settings::setGlobalSetting(QString(), 77), DataManager::Ok);
    ASSERT_EQ(restart(), DataManager::Ok);
    QList<QString> names;
    UserProfile::getUserProfilesList(names);
    ASSERT_EQ(names.size(), 7);
    for (int index = 1; index <= number; ++index) {
        int value = 0;
        EXPECT_EQ(Settings::getUserSetting(names[index + 1], value, names[index + 1]), DataManager::Ok);
        EXPECT_EQ(value, index);
        EXPECT_EQ(Settings::getGlobalSetting(names[index + 1] + names[index + 1], value), DataManager::Ok);
        EXPECT_EQ(value, index);
    }
    int value = 0;
    EXPECT_EQ(Settings::getGlobalSetting(QString(), value), DataManager::Ok);
    EXPECT_EQ(value, 77);
}

TEST_F(DataManagerOperations, FailBeforeStartUpAndAfterShutDown)
{
    const auto expectFailure = [] {
        QString name = text("left");
        int value = 5;
        EXPECT_EQ(UserProfile::getActiveUserProfile(name), DataManager::Failed);
        EXPECT_EQ(name, QString());
        EXPECT_EQ(Settings::getGlobalSetting(text("id"), value), DataManager::Failed);
        EXPECT_EQ(value, 0);
        EXPECT_EQ(Settings::setGlobalSetting(text("id"), 1), DataManager::Failed);
        EXPECT_EQ(Settings::requestSettingChangedSignal(text("id"), text("me")), DataManager::Failed);
        EXPECT_EQ(UserProfile::addNewUserProfile(text("x")), DataManager::Failed);
        EXPECT_EQ(DataManager::FactoryReset(), DataManager::Failed);
        EXPECT_EQ(DataManager::ShutDown(), DataManager::Failed);
    };
    expectFailure();
    ASSERT_EQ(start(), DataManager::Ok);
    EXPECT_EQ(DataManager::StartUp(configuration()), DataManager::DatabaseBuilt);
    ASSERT_EQ(restart(), DataManager::Ok);
    EXPECT_EQ(DataManager::StartUp(configuration()), DataManager::DatabaseOpened);
    EXPECT_EQ(DataManager::ShutDown(), DataManager::Ok);
    expectFailure();
}

TEST_F(DataManagerOperations, ManageProfiles)
{
    ASSERT_EQ(start(), DataManager::Ok);
    EXPECT_EQ(profiles(), "default,driver");
    EXPECT_EQ(activeProfile(), text("driver"));
    const QString anna = text("Anna"), bert = text("Bert"), driver = text("driver"), none;
    const struct
    {
        int result;
        int expected;
        const char* profilesThen;
    } steps[] = {
        {UserProfile::setActiveUserProfile(anna), DataManager::ProfileNotFound, "default,driver"},
        {UserProfile::addNewUserProfile(none), DataManager::CannotAddUser, "default,driver"},
        {UserProfile::addNewUserProfile(driver), DataManager::ProfileExists, "default,driver"},
        {UserProfile::deleteUserProfile(anna), DataManager::ProfileNotFound, "default,driver"},
        {UserProfile::deleteUserProfile(driver), DataManager::CannotUpdateDefaultProfile, "default,driver"},
        {UserProfile::updateProfileAttributes(DataManager::builtInProfile(), anna),
         DataManager::CannotUpdateDefaultProfile, "default,driver"},
        {UserProfile::updateProfileAttributesForActiveProfile(anna), DataManager::CannotUpdateDefaultProfile,
         "default,driver"},
        {UserProfile::updateProfileAttributes(anna, bert), DataManager::ProfileNotFound, "default,driver"},
        {DataManager::ResetUserProfile(anna), DataManager::ProfileNotFound, "default,driver"},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(step.result, step.expected) << &step - steps;
        EXPECT_EQ(profiles(), step.profilesThen);
    }
    EXPECT_EQ(UserProfile::addNewUserProfile(anna), DataManager::Ok);
    EXPECT_EQ(UserProfile::addNewUserProfile(bert), DataManager::Ok);
    EXPECT_EQ(UserProfile::setActiveUserProfile(anna), DataManager::Ok);
    EXPECT_EQ(UserProfile::updateProfileAttributesForActiveProfile(bert), DataManager::ProfileExists);
    EXPECT_EQ(UserProfile::updateProfileAttributesForActiveProfile(none), DataManager::UnableToUpdate);
    EXPECT_EQ(UserProfile::updateProfileAttributesForActiveProfile(text("Anne")), DataManager::Ok);
    ASSERT_EQ(restart(), DataManager::Ok);
    EXPECT_EQ(activeProfile(), text("Anne"));
    EXPECT_EQ(profiles(), "default,driver,Anne,Bert");
    EXPECT_EQ(UserProfile::deleteUserProfile(text("Anne")), DataManager::Ok);
    EXPECT_EQ(activeProfile(), driver);
    EXPECT_EQ(profiles(), "default,driver,Bert");
}

TEST_F(DataManagerOperations, KeepTheSettingsOfProfilesApart)
{
    ASSERT_EQ(start(), DataManager::Ok);
    const QString id = text("volume"), anna = text("Anna");
    const auto volumeOf = [&](const QString& aProfile) {
        int volume = -1;
        const int code = Settings::getUserSetting(id, volume, aProfile);
        return code == DataManager::Ok ? volume : -code;
    };
    EXPECT_EQ(Settings::setUserSetting(id, 5), DataManager::Ok);
    EXPECT_EQ(UserProfile::addNewUserProfile(anna), DataManager::Ok);
    EXPECT_EQ(volumeOf(anna), -DataManager::SettingNotFound);
    EXPECT_EQ(Settings::setUserSettingForAllUsers(id, 7), DataManager::Ok);
    EXPECT_EQ(Settings::setUserSetting(id, 8, anna), DataManager::Ok);
    EXPECT_EQ(volumeOf(QString()), 7);
    EXPECT_EQ(volumeOf(anna), 8);
    EXPECT_EQ(DataManager::ResetUserProfile(anna), DataManager::Ok);
    EXPECT_EQ(volumeOf(anna), 7) << "what is set for all users is what a new one has";
    EXPECT_EQ(volumeOf(text("Bert")), -DataManager::ProfileNotFound);
    EXPECT_EQ(Settings::setUserSetting(id, 1, text("Bert")), DataManager::ProfileNotFound);
    EXPECT_EQ(UserProfile::setActiveUserProfile(anna), DataManager::Ok);
    EXPECT_EQ(DataManager::FactoryReset(), DataManager::Ok);
    EXPECT_EQ(profiles(), "default,driver");
    EXPECT_EQ(volumeOf(QString()), -DataManager::SettingNotFound);
    DataManager::ShutDown();
    EXPECT_FALSE(HmiTest::readFile(path("hmi_settings.db")).contains("Anna"))
        << "erased is not only unlinked";
}

TEST_F(DataManagerOperations, RefuseValuesOfAnotherType)
{
    HmiTest::writeFile(folder, "defaults.json", R"({"flag": true, "count": 3, "share": 0.5, "name": "x"})");
    ASSERT_EQ(start("[Storage]\nDefaults=defaults.json\n"), DataManager::Ok);
    Settings::setGlobalSetting(text("count"), 3);
    bool flag = true;
    int count = 0;
    double share = 0;
    QString name;
    EXPECT_EQ(Settings::getGlobalSetting(text("count"), flag), DataManager::WrongType);
    EXPECT_FALSE(flag);
    EXPECT_EQ(Settings::getGlobalSetting(text("count"), share), DataManager::WrongType);
    EXPECT_EQ(Settings::getGlobalSetting(text("other"), count), DataManager::SettingNotFound);
    EXPECT_EQ(Settings::getDefaultSettingValue(text("flag"), flag), DataManager::Ok);
    EXPECT_EQ(Settings::getDefaultSettingValue(text("count"), share), DataManager::Ok);
    EXPECT_EQ(share, 3);
    EXPECT_EQ(Settings::getDefaultSettingValue(text("share"), count), DataManager::WrongType);
    EXPECT_EQ(Settings::getDefaultSettingValue(text("name"), name), DataManager::Ok);
    EXPECT_EQ(Settings::getDefaultSettingValue(text("none"), name), DataManager::NoDefault);
    Settings::setGlobalSetting(text("count"), text("three"));
    EXPECT_EQ(Settings::getGlobalSetting(text("count"), name), DataManager::Ok) << "the latest write decides";
}

TEST_F(DataManagerOperations, StartWithoutDefaultsThatCannotBeRead)
{
    ASSERT_EQ(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    HmiTest::writeFile(folder, "list.json", "[1]");
    const std::pair<const char*, const char*> faults[] = {{"none.json", "cannot be opened"},
                                                          {"pipe", "no regular file"},
                                                          {".", "no regular file"},
                                                          {"list.json", "not a JSON object"}};
    for (const auto& [file, fault] : faults) {
        HmiTest::expectMessageMatching(QtWarningMsg, text(".*%1.*").arg(QLatin1String(fault)));
        ASSERT_EQ(start(QByteArray("[Storage]\nDefaults=") + file), DataManager::Ok) << file;
        DataManager::ShutDown();
    }
}

TEST_F(DataManagerOperations, WriteABatchAtItsEnd)
{
    ASSERT_EQ(start(), DataManager::Ok);
    Settings::setGlobalSetting(text("first"), 1);
    DataManager::beginBatch();
    DataManager::beginBatch();
    Settings::setGlobalSetting(text("first"), 2);
    Settings::setUserSettingForAllUsers(text("second"), 2);
    EXPECT_EQ(DataManager::commitBatch(), DataManager::Ok);
    int first = 0, second = 0;
    Settings::getGlobalSetting(text("first"), first);
    EXPECT_EQ(first, 2) << "seen before it is stored";
    EXPECT_EQ(DataManager::commitBatch(), DataManager::Ok);
    EXPECT_EQ(DataManager::commitBatch(), DataManager::Failed);
    DataManager::beginBatch();
    Settings::setUserSetting(text("third"), 3);
    EXPECT_EQ(DataManager::ResetUserProfile(text("driver")), DataManager::Ok);
    EXPECT_EQ(DataManager::commitBatch(), DataManager::Ok);
    int third = 0;
    EXPECT_EQ(Settings::getUserSetting(text("third"), third), DataManager::SettingNotFound)
        << "the reset came after the write";
    ASSERT_EQ(restart(), DataManager::Ok);
    Settings::getGlobalSetting(text("first"), first);
    Settings::getUserSetting(text("second"), second);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 2);
}

TEST_F(DataManagerOperations, FollowTheConfiguration)
{
    EXPECT_EQ(start("[Storage]\nPath=\"data/a, b.db\"\n", {{text("Path"), text("deeper/store.db")}}),
              DataManager::Ok);
    EXPECT_TRUE(QFileInfo::exists(path("deeper/store.db"))) << "a parameter stands above the file";
    ASSERT_EQ(restart(), DataManager::Ok);
    EXPECT_TRUE(QFileInfo::exists(path("data/a, b.db")));
    DataManager::ShutDown();
    HmiTest::expectMessageMatching(QtWarningMsg, text("Storage/Durability is \"fast\" in .*"));
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   text("The default settings .*broken.json' are not a JSON .*"));
    HmiTest::writeFile(folder, "broken.json", "{\"a\": ");
    EXPECT_EQ(start("[Storage]\nDurability=fast\nDefaults=broken.json\n"), DataManager::Ok);
    DataManager::ShutDown();
    HmiTest::expectMessageMatching(QtCriticalMsg, text("The data manager is not started: .*none.ini.*"));
    EXPECT_EQ(DataManager::StartUp(path("none.ini")), DataManager::Failed);
    HmiTest::expectMessageMatching(QtCriticalMsg, text("The data manager is not started: .*"));
    EXPECT_EQ(start("[Storage\nPath"), DataManager::Failed);
    EXPECT_FALSE(DataManager::IsStarted());
}

using DataManagerWorkers = DataManagerOperations;

TEST_F(DataManagerWorkers, KeepTheLogShortWhileItIsWritten)
{
    ASSERT_EQ(start(), DataManager::Ok);
    constexpr int Writes = 30000;
    qint64 longest = 0;
    for (int number = 1; number <= Writes; ++number) {
        ASSERT_EQ(Settings::setGlobalSetting(QString::number(number % 100), number), DataManager::Ok);
        if (number % 100 == 0)
            longest = qMax(longest, QFileInfo(path("hmi_settings.db-wal")).size());
    }
    EXPECT_GT(longest, 0);
    EXPECT_LT(longest, 20 * 1024 * 1024) << "written at once they are 30 MB";
    ASSERT_EQ(restart(), DataManager::Ok);
    int value = 0;
    EXPECT_EQ(Settings::getGlobalSetting(text("0"), value), DataManager::Ok);
    EXPECT_EQ(value, Writes);
}
