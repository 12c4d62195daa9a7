#include <hmi/shared/services/EulaReader.h>

#include <QDir>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <hmi/core/language/LanguageManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;
using Hmi::Core::LanguageManager;
using Reader = Hmi::Shared::EulaReader;

namespace {

class EulaReader : public testing::Test
{
protected:
    ~EulaReader() override { LanguageManager::instance()->setCurrentLanguage(mLanguage); }

    const QString mLanguage = LanguageManager::instance()->getCurrentLanguage();
    QTemporaryDir mFolder;
};

struct Row
{
    const char* files; ///< each its own content, those that end in "/" are folders
    const char* language;
    Reader::FileType type;
    bool suffix;
    bool fallback;
    const char* expected; ///< empty: nothing is loaded
};

constexpr auto Eula = Reader::FileTypeEula;
constexpr auto Copyrights = Reader::FileTypeCopyrights;

const Row sRows[] = {
    {"eula-de_AT.htm eula-de_DE.htm", "de_DE", Eula, true, true, "eula-de_DE.htm"},
    {"eula-en_US.htm", "de_DE", Eula, true, true, "eula-en_US.htm"},
    {"eula-en_US.htm", "de_DE", Eula, true, false, ""},
    {"eula-en_US.htm", "en_GB", Eula, true, true, "eula-en_US.htm"},
    {"copyrights-de_DE.htm eula-en_US.htm", "de_AT", Eula, true, true, "eula-en_US.htm"},
    {"copyrights-de_DE.htm eula-en_US.htm", "de_AT", Copyrights, true, true, "copyrights-de_DE.htm"},
    {"eula.htm eula-de_DE.htm", "de_DE", Eula, false, false, "eula.htm"},
    {"eula-de_DE.htm eula-en_US.htm", "de_AT", Eula, false, true, "eula-de_DE.htm"},
    {"eula-en_US.htm", "de_DE", Eula, false, true, "eula-en_US.htm"},
    {"eula.htm eula-de_DE.html", "eu_ES", Eula, true, true, ""},
    {"eula-de_DE.htm/ eula-en_US.htm", "de_DE", Eula, true, true, "eula-en_US.htm"},
    {"[my%n]eula*-x-de\n\xc3\x84.htm", "de_DE", Eula, true, true, "[my%n]eula*-x-de\n\xc3\x84.htm"},
    {"eula-fi_FI.htm eula-en_US.htm", "fil_PH", Eula, true, true, "eula-en_US.htm"},
    {"", "de_DE", Eula, true, true, ""},
};

TEST_F(EulaReader, TakesTheDocumentThatSuitsTheLanguageBest)
{
    int number = 0;
    for (const Row& row : sRows) {
        SCOPED_TRACE(testing::Message() << row.language << " of " << row.files);
        // The name of the folder looks like a language and is none.
        const QByteArray folder = QByteArray::number(++number) + "/a-de_DE.htm";
        ASSERT_TRUE(QDir(mFolder.path()).mkpath(QString::fromUtf8(folder)));
        const QString path = mFolder.filePath(QString::fromUtf8(folder));
        for (const QByteArray& name : QByteArray(row.files).split(' ')) {
            if (name.endsWith('/'))
                QDir(path).mkdir(QString::fromUtf8(name));
            else if (!name.isEmpty())
                writeFile(mFolder, folder + '/' + name, name);
        }
        ASSERT_TRUE(LanguageManager::instance()->setCurrentLanguage(QString::fromUtf8(row.language)));
        Reader reader(path);
        reader.setFileType(row.type);
        const QSignalSpy changes(&reader, &Reader::textChanged);
        const QByteArray expected(row.expected);
        const QByteArray stem = row.type == Eula ? "eula" : "copyrights";
        const QByteArray wanted = stem + (row.suffix ? QByteArray("-") + row.language : "") + ".htm";
        if (expected != wanted)
            expectWarning(QStringLiteral("%1 file not found: %2/%3")
                              .arg(QString::fromUtf8(stem), path, QString::fromUtf8(wanted)));
        if (row.fallback && expected.isEmpty())
            expectWarning(
                QStringLiteral("Could not open file: %1/%2-en_US.htm.").arg(path, QString::fromUtf8(stem)));
        EXPECT_EQ(reader.loadFile(row.suffix, row.fallback), !expected.isEmpty());
        EXPECT_EQ(reader.getText(), QString::fromUtf8(expected));
        EXPECT_EQ(changes.size(), expected.isEmpty() ? 0 : 1);
    }
}

TEST_F(EulaReader, ShowsAnyBytesAndKeepsItsTextWhenThereAreNone)
{
    Reader reader(mFolder.path());
    const QString path = mFolder.filePath(QStringLiteral("eula.htm"));
    const std::pair<QByteArray, QString> documents[] = {
        {"\xef\xbb\xbf<p>\xc3\x84\r\n</p>\n", QStringLiteral("<p>\u00c4\n</p>\n")},
        {QByteArray("a\xff\0b\xc3", 5), QStringLiteral("a\ufffd") + QChar(0) + QStringLiteral("b\ufffd")},
        {"", QString()},
        {"last", QStringLiteral("last")}};
    for (const auto& [bytes, text] : documents) {
        writeFile(mFolder, "eula.htm", bytes);
        EXPECT_TRUE(reader.loadFile(false, false));
        EXPECT_EQ(reader.getText(), text);
    }
    QFile::resize(path, Reader::MaximumFileSize + 1);
    expectWarning(QStringLiteral("Could not open file: %1.").arg(path));
    EXPECT_FALSE(reader.loadFile(false, false));
    QFile::remove(path);
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    expectWarning(QStringLiteral("eula file not found: %1").arg(path));
    EXPECT_FALSE(reader.loadFile(false, false));
    EXPECT_EQ(reader.getText(), QStringLiteral("last"));
}

} // namespace
