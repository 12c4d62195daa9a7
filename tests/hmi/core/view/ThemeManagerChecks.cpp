#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <hmi/core/view/ThemeManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::ThemeManager;
using namespace HmiTest;

namespace {

class Themes : public testing::Test
{
protected:
    Themes()
    {
        QObject::connect(&mManager, &ThemeManager::currentThemeChanged,
                         [this] { mLog.append(QStringLiteral("now ") + mManager.getCurrentTheme()); });
    }

    bool record(const char* aAction, const QString& aFile)
    {
        mLog.append(QLatin1String(aAction) + aFile);
        return !mBroken.contains(aFile);
    }

    std::string actionsOf(const char* aTheme, bool aExpected = true)
    {
        mLog.clear();
        EXPECT_EQ(mManager.setCurrentTheme(QLatin1String(aTheme)), aExpected) << aTheme;
        return joined(mLog);
    }

    const QTemporaryDir mFolder;
    QStringList mLog;
    QStringList mBroken;
    ThemeManager mManager{mFolder.path(),
                          {[this](const QString& aFile) { return record("+", aFile); },
                           [this](const QString& aFile) { return record("-", aFile); }}};
};

} // namespace

TEST(ThemeManager, FindsTheBundlesOfTheThemesPathOnly)
{
    const QTemporaryDir folder;
    for (const char* file : {"night.rcc", "day.rcc", "sport.v2.rcc", "notes.txt"})
        writeFile(folder, file, "x");
    EXPECT_EQ(joined(ThemeManager(folder.path(), {}).getAvailableThemes()), "day,night,sport.v2");
    EXPECT_TRUE(ThemeManager(folder.filePath(QStringLiteral("none")), {}).getAvailableThemes().isEmpty());
}

TEST_F(Themes, ThereIsAThemeAtEveryMomentOfASwitch)
{
    EXPECT_EQ(actionsOf("day"), "+day.rcc,now day");
    EXPECT_EQ(actionsOf("day"), "");
    EXPECT_EQ(actionsOf("night"), "+night.rcc,-day.rcc,now night");
    EXPECT_EQ(actionsOf(""), "-night.rcc,now ");
}

TEST_F(Themes, AFailedSwitchKeepsTheOldTheme)
{
    actionsOf("day");
    mBroken = QStringList{QStringLiteral("night.rcc")};
    for (const char* theme : {"night", "../day"}) {
        expectMessageMatching(
            QtWarningMsg,
            QStringLiteral("The theme \"%1\" cannot be shown, \"day\" stays: its bundle .*%2\\.")
                .arg(QRegularExpression::escape(QLatin1String(theme)), mFolder.path()));
        const std::string actions = actionsOf(theme, false);
        EXPECT_TRUE(actions.empty() || actions == "+night.rcc") << actions;
    }
    EXPECT_EQ(mManager.getCurrentTheme(), QStringLiteral("day"));

    mBroken = QStringList{QStringLiteral("day.rcc")};
    expectMessageMatching(QtWarningMsg, QStringLiteral("The bundle \"day.rcc\" of the former .*"));
    EXPECT_EQ(actionsOf("night"), "+night.rcc,-day.rcc,now night") << "a bundle that stays is no obstacle";
}
