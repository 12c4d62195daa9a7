#pragma once

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/settings/Setting.h>
#include <platform/data-manager/DataManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

namespace HmiTest {

constexpr auto User = Hmi::Shared::Setting::SettingCategoryUser;
constexpr auto Global = Hmi::Shared::Setting::SettingCategoryGlobal;
constexpr auto Protected = Hmi::Shared::Setting::SettingCategoryProtected;

/** A data manager on a store of its own, which the check starts. */
struct SettingsStore : testing::Test
{
    using Manager = Hmi::Shared::DataManagerWrapper;

    SettingsStore() { writeFile(mFolder, "DataManagerConf.ini", "[Storage]\nPath=settings.db\n"); }
    ~SettingsStore() override { DataManager::ShutDown(); }

    void start()
    {
        ASSERT_EQ(DataManager::StartUp(mFolder.filePath(QStringLiteral("DataManagerConf.ini"))), 0);
    }

    static void warns(const char* aPattern) { expectMessageMatching(QtWarningMsg, QLatin1String(aPattern)); }

    QTemporaryDir mFolder;
};

} // namespace HmiTest
