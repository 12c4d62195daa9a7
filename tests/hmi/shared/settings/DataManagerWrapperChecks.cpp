#include <hmi/shared/settings/DataManagerWrapper.h>

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <memory>

#include <hmi/core/foundation/PerfEventPolicyBase.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/services/EnvironmentManager.h>
#include <hmi/shared/settings/SettingsManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/PrivateBus.h>

#include "SettingsStore.h"

using Hmi::Shared::DataManagerReturnTypeQml;
using Hmi::Shared::DataManagerWrapper;
using Hmi::Shared::EnvironmentManager;
using Hmi::Shared::HmiSharedGlobal;

namespace {

using Result = DataManagerReturnTypeQml;

/** The wrapper and the environment as they are when a process begins, on a store of the check's own. */
struct DataManagerStart : HmiTest::SettingsStore
{
    DataManagerStart() { EXPECT_TRUE(HmiTest::PrivateBus::start()); }
    ~DataManagerStart() override
    {
        wrapper->shutdown();
        delete HmiSharedGlobal::instance();
        delete wrapper;
        HmiTest::PrivateBus::stop();
    }

    static Result::ErrorCode errorOf(Result* aResult)
    {
        const std::unique_ptr<Result> result(aResult);
        return result->getError();
    }

    DataManagerWrapper* const wrapper = DataManagerWrapper::instance();
    EnvironmentManager* const environment = HmiSharedGlobal::instance()->getEnvironmentManager();
    const QHash<QString, QString> parameters{
        {QStringLiteral("Path"), mFolder.filePath(QStringLiteral("wrapper.db"))}};
    QSignalSpy ready{wrapper, &DataManagerWrapper::readyChanged};
};

const QString sId = QStringLiteral("SettingsCheck");

} // namespace

TEST_F(DataManagerStart, WaitsForTheEnvironmentAndThenHappensOnce)
{
    wrapper->startupAsync(parameters);
    wrapper->initialize(parameters);
    wrapper->initialize({});
    EXPECT_FALSE(DataManager::IsStarted());
    for (Result* result : {wrapper->getUserProfilesList(), wrapper->getGlobalSettingInt(sId),
                           wrapper->setUserSetting(sId, 1), wrapper->setUserSetting(sId, QVariantList()),
                           wrapper->resetActiveUserProfile(), wrapper->makeActiveUserProfile(QString())}) {
        EXPECT_FALSE(result->getValue().isValid());
        EXPECT_EQ(errorOf(result), Result::DM_ERROR);
    }
    EXPECT_EQ(wrapper->getActiveUserProfile() + wrapper->getDefaultUserProfile(), QString());
    environment->completeStartup();
    environment->completeStartup();
    EXPECT_TRUE(wrapper->getReady());
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(wrapper->getActiveUserProfile(), wrapper->getDefaultUserProfile());
    EXPECT_EQ(errorOf(wrapper->setUserSetting(sId, 1u)), Result::DM_WRONG_TYPE);
    EXPECT_EQ(errorOf(wrapper->makeActiveUserProfile(QStringLiteral("driver"))), Result::DM_OK);
    EXPECT_EQ(errorOf(wrapper->makeActiveUserProfile(QStringLiteral("user1"))), Result::DM_ID_NOT_FOUND);
}

TEST_F(DataManagerStart, IsFollowedByReadsAndRenamedProfiles)
{
    environment->completeStartup();
    wrapper->initialize(parameters);
    const QByteArray bytes("\0\xff", 2);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(sId, bytes)), Result::DM_OK);
    EXPECT_EQ(DataManager::Settings::setProtectedSetting(sId, bytes), DataManager::Ok);
    for (Result* result :
         {wrapper->getGlobalSettingByteArray(sId), wrapper->getProtectedSettingByteArray(sId)}) {
        EXPECT_EQ(result->getValue(), bytes);
        EXPECT_EQ(errorOf(result), Result::DM_OK);
    }
    for (Result* result :
         {wrapper->getDefaultSettingValueBool(sId), wrapper->getDefaultSettingValueDouble(sId),
          wrapper->getDefaultSettingValueString(sId)})
        EXPECT_NE(errorOf(result), Result::DM_OK) << "there is a value, but no default";

    const QString anna = QStringLiteral("anna");
    EXPECT_EQ(errorOf(wrapper->addNewUserProfile(QStringLiteral("guest"))), Result::DM_OK);
    EXPECT_EQ(errorOf(wrapper->makeActiveUserProfile(QStringLiteral("guest"))), Result::DM_OK);
    EXPECT_EQ(errorOf(wrapper->updateProfileAttributesForActiveProfile(anna)), Result::DM_OK);
    EXPECT_EQ(wrapper->getActiveUserProfile(), anna);
    EXPECT_EQ(errorOf(wrapper->updateProfileAttributes(anna, QStringLiteral("ben"))), Result::DM_OK);
    EXPECT_EQ(wrapper->getActiveUserProfile(), QStringLiteral("ben"));
    EXPECT_EQ(errorOf(wrapper->updateProfileAttributes(anna, QStringLiteral("carl"))),
              Result::DM_ID_NOT_FOUND);
}

TEST_F(DataManagerStart, ThatIsStillDelayedEndsWithTheShutdown)
{
    wrapper->initialize(parameters);
    wrapper->shutdown();
    environment->completeStartup();
    EXPECT_FALSE(wrapper->getReady());
}

