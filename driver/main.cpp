#include <QCoreApplication>
#include <QHash>
#include <QSharedPointer>
#include <QString>
#include <gtest/gtest.h>

#include "DriverReport.h"
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/foundation/Initialization.h>
#include <hmi/core/resources/ResourceManager.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/qml/SharedQmlModule.h>

/** Prints what the host runs with, then runs the checks; their result is the driver's. */
static int runComponentChecks(const QString& aBundle)
{
    if (testing::GTEST_FLAG(list_tests))
        return RUN_ALL_TESTS();
    DriverReport::printConfiguration(*Hmi::Core::ConfigManager::instance());
    DriverReport::printThemeBundle(aBundle, Hmi::Core::ResourceManager::instance()->getFilePath(aBundle));
    const int status = RUN_ALL_TESTS();
    const testing::UnitTest& checks = *testing::UnitTest::GetInstance();
    DriverReport::printOutcome(checks.test_to_run_count(), checks.failed_test_count());
    return status;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    Hmi::Core::registerResources();
    Hmi::Shared::registerResources();
    const QString configPath = QCoreApplication::applicationDirPath() +
                               QStringLiteral("/tests/testData/opt/korvex/etc/hmi_shared_test.ini");
    const QSharedPointer<Hmi::Core::PerfEventPolicyBase> perfEventPolicy(
        new Hmi::Shared::PerfEventPolicyMetron(nullptr));
    const QHash<QString, QString> overrides;
    Hmi::Core::initialize(perfEventPolicy, configPath, overrides);
    // Its keys are part of the report.
    Hmi::Shared::HmiSharedConfigs::instance();
    Hmi::Shared::registerQmlModules();

    const QString bundle = QStringLiteral("hmi_shared_test_theme_shared.rcc");
    if (!Hmi::Core::ResourceManager::instance()->registerResource(bundle)) {
        qCritical("Unable to load 'hmi_shared_test_theme_shared.rcc'");
        return -1;
    }
    const int status = runComponentChecks(bundle);
    Hmi::Core::ResourceManager::instance()->unregisterResource(bundle);
    Hmi::Shared::unregisterResources();
    Hmi::Core::unregisterResources();
    return status;
}
