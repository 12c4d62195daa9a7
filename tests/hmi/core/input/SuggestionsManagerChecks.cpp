#include <gtest/gtest.h>
#include <optional>
#include <tuple>

#include <hmi/core/input/SuggestionsManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::SuggestionsManager;
using namespace HmiTest;

namespace {

class Suggestions : public testing::Test
{
protected:
    Suggestions()
    {
        writeFile(mFolder, "en.txt", "park\npark avenue\nparking\nparty\n");
        writeFile(mFolder, "xx.txt", "");
        create();
    }

    void create(int aLimit = 100)
    {
        mManager.emplace(mFolder.path(), mFolder.filePath(QStringLiteral("made/on/demand")), aLimit);
        QObject::connect(&*mManager, &SuggestionsManager::userWordsChanged, [this] { ++mChanges; });
        QObject::connect(&*mManager, &SuggestionsManager::languageChanged, [this] { ++mChanges; });
    }

    bool load(const char* aLanguage) { return mManager->loadLanguage(QLatin1String(aLanguage)); }

    std::string suggest(const char* aPrefix, int aMaximum = 9) const
    {
        return joined(mManager->suggestions(QString::fromUtf8(aPrefix), aMaximum));
    }

    void addUserWords(std::initializer_list<const char*> aWords)
    {
        for (const char* word : aWords)
            mManager->addUserWord(QString::fromUtf8(word));
    }

    std::string userWords() const { return joined(mManager->getUserWords()); }

    const QTemporaryDir mFolder;
    const QString mUserFile = mFolder.filePath(QStringLiteral("made/on/demand/suggestions_user_words.txt"));
    std::optional<SuggestionsManager> mManager;
    int mChanges = 0;
};

} // namespace

TEST_F(Suggestions, FindsEveryWordOfThePrefixRegardlessOfCase)
{
    writeFile(mFolder, "xx.txt",
              "\xEF\xBB\xBFzoo\r\nApfel\r\n  apfelbaum \n\nÖl\nÖlfeld\napfel\napfel\nAal\nap\n\nöde\n" +
                  QByteArray(200, 'a') + "\nZürich");
    ASSERT_TRUE(load("xx_YY"));
    using Case = std::tuple<const char*, int, const char*>;
    for (const auto& [prefix, maximum, expected] :
         {Case{"AP", 9, "ap,Apfel,apfel,apfelbaum"}, Case{"ap", 2, "ap,Apfel"}, Case{"aaa", 9, ""},
          Case{"ö", 9, "öde,Öl,Ölfeld"}, Case{"z", 9, "zoo,Zürich"}, Case{"zürichsee", 9, ""},
          Case{"", 9, ""}, Case{"ap", 0, ""}, Case{"ap", -1, ""}})
        EXPECT_EQ(suggest(prefix, maximum), expected) << prefix;
}

TEST_F(Suggestions, UserWordsComeFirstMostRecentFirstAndOnce)
{
    ASSERT_TRUE(load("en"));
    addUserWords({"parking", "Parma", "other", " Park ", "PARMA"});
    EXPECT_EQ(suggest("par"), "PARMA,Park,parking,park avenue,party");
    EXPECT_EQ(suggest("par", 4), "PARMA,Park,parking,park avenue");
    EXPECT_EQ(suggest("par", 1), "PARMA");
    EXPECT_EQ(suggest(""), "PARMA,Park,other,parking");
    mManager->removeUserWord(QStringLiteral("parking"));
    EXPECT_EQ(suggest("park"), "Park,park avenue,parking");
}

TEST_F(Suggestions, UserWordsAreBoundedByDroppingTheLeastRecentlyUsed)
{
    create(3);
    addUserWords({"one", "two", "three", "one", "four"});
    addUserWords({"four", "", "  ", "two\nlines", "\a", QByteArray(101, 'x')});
    mManager->removeUserWord(QStringLiteral("two"));
    EXPECT_EQ(userWords(), "four,one,three");
    EXPECT_EQ(mChanges, 5);
}

TEST_F(Suggestions, UserWordsSurviveInTheirOrderOfUse)
{
    addUserWords({"Köln", "New York", "Łódź"});
    EXPECT_TRUE(waitUntil([this] { return readFile(mUserFile) == "Łódź\nNew York\nKöln"; }));
    mManager->removeUserWord(QStringLiteral("Łódź"));
    addUserWords({"Köln"});
    create();
    EXPECT_EQ(userWords(), "Köln,New York") << "saved at the end";
    create(1);
    EXPECT_EQ(userWords(), "Köln") << "a lowered limit keeps the most recent";
    mManager->clearUserWords();
    create();
    EXPECT_EQ(userWords(), "");

    writeFile(mFolder, "made/on/demand/suggestions_user_words.txt",
              QByteArray("good\n\xFF\xFE\nGOOD\nna\0ught\nbetter\n", 28));
    expectMessageMatching(QtWarningMsg, QStringLiteral(".* %1 could not all be read: .+").arg(mUserFile));
    create();
    EXPECT_EQ(userWords(), "good,better") << "damage costs only the damaged lines";
}

TEST_F(Suggestions, AFailureToSaveIsReportedAndKeepsTheWords)
{
    writeFile(mFolder, "made", "a file where a folder should be");
    addUserWords({"one", "two"});
    EXPECT_EQ(userWords(), "two,one");
    expectMessageMatching(QtWarningMsg, QStringLiteral(".* could not be saved to %1: .+").arg(mUserFile));
    mManager.reset();
}

TEST_F(Suggestions, AListThatCannotBeUsedLeavesTheOldOne)
{
    ASSERT_TRUE(load("en"));
    for (const auto& [content, problem] :
         {std::pair(QByteArray(2000000, 'a'), "it has more than 1048576 bytes"),
          std::pair(QByteArray("word\nwo\0rd\n", 11), "it is no UTF-8 text"),
          std::pair(QByteArray("word\n\xC3\x28\n"), "it is no UTF-8 text"),
          std::pair(QByteArray("word\nwor\xC3"), "it is no UTF-8 text")}) {
        writeFile(mFolder, "xx.txt", content);
        expectWarning(QStringLiteral("The word list %1/xx.txt is not used, \"en\" stays: %2.")
                          .arg(mFolder.path(), QLatin1String(problem)));
        EXPECT_FALSE(load("xx"));
    }
    expectMessageMatching(QtWarningMsg, QStringLiteral(".* stays: there is no list for this language\\."));
    EXPECT_FALSE(load("fr"));
    EXPECT_EQ(suggest("part"), "party");
    EXPECT_EQ(mChanges, 1);
}
