#include <QLocalServer>

#include <tests/hmi/core/foundation/ConfigFolder.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;

namespace {

using ConfigFile = ConfigFolder;

TEST_F(ConfigFile, GivesEachKeyItsText)
{
    const struct
    {
        const char* content;
        const char* key;
        const char* expected;
    } rows[] = {
        {"[G]\nk=one, two,three\n", "G/k", "one,two,three"},
        {"[G]\nk=\"one, two\"\n", "G/k", "one, two"},
        {"k=no group\n", "k", "no group"},
        {"[G]\nk=F\xC3\xBChrung\n", "G/k", "F\xC3\xBChrung"},
        {"[A]\nx=1\n[G]\nk=later group\n", "G/k", "later group"},
    };
    for (const auto& row : rows) {
        load(row.content);
        EXPECT_EQ(value(row.key), text(row.expected)) << row.content;
    }
}

TEST_F(ConfigFile, FillsPlaceholdersOnce)
{
    const QString longest(100, QLatin1Char('a'));
    mConfig.setPlaceholders({{text("ROOT"), text("/data")},
                             {text("EMPTY"), QString()},
                             {text("SELF"), text("%%SELF%%")},
                             {text("NEST"), text("%%ROOT%%")},
                             {longest, text("long")},
                             {longest + text("a"), text("never")}});
    const std::pair<QByteArray, const char*> rows[] = {
        {"%%ROOT%%/logs", "/data/logs"},
        {"%%ROOT%%%%ROOT%%-%%EMPTY%%-%%ROOT%%", "/data/data--/data"},
        {"%%OTHER%%/%%ROOT%%", "%%OTHER%%//data"},
        {"%%SELF%%", "%%SELF%%"},
        {"%%NEST%%", "%%ROOT%%"},
        {"%%%%ROOT%%%%", "%%/data%%"},
        {"%%RO-OT%%", "%%RO-OT%%"},
        {"a,%%ROOT%%", "a,/data"},
        {"%%" + longest.toUtf8() + "%%", "long"},
    };
    expectWarning(text("WARNING: Found placeholder, OTHER, but no corresponding value to replace it."));
    for (const auto& [content, expected] : rows) {
        load("[G]\nk=" + content + '\n');
        EXPECT_EQ(value("G/k"), text(expected));
    }
    const QByteArray tooLong = "%%" + longest.toUtf8() + "a%%";
    load("[G]\nk=" + tooLong + '\n');
    EXPECT_EQ(value("G/k"), QString::fromUtf8(tooLong));
    mConfig.setPlaceholders({});
    load("[G]\nk=%%ROOT%%\n");
    EXPECT_EQ(value("G/k"), text("%%ROOT%%"));
}

TEST_F(ConfigFile, ResolvesRelativePathsOfTheFileAgainstItsFolder)
{
    load("[G]\npath=themes\nup=../x\nabsolute=/opt/x\nplain=themes\n");
    for (const char* key : {"G/path", "G/up", "G/absolute", "G/default"})
        mConfig.registerDefault(text(key), text("usr/local"), true);
    mConfig.registerDefault(text("G/plain"), text("d"), false);

    EXPECT_EQ(value("G/path"), inFolder("themes"));
    EXPECT_EQ(value("G/path", false), text("themes"));
    EXPECT_EQ(value("G/up"), inFolder("../x"));
    EXPECT_EQ(value("G/absolute"), text("/opt/x"));
    EXPECT_EQ(value("G/plain"), text("themes"));
    EXPECT_EQ(value("G/default"), text("usr/local"));
    EXPECT_FALSE(mConfig.isFromFile(text("G/default")));
    EXPECT_FALSE(mConfig.value(text("G/none"), true).isValid());
}

TEST_F(ConfigFile, ThatCannotBeReadChangesNothing)
{
    const QString good = write("[G]\nk=v\n");
    ASSERT_TRUE(mConfig.load(good));
    QLocalServer socket;
    ASSERT_TRUE(socket.listen(inFolder("socket.ini")));
    QFile huge(inFolder("huge.ini"));
    ASSERT_TRUE(huge.open(QFile::WriteOnly) && huge.resize(100 * 1024 * 1024));

    writeFile(mFolder, "open.ini", QByteArray("[x\n").repeated(1000 * 1000));

    const std::pair<QString, const char*> rows[] = {
        {inFolder("open.ini"),
         "it has more than 1000 lines with a \"[\" that no \"]\" closes; check that it is the right file."},
        {inFolder("missing.ini"), "it does not exist."},
        {mFolder.path(), "it is not a regular file."},
        {socket.fullServerName(), "it is not a regular file."},
        {huge.fileName(),
         "its 104857600 bytes exceed the limit of 4194304; check that it is the right file."},
    };
    for (const auto& [path, reason] : rows) {
        expectWarning(
            text("WARNING: The config file, %1, could not be loaded because %2").arg(path, text(reason)));
        EXPECT_FALSE(mConfig.load(path));
    }
    EXPECT_EQ(mConfig.getFilePath(), good);
    EXPECT_EQ(mConfig.getKeys(), QStringList{text("G/k")});
}

TEST_F(ConfigFile, WithDamagedLinesIsNamedAndItsOtherKeysAreTaken)
{
    QByteArray binary = "[G]\nk=v\n";
    for (int index = 0; index < 4096; ++index)
        binary.append(static_cast<char>(index * 7919 >> 3));
    expectMessageMatching(QtWarningMsg, text(".*_test\\.ini, has lines that are not \"key=value\".*"));
    load(binary);
    EXPECT_EQ(value("G/k"), text("v"));
}

TEST_F(ConfigFile, ValueOfTheWrongTypeIsReportedWithItsKeyAndConvertedAllTheSame)
{
    load("[G]\nnumber=12px\nflag=ja\nlist=1,2\ngood=0\n");
    for (const char* value : {"12px\" of G/number ", "ja\" of G/flag ", "1,2\" of G/list "})
        expectMessageMatching(QtWarningMsg, text("WARNING: The value \"%1.*_test\\.ini.*").arg(text(value)));
    const std::pair<const char*, QVariant> rows[] = {
        {"G/number", 5}, {"G/list", 5}, {"G/flag", false}, {"G/good", true}};
    for (const auto& [key, standard] : rows)
        mConfig.registerDefault(text(key), standard, false);
    EXPECT_EQ(mConfig.value(text("G/number"), false).toInt(), 0);
    EXPECT_TRUE(mConfig.value(text("G/flag"), false).toBool());
    EXPECT_FALSE(mConfig.value(text("G/good"), false).toBool());
}

} // namespace
