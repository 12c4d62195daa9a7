#include <gtest/gtest.h>
#include <tuple>

#include <hmi/core/view/ThemeManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::ThemeManager;
using namespace HmiTest;

TEST(ThemeManager, HasAThemeAtEveryMomentOfASwitchAndKeepsTheOldOneWhenItFails)
{
    const QTemporaryDir folder;
    for (const char* file : {"night.rcc", "day.rcc", "sport.v2.rcc", "notes.txt"})
        writeFile(folder, file, "x");
    std::string actions;
    QString broken;
    const auto recorder = [&](const char* aAction) {
        return [&, aAction](const QString& aFile) {
            actions += aAction + aFile.toStdString();
            return aFile != broken;
        };
    };
    ThemeManager manager(folder.path(), {recorder(" +"), recorder(" -")});
    QObject::connect(&manager, &ThemeManager::currentThemeChanged,
                     [&] { actions += " = " + manager.getCurrentTheme().toStdString(); });
    EXPECT_EQ(joined(manager.getAvailableThemes()), "day,night,sport.v2");

    const char* const refused = "The theme .+ cannot be shown, \"day\" stays: its bundle .+";
    using Case = std::tuple<const char*, const char*, const char*, const char*>;
    for (const auto& [theme, brokenBundle, expected, warning] :
         {Case{"night", "", " +night.rcc = night", ""}, Case{"night", "", "", ""},
          Case{"day", "", " +day.rcc -night.rcc = day", ""},
          Case{"night", "night.rcc", " +night.rcc", refused}, Case{"../day", "", "", refused},
          Case{"night", "day.rcc", " +night.rcc -day.rcc = night", "The bundle \"day.rcc\" of the former .+"},
          Case{"", "", " -night.rcc = ", ""}}) {
        actions.clear();
        broken = QLatin1String(brokenBundle);
        if (*warning)
            expectMessageMatching(QtWarningMsg, QLatin1String(warning));
        EXPECT_EQ(manager.setCurrentTheme(QLatin1String(theme)), warning != refused) << theme;
        EXPECT_EQ(actions, expected);
    }
}
