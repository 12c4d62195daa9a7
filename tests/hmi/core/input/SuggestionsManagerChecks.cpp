#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <optional>
#include <tuple>

#include <hmi/core/input/SuggestionsManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::SuggestionsManager;
using namespace HmiTest;

namespace {

constexpr const char* UserFile = "made/on/demand/suggestions_user_words.txt";

class Suggestions : public testing::Test
{
protected:
    void create(int aLimit = 100)
    {
        mManager.emplace(mLists.path(), mUser.filePath(QStringLiteral("made/on/demand")), aLimit);
        QObject::connect(&*mManager, &SuggestionsManager::languageChanged, [this] { ++mChanges; });
    }

    /** The language in use after it was asked for. */
    QString load(const char* aLanguage)
    {
        const int changes = mChanges;
        const bool loaded = mManager->loadLanguage(QLatin1String(aLanguage));
        EXPECT_EQ(mChanges, changes + (loaded ? 1 : 0));
        return mManager->getLanguage();
    }

    std::string suggest(const char* aPrefix, int aMaximum = 100) const
    {
        return joined(mManager->suggestions(QString::fromUtf8(aPrefix), aMaximum));
    }

    void addUserWords(std::initializer_list<const char*> aWords)
    {
        for (const char* word : aWords)
            mManager->addUserWord(QString::fromUtf8(word));
    }

    std::string userWords() const { return joined(mManager->getUserWords()); }

    const QTemporaryDir mLists;
    const QTemporaryDir mUser;
    std::optional<SuggestionsManager> mManager;
    int mChanges = 0;
};

} // namespace

TEST_F(Suggestions, FindsEveryWordOfThePrefixRegardlessOfCase)
{
    writeFile(mLists, "de.txt",
              "\xEF\xBB\xBFzoo\r\nApfel\r\n  apfelbaum \n\nÖl\nÖlfeld\napfel\napfel\nAal\nap\n\nöde\n" +
                  QByteArray(200, 'a') + "\nZürich");
    create();
    EXPECT_EQ(load("de_AT"), QStringLiteral("de"));

    using Case = std::tuple<const char*, int, const char*>;
    for (const auto& [prefix, maximum, expected] :
         {Case{"ap", 100, "ap,Apfel,apfel,apfelbaum"}, Case{"AP", 2, "ap,Apfel"},
          Case{"apfelb", 100, "apfelbaum"}, Case{"a", 1, "Aal"}, Case{"aaa", 9, ""},
          Case{"ö", 9, "öde,Öl,Ölfeld"}, Case{"z", 9, "zoo,Zürich"}, Case{"zz", 9, ""},
          Case{"zürichsee", 9, ""}, Case{"", 9, ""}, Case{"ap", 0, ""}, Case{"ap", -1, ""}})
        EXPECT_EQ(suggest(prefix, maximum), expected) << prefix;
}

TEST_F(Suggestions, UserWordsComeFirstMostRecentFirstAndOnce)
{
    writeFile(mLists, "en.txt", "park\npark avenue\nparking\nparty\n");
    create();
    load("en");
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
    int changes = 0;
    QObject::connect(&*mManager, &SuggestionsManager::userWordsChanged, [&changes] { ++changes; });
    addUserWords({"one", "two", "three", "one", "four"});
    EXPECT_EQ(userWords(), "four,one,three");
    EXPECT_EQ(changes, 5);
    addUserWords({"four", "", "  ", "two\nlines", "\a"});
    mManager->addUserWord(QString(101, QLatin1Char('x')));
    mManager->removeUserWord(QStringLiteral("two"));
    EXPECT_EQ(userWords(), "four,one,three");
    EXPECT_EQ(changes, 5) << "nothing changed, so nothing is announced";
    create(0);
    addUserWords({"one"});
    EXPECT_EQ(userWords(), "");
}

TEST_F(Suggestions, UserWordsSurviveInTheirOrderOfUse)
{
    create();
    addUserWords({"Köln", "New York", "Łódź"});
    EXPECT_TRUE(waitUntil([this] {
        return readFile(mUser.filePath(QLatin1String(UserFile))) == "Łódź\nNew York\nKöln";
    })) << "saved without waiting for the end";
    mManager->removeUserWord(QStringLiteral("Łódź"));
    addUserWords({"Köln"});
    create();
    EXPECT_EQ(userWords(), "Köln,New York") << "saved at the end";
    create(1);
    EXPECT_EQ(userWords(), "Köln") << "a lowered limit keeps the most recent";
    mManager->clearUserWords();
    create();
    EXPECT_EQ(userWords(), "");
}

TEST_F(Suggestions, ADamagedUserFileStillYieldsItsWords)
{
    create();
    addUserWords({"placeholder"});
    mManager.reset();
    writeFile(mUser, UserFile, QByteArray("good\n\xFF\xFE\nGOOD\nna\0ught\nbetter\n", 28));
    expectWarning(
        QStringLiteral("The user's words in %1 could not all be read: it has lines that are no words; "
                       "they are skipped.")
            .arg(mUser.filePath(QLatin1String(UserFile))));
    create();
    EXPECT_EQ(userWords(), "good,better");
}

TEST_F(Suggestions, AFailureToSaveIsReportedAndKeepsTheWords)
{
    writeFile(mUser, "made", "a file where a folder should be");
    expectMessageMatching(QtWarningMsg,
                          QStringLiteral("The user's words could not be saved to .*/made/on/.*"));
    create();
    addUserWords({"one"});
    mManager->addUserWord(QStringLiteral("two"));
    EXPECT_EQ(userWords(), "two,one");
    mManager.reset();
}

TEST_F(Suggestions, AListThatCannotBeUsedLeavesTheOldOne)
{
    const std::tuple<const char*, QByteArray, const char*> cases[] = {
        {"aa", QByteArray(50 * 1024 * 1024, 'a'), "it has more than 1048576 bytes"},
        {"bb", QByteArray("word\nwo\0rd\n", 11), "it is no UTF-8 text"},
        {"cc", "word\n\xC3\x28\n", "it is no UTF-8 text"},
        {"dd", "word\nwor\xC3", "it is no UTF-8 text"},
    };
    for (const auto& [language, content, problem] : cases)
        writeFile(mLists, QByteArray(language) + ".txt", content);
    writeFile(mLists, "en.txt", "word");
    create();
    load("en");
    const auto refuses = [this](const char* aLanguage, const char* aProblem) {
        expectWarning(QStringLiteral("The word list %1/%2.txt is not used, \"en\" stays: %3.")
                          .arg(mLists.path(), QLatin1String(aLanguage), QLatin1String(aProblem)));
        EXPECT_EQ(load(aLanguage), QStringLiteral("en"));
        EXPECT_EQ(suggest("w"), "word") << aLanguage;
    };
    for (const auto& [language, content, problem] : cases)
        refuses(language, problem);
    refuses("fr", "there is no list for this language");
}
