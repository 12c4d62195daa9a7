#include <hmi/shared/services/EulaReader.h>

#include <QDir>
#include <gtest/gtest.h>
#include <tuple>

#include <hmi/core/language/LanguageManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;
using Hmi::Core::LanguageManager;
using Reader = Hmi::Shared::EulaReader;

namespace {

/** Files, which hold their names ("/" makes a folder), language, with suffix, with fallback, text. */
const std::tuple<const char*, const char*, bool, bool, const char*> sRows[] = {
    {"eula-de_AT.htm eula-de_DE.htm", "de_DE", true, true, "eula-de_DE.htm"},
    {"eula-en_US.htm", "de_DE", true, true, "eula-en_US.htm"},
    {"eula-en_US.htm", "de_DE", true, false, ""},
    {"copyrights-de_DE.htm eula-en_US.htm", "de_AT", true, true, "eula-en_US.htm"},
    {"eula.htm eula-de_DE.htm", "de_DE", false, false, "eula.htm"},
    {"eula-de_DE.htm eula-en_US.htm", "de_AT", false, true, "eula-de_DE.htm"},
    {"eula.htm eula-de_DE.html", "eu_ES", true, true, ""},
    {"eula-de_DE.htm/ eula-en_US.htm", "de_DE", true, true, "eula-en_US.htm"},
    {"[%n]eula*-x-de\n\xc3\x84.htm", "de_DE", true, true, "[%n]eula*-x-de\n\xc3\x84.htm"},
    {"eula-fi_FI.htm eula-en_US.htm", "fil_PH", true, true, "eula-fi_FI.htm"}};

TEST(EulaReader, TakesTheDocumentThatSuitsTheLanguageBest)
{
    const QString before = LanguageManager::instance()->getCurrentLanguage();
    for (const auto& [files, language, suffix, fallback, expected] : sRows) {
        // The folder's name looks like a document's.
        const QTemporaryDir folder(QDir::tempPath() + QStringLiteral("/eula-de_DE.htm-XXXXXX"));
        for (const QByteArray& name : QByteArray(files).split(' '))
            name.endsWith('/') ? void(QDir(folder.path()).mkdir(QString::fromUtf8(name)))
                               : writeFile(folder, name, name);
        LanguageManager::instance()->setCurrentLanguage(QString::fromUtf8(language));
        const QByteArray wanted = suffix ? QByteArray("eula-") + language + ".htm" : "eula.htm";
        if (wanted != expected)
            expectWarning(QStringLiteral("eula file not found: ") +
                          folder.filePath(QString::fromUtf8(wanted)));
        if (fallback && !*expected)
            expectWarning(QStringLiteral("Could not open file: %1/eula-en_US.htm.").arg(folder.path()));
        Reader reader(folder.path());
        EXPECT_EQ(reader.loadFile(suffix, fallback), *expected != 0);
        EXPECT_EQ(reader.getText(), QString::fromUtf8(expected)) << language << " of " << files;
    }
    LanguageManager::instance()->setCurrentLanguage(before);
}

TEST(EulaReader, ShowsAnyBytesAndKeepsItsTextWhenThereAreNone)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("eula.htm"));
    Reader reader(folder.path());
    writeFile(folder, "eula.htm", QByteArray("\xef\xbb\xbf\xc3\x84\r\n\xff\0b\xc3", 11));
    EXPECT_TRUE(reader.loadFile(false, false));
    QFile::resize(path, Reader::MaximumFileSize + 1);
    expectWarning(QStringLiteral("Could not open file: %1.").arg(path));
    EXPECT_FALSE(reader.loadFile(false, false));
    EXPECT_EQ(reader.getText(), QStringLiteral("\u00c4\n\ufffd") + QChar(0) + QStringLiteral("b\ufffd"));
}

} // namespace
