#include <QCoreApplication>
#include <QFile>
#include <QMetaMethod>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <tests/support/ExpectedMessages.h>

using namespace Hmi;
using HmiTest::expectMessageMatching;
using HmiTest::expectWarning;

namespace {

class Configs : public testing::Test
{
protected:
    void load(const QByteArray& aContent)
    {
        QFile file(mFolder.filePath(QStringLiteral("%1.ini").arg(++mFiles)));
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(aContent) == aContent.size());
        file.close();
        ASSERT_TRUE(mConfig.load(file.fileName()));
    }

    QString inFolder(const char* aPath) const
    {
        return mFolder.path() + QLatin1Char('/') + QLatin1String(aPath);
    }

    QTemporaryDir mFolder;
    int mFiles = 0;
    Core::ConfigManager mConfig;
    const QString mApplication = QCoreApplication::applicationName();
};

} // namespace

TEST_F(Configs, PathsFollowThePrefixWhereverItIsConfigured)
{
    {
        const Core::HmiCoreConfigs defaults(mConfig);
        EXPECT_EQ(defaults.getGnuBindir(), QStringLiteral("usr/local/bin"));
        EXPECT_EQ(defaults.getThemesPath(), QStringLiteral("usr/local/share/%1/themes").arg(mApplication));
        EXPECT_EQ(defaults.getStringDatabaseName(),
                  QStringLiteral("usr/local/var/%1_strings.db").arg(mApplication));
        EXPECT_EQ(defaults.getResourceCachePath(),
                  QStringLiteral("usr/local/var/%1/resource_cache/").arg(mApplication));
    }
    load("[HmiCore]\nGnuPrefix=..\nGnuDatadir=data\nLanguagesPath=tongues\n");
    const Core::HmiCoreConfigs configured(mConfig);
    EXPECT_EQ(configured.getGnuPrefix(), inFolder(".."));
    EXPECT_EQ(configured.getGnuLibdir(), inFolder("../lib"));
    EXPECT_EQ(configured.getKeyboardsPath(), inFolder("data/%1/keyboards").arg(mApplication));
    EXPECT_EQ(configured.getLanguagesPath(), inFolder("tongues"));
}

TEST_F(Configs, ResolutionListsAreTolerantOfSeparatorsAndNameTheEntryThatIsNoSize)
{
    struct Case
    {
        const char* list;
        QList<QSize> expected;
        const char* refused;
    };
    const QSize small(800, 480);
    const QSize large(1024, 768);
    const std::vector<Case> cases = {
        {"", {}, nullptr},
        {"800x480", {small}, nullptr},
        {"800x480, 1024x768", {small, large}, nullptr},
        {"\"800x480, 1024x768\"", {small, large}, nullptr},
        {"\"  800X480 ;;1024 x 768 ,\"", {small, large}, nullptr},
        {"800x480 1024x768", {small, large}, nullptr},
        {"800x480,wide,1024x768", {small, large}, "wide"},
        {"800x0,1024x768", {large}, "800x0"},
        {"-800x480", {}, "-800x480"},
        {"800x480x2", {}, "800x480x2"},
        {"99999999999x1", {}, "99999999999x1"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.list);
        load(QByteArray("[HmiCore]\nSecondaryDisplayResolution=") + row.list + '\n');
        const Core::HmiCoreConfigs configs(mConfig);
        if (row.refused)
            expectWarning(
                QStringLiteral("Invalid resolution \"%1\" listed for HmiCore/SecondaryDisplayResolution\n")
                    .arg(QLatin1String(row.refused)));
        EXPECT_EQ(configs.getSecondaryDisplayResolution(), row.expected);
    }
}

