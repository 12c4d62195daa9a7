#include <QFile>
#include <QLocalServer>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <hmi/core/foundation/ConfigManager.h>
#include <tests/support/ExpectedMessages.h>

using namespace Hmi::Core;
using HmiTest::expectMessageMatching;
using HmiTest::expectWarning;

namespace {

class ConfigFile : public testing::Test
{
protected:
    /** A file of its own each time: QSettings takes one of the same name, size and time for unchanged. */
    QString write(const QByteArray& aContent)
    {
        QFile file(mFolder.filePath(QStringLiteral("%1_test.ini").arg(++mFiles)));
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(aContent) == aContent.size());
        return file.fileName();
    }

    QTemporaryDir mFolder;
    int mFiles = 0;
    ConfigManager mConfig;
};

struct ValueCase
{
    const char* content;
    const char* key;
    const char* expected;
};

} // namespace

TEST_F(ConfigFile, GivesEachKeyItsText)
{
    const std::vector<ValueCase> cases = {
        {"[G]\nk=v\n", "G/k", "v"},
        {"[G]\nk=one, two,three\n", "G/k", "one,two,three"},
        {"[G]\nk=\"one, two\"\n", "G/k", "one, two"},
        {"k=no group\n", "k", "no group"},
        {"[G]\nk=F\xC3\xBChrung\n", "G/k", "F\xC3\xBChrung"},
        {"[G]\nk=\n", "G/k", ""},
        {"[A]\nx=1\n[G]\nk=later group\n", "G/k", "later group"},
        {"", "G/k", ""},
    };
    for (const ValueCase& row : cases) {
        SCOPED_TRACE(row.content);
        ConfigManager config;
        EXPECT_TRUE(config.load(write(row.content)));
        EXPECT_EQ(config.text(QString::fromUtf8(row.key), true), QString::fromUtf8(row.expected));
    }
}

TEST_F(ConfigFile, FillsPlaceholdersOnce)
{
    struct Case
    {
        const char* value;
        const char* expected;
        QStringList unknown;
    };
    const QString tooLong(101, QLatin1Char('a'));
    const std::vector<Case> cases = {
        {"%%ROOT%%/logs", "/data/logs", {}},
        {"%%ROOT%%%%ROOT%%-%%EMPTY%%-%%ROOT%%", "/data/data--/data", {}},
        {"%%OTHER%%/%%ROOT%%", "%%OTHER%%//data", {QStringLiteral("OTHER")}},
        {"%%SELF%%", "%%SELF%%", {}},
        {"%%NEST%%", "%%ROOT%%", {}},
        {"%%%%ROOT%%%%", "%%/data%%", {}},
        {"%%RO-OT%%", "%%RO-OT%%", {}},
        {"%%ROOT%", "%%ROOT%", {}},
        {"a,%%ROOT%%", "a,/data", {}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.value);
        ConfigManager config;
        config.setPlaceholders({{QStringLiteral("ROOT"), QStringLiteral("/data")},
                                {QStringLiteral("EMPTY"), QString()},
                                {QStringLiteral("SELF"), QStringLiteral("%%SELF%%")},
                                {QStringLiteral("NEST"), QStringLiteral("%%ROOT%%")},
                                {tooLong, QStringLiteral("never")}});
        for (const QString& name : row.unknown)
            expectWarning(
                QStringLiteral("WARNING: Found placeholder, %1, but no corresponding value to replace it.")
                    .arg(name));
        config.load(write(QByteArray("[G]\nk=") + row.value + '\n'));
        EXPECT_EQ(config.text(QStringLiteral("G/k"), false), QString::fromUtf8(row.expected));
    }
    mConfig.load(write("[G]\nk=%%ROOT%%\nlong=%%" + tooLong.toUtf8() + "%%\n"));
    EXPECT_EQ(mConfig.text(QStringLiteral("G/k"), false), QStringLiteral("%%ROOT%%"));
}

