#include <QJsonDocument>
#include <gtest/gtest.h>
#include <optional>
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
    Keyboard()
    {
        for (const char* name : {"de_DE", "de_CH", "en", "en_US", "tr_TR"})
            writeFile(mFolder, QByteArray(name) + ".json", R"({"rows": [["a"]]})");
        mManager.emplace(mFolder.path());
        QObject::connect(&*mManager, &KeyboardModelManager::currentLayoutChanged,
                         [this] { mTaken.append(mManager->getCurrentLayout()); });
    }

    bool choose(const char* aLanguage) { return mManager->setCurrentLayout(QLatin1String(aLanguage)); }

    QByteArray rows() const
    {
        return QJsonDocument::fromVariant(mManager->getRows()).toJson(QJsonDocument::Compact);
    }

    const QTemporaryDir mFolder;
    std::optional<KeyboardModelManager> mManager;
    QStringList mTaken;
};

} // namespace

TEST_F(Keyboard, EveryKeyHasTextShiftedAndWidthHoweverItWasWritten)
{
    writeFile(mFolder, "tr_TR.json", R"({"name": "Türkçe", "rows": [
        ["i", "ß", "é", "Enter"], [{"text": "1", "shifted": "!", "width": 1.5, "icon": "one"}]]})");
    ASSERT_TRUE(choose("tr_TR"));
    EXPECT_EQ(mManager->getName(), QStringLiteral("Türkçe"));
    EXPECT_EQ(rows(), R"([[{"shifted":"İ","text":"i","width":1},{"shifted":"ß","text":"ß","width":1},)"
                      R"({"shifted":"É","text":"é","width":1},{"shifted":"Enter","text":"Enter","width":1}],)"
                      R"([{"icon":"one","shifted":"!","text":"1","width":1.5}]])");
}

TEST_F(Keyboard, TakesTheClosestLayoutOfTheLanguage)
{
    EXPECT_EQ(joined(mManager->getAvailableLayouts()), "de_CH,de_DE,en,en_US,tr_TR");
    for (const char* language : {"de_DE", "de_AT", "de", "en_GB", "en_US"})
        EXPECT_TRUE(choose(language)) << language;
    EXPECT_EQ(joined(mTaken), "de_DE,de_CH,en,en_US") << "no change for \"de\"";
}

TEST_F(Keyboard, ALayoutThatCannotBeTakenLeavesTheOldOneAndNamesThePlace)
{
    ASSERT_TRUE(choose("en"));
    using Case = std::tuple<const char*, QByteArray, const char*>;
    for (const auto& [language, content, problem] :
         {Case{"../en", "", "there is no layout for this language"},
          Case{"tr_TR", "", "illegal value at byte 0"},
          Case{"tr_TR", "{\"rows\": [[\"a\"]", "unterminated array at byte 15"},
          Case{"tr_TR", QByteArray(300000, ' ') + "{}", "it has more than 262144 bytes"},
          Case{"tr_TR", "[1]", "it has no \"rows\""},
          Case{"tr_TR", R"({"rows": [["a"], ["b", 7]]})", "row 2, key 2 is no key"},
          Case{"tr_TR", R"({"rows": [["a", {"text": "a", "width": -1}]]})", "row 1, key 2 is no key"},
          Case{"tr_TR", R"({"rows": ["abc"]})", "row 1, key 1 is no key"}}) {
        writeFile(mFolder, "tr_TR.json", content);
        expectWarning(QStringLiteral("The keyboard layout %1/%2.json was not taken, \"en\" stays: %3.")
                          .arg(mFolder.path(), QLatin1String(language), QLatin1String(problem)));
        EXPECT_FALSE(choose(language)) << problem;
        EXPECT_EQ(rows(), R"([[{"shifted":"A","text":"a","width":1}]])") << problem;
    }
    EXPECT_EQ(joined(mTaken), "en");
}
