#include <QCoreApplication>
#include <QMetaMethod>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <tests/hmi/core/foundation/ConfigFolder.h>
#include <tests/support/ExpectedMessages.h>

using namespace Hmi;
using namespace HmiTest;

namespace {

class Configs : public ConfigFolder
{
protected:
    static QString named(const char* aPattern)
    {
        return text(aPattern).arg(QCoreApplication::applicationName());
    }
};

TEST_F(Configs, PathsFollowThePrefixWhereverItIsConfigured)
{
    {
        const Core::HmiCoreConfigs defaults(mConfig);
        EXPECT_EQ(defaults.getGnuBindir(), text("usr/local/bin"));
        EXPECT_EQ(defaults.getThemesPath(), named("usr/local/share/%1/themes"));
        EXPECT_EQ(defaults.getStringDatabaseName(), named("usr/local/var/%1_strings.db"));
        EXPECT_EQ(defaults.getResourceCachePath(), named("usr/local/var/%1/resource_cache/"));
    }
    load("[HmiCore]\nGnuPrefix=..\nGnuDatadir=data\nLanguagesPath=tongues\n");
    const Core::HmiCoreConfigs configured(mConfig);
    EXPECT_EQ(configured.getGnuLibdir(), inFolder("../lib"));
    EXPECT_EQ(configured.getKeyboardsPath(), inFolder(qPrintable(named("data/%1/keyboards"))));
    EXPECT_EQ(configured.getLanguagesPath(), inFolder("tongues"));
}

TEST_F(Configs, ResolutionListsAreTolerantOfSeparatorsAndNameTheEntryThatIsNoSize)
{
    const QSize small(800, 480);
    const QSize large(1024, 768);
    const struct
    {
        const char* list;
        QList<QSize> expected;
        const char* refused;
    } rows[] = {
        {"", {}, nullptr},
        {"800x480, 1024x768", {small, large}, nullptr},
        {"\"  800X480 ;;1024 x 768 ,\"", {small, large}, nullptr},
        {"800x480 1024x768", {small, large}, nullptr},
        {"800x480,wide,1024x768", {small, large}, "wide"},
        {"800x0,1024x768", {large}, "800x0"},
        {"-800x480", {}, "-800x480"},
        {"800x480x2", {}, "800x480x2"},
        {"99999999999x1", {}, "99999999999x1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.list);
        load(QByteArray("[HmiCore]\nSecondaryDisplayResolution=") + row.list + '\n');
        if (row.refused)
            expectWarning(text("Invalid resolution \"%1\" listed for HmiCore/SecondaryDisplayResolution\n")
                              .arg(text(row.refused)));
        EXPECT_EQ(Core::HmiCoreConfigs(mConfig).getSecondaryDisplayResolution(), row.expected);
    }
}

TEST_F(Configs, OfTheSharedLibraryFollowTheFoldersOfTheCore)
{
    expectWarning(named("resourcesPath: /%1/"));
    const Shared::HmiSharedConfigs alone(mConfig);
    EXPECT_EQ(value("HmiShared/DataManagerConfigPath"), text("usr/local/DataManagerConf.ini"));

    load("[HmiCore]\nGnuPrefix=/opt\nGnuLocalstatedir=state\n"
         "[HmiShared]\nVoicesPath=voices\nHardwareEsnPath=esn\nScaleViewportToFitWindow=Sideways\n");
    const Core::HmiCoreConfigs core(mConfig);
    expectWarning(named("resourcesPath: /opt/share/%1/"));
    const Shared::HmiSharedConfigs configs(mConfig);
    EXPECT_EQ(value("HmiShared/DataManagerConfigPath"), text("/opt/etc/DataManagerConf.ini"));
    EXPECT_EQ(configs.getErrorReportPath(), inFolder("state/log/shutdowns"));
    EXPECT_EQ(configs.getErrorReportExportPath(), inFolder("state"));
    EXPECT_EQ(configs.getEulaPath(), named("/opt/share/%1/eula"));
    EXPECT_EQ(configs.getVoicesPath(), text("voices"));
    EXPECT_EQ(configs.getProductInfoFiles().hardwareEsn, inFolder("esn"));
    EXPECT_EQ(configs.getProductInfoFiles().softwareVersion, text("/etc/korvex-sw-version"));
    expectMessageMatching(QtWarningMsg, text(".*\"Sideways\" of HmiShared/ScaleViewportToFitWindow.*"));
    EXPECT_EQ(configs.getScaleViewportToFitWindow(), Shared::HmiSharedConfigs::ViewportScalingPad);
}

/** Every getter is asked through QML's own door for the key of its name. */
TEST_F(Configs, EveryGetterIsReachableFromQmlAndReadsItsOwnKey)
{
    Core::HmiCoreConfigs core(mConfig);
    expectMessageMatching(QtWarningMsg, text("resourcesPath: .*"));
    Shared::HmiSharedConfigs shared(mConfig);
    int getters = 0;
    const auto check = [&](QObject& aFacade, const QString& aGroup) {
        const QMetaObject* type = aFacade.metaObject();
        for (int index = type->methodOffset(); index < type->methodCount(); ++index, ++getters) {
            const QMetaMethod getter = type->method(index);
            QString key = aGroup + QString::fromLatin1(getter.name()).mid(3);
            key.replace(text("ErrorReportExportPath"), text("ErrorReportPathExport"));
            EXPECT_TRUE(mConfig.getKeys().contains(key)) << qPrintable(key);
            QString read;
            if (getter.returnType() == QMetaType::QString &&
                getter.invoke(&aFacade, Q_RETURN_ARG(QString, read))) {
                EXPECT_EQ(read, mConfig.text(key, true));
            }
        }
    };
    check(core, text("HmiCore/"));
    check(shared, text("HmiShared/"));
    EXPECT_EQ(getters, 26 + 14);
}

} // namespace