TEST_F(Configs, OfTheSharedLibraryFollowTheFoldersOfTheCore)
{
    expectWarning(QStringLiteral("resourcesPath: /%1/").arg(mApplication));
    const Shared::HmiSharedConfigs alone(mConfig);
    EXPECT_EQ(mConfig.text(QStringLiteral("HmiShared/DataManagerConfigPath"), true),
              QStringLiteral("usr/local/DataManagerConf.ini"));

    load("[HmiCore]\nGnuPrefix=/opt\nGnuLocalstatedir=state\n[HmiShared]\nVoicesPath=voices\n");
    const Core::HmiCoreConfigs core(mConfig);
    expectWarning(QStringLiteral("resourcesPath: /opt/share/%1/").arg(mApplication));
    const Shared::HmiSharedConfigs configs(mConfig);
    EXPECT_EQ(mConfig.text(QStringLiteral("HmiShared/DataManagerConfigPath"), true),
              QStringLiteral("/opt/etc/DataManagerConf.ini"));
    EXPECT_EQ(configs.getErrorReportPath(), inFolder("state/log/shutdowns"));
    EXPECT_EQ(configs.getErrorReportExportPath(), inFolder("state"));
    EXPECT_EQ(configs.getEulaPath(), QStringLiteral("/opt/share/%1/eula").arg(mApplication));
    EXPECT_EQ(configs.getVoicesPath(), QStringLiteral("voices"));
}

TEST_F(Configs, ViewportScalingIsReadByNameAndFallsBackToPad)
{
    using Scaling = Shared::HmiSharedConfigs;
    const std::vector<std::pair<const char*, Scaling::ViewportScaling>> cases = {
        {"ViewportScalingStretch", Scaling::ViewportScalingStretch},
        {"ViewportScalingPreserveAspectFit", Scaling::ViewportScalingPreserveAspectFit},
        {"Sideways", Scaling::ViewportScalingPad},
    };
    for (const auto& [name, expected] : cases) {
        load(QByteArray("[HmiShared]\nScaleViewportToFitWindow=") + name + '\n');
        expectMessageMatching(QtWarningMsg, QStringLiteral("resourcesPath: .*"));
        const Shared::HmiSharedConfigs configs(mConfig);
        if (expected == Scaling::ViewportScalingPad)
            expectMessageMatching(QtWarningMsg,
                                  QStringLiteral(".*\"Sideways\" of HmiShared/ScaleViewport.*"));
        EXPECT_EQ(configs.getScaleViewportToFitWindow(), expected);
    }
}

/** Every getter is asked through QML's own door, for a default of the type that the key's table names. */
TEST_F(Configs, EveryGetterIsReachableFromQmlAndReadsItsOwnKey)
{
    const Core::HmiCoreConfigs core(mConfig);
    expectMessageMatching(QtWarningMsg, QStringLiteral("resourcesPath: .*"));
    const Shared::HmiSharedConfigs shared(mConfig);
    const auto invokableGetters = [](const QObject& aObject) {
        QStringList names;
        for (int index = aObject.metaObject()->methodOffset(); index < aObject.metaObject()->methodCount();
             ++index)
            names.append(QString::fromLatin1(aObject.metaObject()->method(index).name()));
        return names;
    };
    const QStringList typed{QStringLiteral("PrimaryDisplayResolution"),
                            QStringLiteral("SecondaryDisplayResolution"),
                            QStringLiteral("ScaleViewportToFitWindow")};
    EXPECT_EQ(invokableGetters(core).size(), 26);
    EXPECT_EQ(invokableGetters(shared).size(), 14);
    for (const QObject* object : {static_cast<const QObject*>(&core), static_cast<const QObject*>(&shared)}) {
        const QString group = object == &core ? QStringLiteral("HmiCore/") : QStringLiteral("HmiShared/");
        for (const QString& getter : invokableGetters(*object)) {
            const QString name = getter == QStringLiteral("getErrorReportExportPath")
                                     ? QStringLiteral("ErrorReportPathExport")
                                     : getter.mid(3);
            const QString key = group + name;
            SCOPED_TRACE(qPrintable(key));
            ASSERT_TRUE(mConfig.getKeys().contains(key));
            const bool isText = mConfig.value(key, true).type() == QVariant::String && !typed.contains(name);
            QString read;
            if (isText && QMetaObject::invokeMethod(const_cast<QObject*>(object), getter.toLatin1(),
                                                    Q_RETURN_ARG(QString, read))) {
                EXPECT_EQ(read, mConfig.text(key, true));
            }
        }
    }
}
