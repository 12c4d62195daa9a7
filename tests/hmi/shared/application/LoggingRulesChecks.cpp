#include <hmi/shared/application/LoggingRules.h>

#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <tuple>

#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::LoggingRules;

TEST(LoggingRules, CollectsTheRuleLinesOfRulesSections)
{
    const char* const rows[][2] = {
        {"\n \n\t; a\n[Rules]\n  ; off=true\n*.debug=false\n; on\nx.debug=true\n",
         "*.debug=false,x.debug=true"},
        {" [rUlEs]\t\r\n x.debug=false \r\n", "x.debug=false"},
        {"[Rules ]\nx.debug=false", ""},
        {"x\n\n[Properties]\nInterval=60\n\ny=true\n[Rules]\nz=true\n", "x,z=true"},
    };
    for (const auto& [text, rules] : rows)
        EXPECT_EQ(HmiTest::joined(LoggingRules::parse(QString::fromUtf8(text))), rules) << text;
}

TEST(LoggingRules, OfAFileApplyUpToTheFirstNulByteUnlessOversize)
{
    const QTemporaryDir folder;
    const QByteArray rule("check.info=true\n");
    const std::tuple<QByteArray, bool, bool> files[] = {
        {QByteArray("\xEF\xBB\xBF[Rules]\ncheck.info=false\n\0check.debug=false", 47), true, false},
        {"[Other]\ncheck.info=true", true, false},
        {rule.leftJustified(LoggingRules::MaximumFileSize + 1, '\n'), false, false},
        {rule.leftJustified(LoggingRules::MaximumFileSize, '\n'), true, true},
    };
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral(".*ignored, it is larger than 1048576 bytes.*ini"));
    const QLoggingCategory category("check");
    for (const auto& [content, loads, infoEnabled] : files) {
        SCOPED_TRACE(content.left(20).constData());
        HmiTest::writeFile(folder, "rules.ini", content);
        EXPECT_EQ(LoggingRules::load(folder.filePath(QStringLiteral("rules.ini"))), loads);
        EXPECT_EQ(category.isInfoEnabled(), infoEnabled);
        EXPECT_TRUE(category.isDebugEnabled());
    }
    QLoggingCategory::setFilterRules(QString());
}

TEST(LoggingRules, ReportWithItsFullPathWhatIsNoFile)
{
    for (const QString& path : {QStringLiteral("no/rules.ini"), QDir::tempPath()}) {
        HmiTest::expectWarning(QStringLiteral("HMI logging configuration file not found:\n    ") +
                               QDir::current().filePath(path));
        EXPECT_FALSE(LoggingRules::load(path));
    }
}
