#include "ChildProcess.h"
#include "QmlScreen.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/PrivateBus.h>

namespace {

class QmlTool : public testing::Test
{
protected:
    QString write(const QByteArray& aContent) const
    {
        HmiTest::writeFile(mFolder, "Check.qml", aContent);
        return mFolder.filePath(QStringLiteral("Check.qml"));
    }

    ChildProcess run(const char* aTool, const QStringList& aArguments,
                     const QString& aConfig = QString()) const
    {
        return ChildProcess::run(QStringLiteral(HMI_QT_TOOLS "/") + QLatin1String(aTool), aArguments,
                                 qmlToolEnvironment(aConfig), mFolder.path());
    }

    /** The configuration "host.ini" in the check's folder. */
    QString configure(const QByteArray& aContent) const
    {
        HmiTest::writeFile(mFolder, "host.ini", aContent);
        return mFolder.filePath(QStringLiteral("host.ini"));
    }

    QTemporaryDir mFolder;
};

/** A screen that ends at once and says what it saw. */
QByteArray screen(const QByteArray& aImports, const QByteArray& aExpression)
{
    return "import QtQuick 2.15\n" + aImports + "Item { Component.onCompleted: { console.log(" + aExpression +
           "); Qt.callLater(Qt.quit); } }\n";
}

} // namespace

TEST_F(QmlTool, LoadsTheModulesInEveryOrderAndReadsItsConfiguration)
{
    const QString config = configure("[HmiCore]\nIntervalPressAndHold=123\n");
    const QByteArray core = "import Hmi.Core 1.0\n";
    const QByteArray shared = "import hmi.shared 1.0\n";
    const QByteArray value = "HmiCore.configs.getIntervalPressAndHold()";
    const std::vector<QByteArray> screens = {screen(core, value), screen(core + shared, value),
                                             screen(shared + core, value),
                                             screen(shared, "123, HmiShared.settingsFileName")};
    for (const QByteArray& text : screens)
        for (const char* tool : {"qml", "qmlscene"}) {
            const ChildProcess child = run(tool, {write(text)}, config);
            EXPECT_TRUE(child.ended && child.status == 0)
                << tool << text.constData() << qPrintable(child.output);
            EXPECT_TRUE(child.output.contains(QStringLiteral("123"))) << tool << qPrintable(child.output);
            EXPECT_FALSE(child.output.contains(QStringLiteral("already been used")))
                << qPrintable(child.output);
        }
}

TEST_F(QmlTool, WithoutAConfigurationNamesTheFileThatItLookedFor)
{
    const ChildProcess child = run("qml", {write(screen("import hmi.shared 1.0\n", "1"))});
    EXPECT_EQ(child.status, 0) << qPrintable(child.output);
    EXPECT_TRUE(child.output.contains(QRegularExpression(
        QStringLiteral("The config file, .+\\.ini, could not be loaded because it does not exist\\."))));
}

TEST_F(QmlTool, HasDefaultSettingsButNoDataManagerWhereThatIsNotEnabled)
{
    const ChildProcess child = run(
        "qml", {write(screen(
                   "import hmi.shared 1.0\n",
                   "typeof DataManager, SettingsManager.timeFormat.value, SettingsManager.version.value"))});
    EXPECT_TRUE(child.output.contains(QStringLiteral("undefined h:mm ap 3"))) << qPrintable(child.output);
}

TEST_F(QmlTool, ShowsAtOnceWhatAnotherProcessSet)
{
    ASSERT_TRUE(HmiTest::PrivateBus::start());
    HmiTest::writeFile(mFolder, "DataManagerConf.ini", "[Storage]\n");
    const QString config =
        configure("[HmiShared]\nDataManagerEnabled=true\nDataManagerConfigPath=DataManagerConf.ini\n");
    QmlScreen shown(mFolder, "Text { text: SettingsManager.timeFormat.value + ' of ' + "
                             "DataManager.activeUserProfile\n onTextChanged: console.log(text) }\n");
    EXPECT_TRUE(shown.says("h:mm ap of driver"));
    const auto set = [&](const QByteArray& aStatement) {
        const ChildProcess other = run("qml", {write(screen("import hmi.shared 1.0\n", aStatement))}, config);
        EXPECT_EQ(other.status, 0) << qPrintable(other.output);
    };
    set("SettingsManager.timeFormat.value = 'HH:mm'");
    EXPECT_TRUE(shown.says("HH:mm of driver"));
    set("DataManager.addNewUserProfile('Anna').error, DataManager.activeUserProfile = 'Anna'");
    EXPECT_TRUE(shown.says("h:mm ap of Anna"));
    EXPECT_FALSE(shown.getBefore().contains("HH:mm of driver")) << "told once";
}

TEST_F(QmlTool, PrintsAnItemAsItIsShown)
{
    const ChildProcess child =
        run("qml",
            {write("import QtQuick 2.15\nimport QtQuick.Window 2.15\nimport hmi.shared 1.0\n"
                   "Window { id: window; visible: true; width: 60; height: 40\n"
                   "  Rectangle { id: page; width: 60; height: 40; color: 'red'\n"
                   "    Rectangle { width: 30; height: 40; color: 'blue' } }\n"
                   "  Connections { target: PagePrintManager; function onPrinted() { Qt.quit(); } }\n"
                   "  onFrameSwapped: PagePrintManager.print(page, 'page.png') }\n")},
            configure("[HmiShared]\nScreenSnapshotPath=prints/new\n"));
    EXPECT_EQ(child.status, 0) << qPrintable(child.output);
    const QImage page(mFolder.filePath(QStringLiteral("prints/new/page.png")));
    EXPECT_EQ(page.size(), QSize(60, 40));
    EXPECT_EQ(page.pixelColor(10, 20), QColor(Qt::blue));
    EXPECT_EQ(page.pixelColor(50, 20), QColor(Qt::red));
}

TEST_F(QmlTool, FindsADescriptionOfEveryTypeForEditors)
{
    const std::vector<std::pair<const char*, const char*>> described = {
        {"Hmi/Core", "Hmi.Core/LanguageManager 1.0"},
        {"Hmi/Core", "Hmi.Core/HandleDefaultsResource 1.0"},
        {"hmi/shared", "hmi.shared/ActionManager 1.0"},
        {"hmi/shared", "hmi.shared/DataManager 1.0"},
        {"hmi/shared", "hmi.shared/HmiSharedConfigs 1.0"},
        {"hmi/vehicle", "hmi.vehicle/HmiVehicle 1.0"}};
    for (const auto& [folder, type] : described) {
        QFile types(QStringLiteral(HMI_QML_DIRECTORY "/%1/plugins.qmltypes").arg(QLatin1String(folder)));
        ASSERT_TRUE(types.open(QFile::ReadOnly)) << folder;
        EXPECT_TRUE(types.readAll().contains(type)) << type;
    }
}