TEST_F(DataManagerStart, InTheBackgroundIsCollectedLater)
{
    environment->completeStartup();
    wrapper->startupAsync(parameters);
    wrapper->startupAsync({});
    EXPECT_TRUE(HmiTest::waitUntil([] { return DataManager::IsStarted(); }));
    EXPECT_EQ(ready.count(), 0);
    wrapper->initialize(parameters);
    EXPECT_EQ(ready.count(), 1);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(sId, QByteArray("Test Byte Array"))), Result::DM_OK);
    QByteArray value;
    EXPECT_EQ(DataManager::Settings::getGlobalSetting(sId, value), DataManager::Ok);
    EXPECT_EQ(value, QByteArray("Test Byte Array"));
}

TEST_F(DataManagerStart, OnADamagedStoreSucceedsAndMayBeRepeated)
{
    environment->completeStartup();
    HmiTest::writeFile(mFolder, "wrapper.db", "");
    HmiTest::expectMessageMatching(QtCriticalMsg, QStringLiteral("The settings store .* is damaged.*"));
    wrapper->initialize(parameters);
    EXPECT_TRUE(wrapper->getReady()) << "a damaged store is no reason to have none";
    wrapper->shutdown();
    EXPECT_FALSE(wrapper->getReady());
    wrapper->initialize(parameters);
    EXPECT_EQ(ready.count(), 2) << "it can be started again";
}

TEST_F(DataManagerStart, WithoutItsFolderShowsDefaultsAndThenWhatIsStored)
{
    environment->completeStartup();
    const QDir folder(mFolder.path());
    const QHash<QString, QString> inner{
        {QStringLiteral("Path"), folder.filePath(QStringLiteral("inner/store.db"))}};
    wrapper->initialize(inner);
    const QString other = QStringLiteral("SettingsOther");
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(sId, 5)), Result::DM_OK);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(other, 5)), Result::DM_OK);
    auto* const manager = Hmi::Shared::SettingsManager::instance();
    wrapper->shutdown();
    ASSERT_TRUE(QDir(folder).rename(QStringLiteral("inner"), QStringLiteral("aside")));
    HmiTest::writeFile(mFolder, "inner", "no folder");

    HmiTest::expectMessageMatching(QtCriticalMsg,
                                   QStringLiteral("The settings store .* cannot be written: .*"));
    wrapper->initialize(inner);
    auto* const setting = new Hmi::Shared::Setting(sId, QStringLiteral("check"),
                                                   Hmi::Shared::Setting::SettingTypeInt, 1, HmiTest::Global);
    ASSERT_TRUE(manager->addSetting(setting));
    QSignalSpy changed(setting, &Hmi::Shared::Setting::valueChanged);
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral("Setting::getValue: Retrieve setting failed.*"));
    EXPECT_EQ(setting->getValue(), 1);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(other, 6)), Result::DM_SQL_ERROR);

    ASSERT_TRUE(QFile::remove(folder.filePath(QStringLiteral("inner"))));
    ASSERT_TRUE(QDir(folder).rename(QStringLiteral("aside"), QStringLiteral("inner")));
    EXPECT_TRUE(HmiTest::waitUntil([&] { return changed.count() > 0; }));
    EXPECT_EQ(setting->getValue(), 5) << "no default was written over it";
    int value = 0;
    EXPECT_EQ(DataManager::Settings::getGlobalSetting(other, value), DataManager::Ok);
    EXPECT_EQ(value, 6) << "what was set meanwhile was";
    // It is connected to the wrapper, which goes too.
    delete manager;
}

TEST_F(DataManagerStart, AnewAfterAFactoryResetKeepsNothing)
{
    environment->completeStartup();
    EXPECT_FALSE(wrapper->factoryReset());
    wrapper->initialize(parameters);
    wrapper->requestChangeSignalsForSetting(sId, QStringLiteral("check"))->deleteLater();
    QSignalSpy changed(wrapper, &DataManagerWrapper::globalSettingChanged);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(sId, 1)), Result::DM_OK);
    EXPECT_TRUE(wrapper->factoryReset());
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(errorOf(wrapper->getGlobalSettingInt(sId)), Result::DM_SETTING_NOT_FOUND);
    EXPECT_EQ(errorOf(wrapper->setGlobalSetting(sId, 2)), Result::DM_OK);
    EXPECT_EQ(changed.count(), 3) << "what was requested is still told";
    EXPECT_EQ(errorOf(wrapper->releaseChangeSignalsForSetting(sId, QStringLiteral("check"))), Result::DM_OK);
}

TEST_F(DataManagerStart, EndsBetweenItsEvents)
{
    struct Policy : Hmi::Core::PerfEventPolicyBase
    {
        void raiseEvent(const QString& aName) override
        {
            events.append(aName +
                          (DataManager::IsStarted() ? QStringLiteral(" up") : QStringLiteral(" down")));
        }
        QStringList events;
    } policy;
    environment->completeStartup();
    wrapper->initialize(parameters);
    HmiSharedGlobal::instance()->shutDown(&policy);
    EXPECT_EQ(HmiTest::joined(policy.events), "DataManagerDeInitStart up,DataManagerDeInitEnd down");
}

TEST(DataManagerResult, NamesEveryCodeOfTheLibrary)
{
    const int codes[] = {0, -1, 1, 100, 101, 102, 103, 200, 201, 202, 203, 900, 901, 902};
    for (int error = Result::DM_OK; error <= Result::DM_DB_BUSY; ++error)
        EXPECT_EQ(Result(codes[error], 5).getError(), error);
    HmiTest::expectWarning(QStringLiteral("ERROR: Unknown return value 42"));
    EXPECT_EQ(Result(42, QVariant()).getError(), Result::DM_ERROR);
}
