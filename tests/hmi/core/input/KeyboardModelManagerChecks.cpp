#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

#include <hmi/core/input/KeyboardModelManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::KeyboardModelManager;
using namespace HmiTest;

namespace {

class Keyboard : public testing::Test
{
protected:
    void create()
    {
        mManager = std::make_unique<KeyboardModelManager>(mFolder.path());
        QObject::connect(&*mManager, &KeyboardModelManager::currentLayoutChanged, [this] { ++mChanges; });
    }

    bool choose(const char* aLanguage) { return mManager->setCurrentLayout(QLatin1String(aLanguage)); }

    /** As QML walks it: row, key, member. */
    QVariant keyMember(int aRow, int aKey, const char* aMember) const
    {
        const QVariantList row = mManager->property("rows").toList().value(aRow).toList();
        return row.value(aKey).toMap().value(QLatin1String(aMember));
    }

    std::unique_ptr<KeyboardModelManager> mManager;
    int mChanges = 0;
    const QTemporaryDir mFolder;
};

} // namespace

TEST_F(Keyboard, EveryKeyHasTextShiftedAndWidthHoweverItWasWritten)
{
    writeFile(mFolder, "tr_TR.json", R"({"name": "Türkçe", "rows": [
        ["i", "ß", "é", "Enter", "7"], [{"text": "1", "shifted": "!", "width": 1.5, "icon": "one"}]]})");
    create();
    ASSERT_TRUE(choose("tr_TR"));
    EXPECT_EQ(mManager->getName(), QStringLiteral("Türkçe"));
    ASSERT_EQ(mManager->getRows().size(), 2);

    using Case = std::tuple<int, int, const char*, const char*, double>;
    for (const auto& [row, key, text, shifted, width] :
         {Case{0, 0, "i", "İ", 1}, Case{0, 1, "ß", "ß", 1}, Case{0, 2, "é", "É", 1},
          Case{0, 3, "Enter", "Enter", 1}, Case{0, 4, "7", "7", 1}, Case{1, 0, "1", "!", 1.5}}) {
        EXPECT_EQ(keyMember(row, key, "text").toString(), QString::fromUtf8(text));
        EXPECT_EQ(keyMember(row, key, "shifted").toString(), QString::fromUtf8(shifted)) << text;
        EXPECT_EQ(keyMember(row, key, "width").toDouble(), width) << text;
    }
    EXPECT_EQ(keyMember(1, 0, "icon").toString(), QStringLiteral("one"));
}

TEST_F(Keyboard, TakesTheClosestLayoutOfTheLanguage)
{
    for (const char* file : {"de_DE.json", "de_CH.json", "en.json", "en_US.json", "readme.txt"})
        writeFile(mFolder, file, R"({"rows": [["a"]]})");
    create();
    EXPECT_EQ(joined(mManager->getAvailableLayouts()), "de_CH,de_DE,en,en_US");

    using Case = std::tuple<const char*, const char*, int>;
    for (const auto& [wanted, taken, changes] :
         {Case{"de_DE", "de_DE", 1}, Case{"de_AT", "de_CH", 1}, Case{"de", "de_CH", 0},
          Case{"en_GB", "en", 1}, Case{"en_US", "en_US", 1}}) {
        mChanges = 0;
        EXPECT_TRUE(choose(wanted)) << wanted;
        EXPECT_EQ(mChanges, changes) << wanted;
        EXPECT_EQ(mManager->getCurrentLayout(), QLatin1String(taken)) << wanted;
    }
}

TEST_F(Keyboard, ALayoutThatCannotBeTakenLeavesTheOldOneAndNamesThePlace)
{
    const QByteArray huge = QByteArray(R"({"rows": [["a"]], "x": ")") + QByteArray(300000, 'x') + "\"}";
    const std::tuple<const char*, QByteArray, const char*> cases[] = {
        {"aa", "{\"rows\": [[\"a\"]", "unterminated array at byte 15"},
        {"bb", QByteArray("\0\1\2\3", 4), "illegal value at byte 1"},
        {"cc", huge, "it has more than 262144 bytes"},
        {"dd", "[1]", "it has no \"rows\""},
        {"ee", R"({"rows": [["a"], ["b", 7]]})", "row 2, key 2 is no key"},
        {"ff", R"({"rows": [[{"text": "a", "width": "wide"}]]})", "row 1, key 1 is no key"},
        {"gg", R"({"rows": [["a", {"text": "a", "width": -1}]]})", "row 1, key 2 is no key"},
        {"hh", R"({"rows": ["abc"]})", "row 1, key 1 is no key"},
        {"ii", "", "illegal value at byte 0"},
    };
    writeFile(mFolder, "en.json", R"({"rows": [["a"]]})");
    for (const auto& [language, content, problem] : cases)
        writeFile(mFolder, QByteArray(language) + ".json", content);
    create();
    ASSERT_TRUE(choose("en"));
    const auto refuses = [this](const char* aLanguage, const char* aProblem) {
        expectWarning(QStringLiteral("The keyboard layout %1/%2.json was not taken, \"en\" stays: %3.")
                          .arg(mFolder.path(), QLatin1String(aLanguage), QLatin1String(aProblem)));
        EXPECT_FALSE(choose(aLanguage)) << aLanguage;
        EXPECT_EQ(keyMember(0, 0, "text").toString(), QStringLiteral("a"));
    };
    for (const auto& [language, content, problem] : cases)
        refuses(language, problem);
    refuses("../en", "there is no layout for this language");
    EXPECT_EQ(mChanges, 1);
}