TEST_F(ConfigFile, ResolvesRelativePathsOfTheFileAgainstItsFolder)
{
    const QString folder = mFolder.path() + QLatin1Char('/');
    mConfig.load(write("[G]\npath=themes\nup=../x\nabsolute=/opt/x\nplain=themes\n"));
    for (const char* key : {"G/path", "G/up", "G/absolute", "G/default"})
        mConfig.registerDefault(QString::fromLatin1(key), QStringLiteral("usr/local"), true);
    mConfig.registerDefault(QStringLiteral("G/plain"), QStringLiteral("d"), false);

    const auto text = [this](const char* aKey, bool aResolve) {
        return mConfig.text(QString::fromLatin1(aKey), aResolve);
    };
    EXPECT_EQ(text("G/path", true), folder + QStringLiteral("themes"));
    EXPECT_EQ(text("G/path", false), QStringLiteral("themes"));
    EXPECT_EQ(text("G/up", true), folder + QStringLiteral("../x"));
    EXPECT_EQ(text("G/absolute", true), QStringLiteral("/opt/x"));
    EXPECT_EQ(text("G/plain", true), QStringLiteral("themes"));
    EXPECT_EQ(text("G/default", true), QStringLiteral("usr/local"));
    EXPECT_FALSE(mConfig.isFromFile(QStringLiteral("G/default")));
    EXPECT_TRUE(mConfig.isFromFile(QStringLiteral("G/path")));
    EXPECT_FALSE(mConfig.value(QStringLiteral("G/none"), true).isValid());
}

TEST_F(ConfigFile, ThatCannotBeReadChangesNothing)
{
    const QString good = write("[G]\nk=v\n");
    ASSERT_TRUE(mConfig.load(good));
    const QString missing = mFolder.filePath(QStringLiteral("missing.ini"));
    QLocalServer socket;
    ASSERT_TRUE(socket.listen(mFolder.filePath(QStringLiteral("socket.ini"))));
    QFile huge(mFolder.filePath(QStringLiteral("huge.ini")));
    ASSERT_TRUE(huge.open(QFile::WriteOnly) && huge.resize(100 * 1024 * 1024));

    const QString text = QStringLiteral("WARNING: The config file, %1, could not be loaded because %2");
    expectWarning(text.arg(missing, QStringLiteral("it does not exist.")));
    EXPECT_FALSE(mConfig.load(missing));
    for (const QString& odd : {mFolder.path(), socket.fullServerName()}) {
        expectWarning(text.arg(odd, QStringLiteral("it is not a regular file.")));
        EXPECT_FALSE(mConfig.load(odd));
    }
    expectMessageMatching(QtWarningMsg, QStringLiteral(".*huge\\.ini, .*104857600 bytes exceed the limit.*"));
    EXPECT_FALSE(mConfig.load(huge.fileName()));

    EXPECT_EQ(mConfig.getFilePath(), good);
    EXPECT_EQ(mConfig.getKeys(), QStringList{QStringLiteral("G/k")});
}

TEST_F(ConfigFile, WithDamagedLinesIsNamedAndItsOtherKeysAreTaken)
{
    QByteArray binary = "[G]\nk=v\n";
    for (int index = 0; index < 4096; ++index)
        binary.append(static_cast<char>(index * 7919 >> 3));
    expectMessageMatching(QtWarningMsg,
                          QStringLiteral(".*_test\\.ini, has lines that are not \"key=value\".*"));
    EXPECT_TRUE(mConfig.load(write(binary)));
    EXPECT_EQ(mConfig.text(QStringLiteral("G/k"), false), QStringLiteral("v"));
}

TEST_F(ConfigFile, ValueOfTheWrongTypeIsReportedWithItsKeyAndConvertedAllTheSame)
{
    mConfig.load(write("[G]\nnumber=12px\nflag=ja\nlist=1,2\ngood=0\n"));
    const auto reported = [](const char* aText) {
        expectMessageMatching(
            QtWarningMsg, QStringLiteral("WARNING: The value \"%1.*test\\.ini.*").arg(QLatin1String(aText)));
    };
    reported("12px\" of G/number ");
    reported("ja\" of G/flag ");
    reported("1,2\" of G/list ");
    mConfig.registerDefault(QStringLiteral("G/number"), 5, false);
    mConfig.registerDefault(QStringLiteral("G/flag"), false, false);
    mConfig.registerDefault(QStringLiteral("G/list"), 5, false);
    mConfig.registerDefault(QStringLiteral("G/good"), true, false);
    EXPECT_EQ(mConfig.value(QStringLiteral("G/number"), false).toInt(), 0);
    EXPECT_TRUE(mConfig.value(QStringLiteral("G/flag"), false).toBool());
    EXPECT_FALSE(mConfig.value(QStringLiteral("G/good"), false).toBool());
}
