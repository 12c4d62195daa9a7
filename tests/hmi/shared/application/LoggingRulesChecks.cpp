#include <hmi/shared/application/LoggingRules.h>

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::LoggingRules;

namespace {

TEST(LoggingRules, CollectsTheRuleLinesOfRulesSections)
{
    const struct
    {
        const char* text;
        const char* rules;
    } rows[] = {
        {"\n \n\t\n", ""},
        {"; a\n[Rules]\n  ; off=true\n*.debug=false\n; on\nx.debug=true\n", "*.debug=false|x.debug=true"},
        {" [rUlEs]\t\r\n x.debug=false \r\n", "x.debug=false"},
        {"[Rules ]\nx.debug=false", ""},
        {"[Rules]\nx.debug=true\n\n[Properties]\nInterval=60\n", "x.debug=true"},
        {"[Properties]\nInterval=60\n\n[Rules]\nx.debug=true\n", "x.debug=true"},
        {"x.debug=true\n\n[Properties]\nInterval=60\n", "x.debug=true"},
        {"[Properties]\nInterval=60\n\nx.debug=true\n", ""},
        {"[Rules]\nx.debug\n", "x.debug"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(LoggingRules::parse(QString::fromUtf8(row.text)).join(QLatin1Char('|')).toStdString(),
                  row.rules)
            << row.text;
}

class LoggingRulesFile : public testing::Test
{
protected:
    ~LoggingRulesFile() override { QLoggingCategory::setFilterRules(QString()); }

    bool load(const QByteArray& aContent) const
    {
        QFile file(mPath);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(aContent);
        file.close();
        return LoggingRules::load(mPath);
    }

    QTemporaryDir mFolder;
    QString mPath = mFolder.filePath(QStringLiteral("hmi_logging.ini"));
    QLoggingCategory mCategory{"check"};
};

TEST_F(LoggingRulesFile, AppliesTheRulesUpToTheFirstNulByte)
{
    EXPECT_TRUE(load(QByteArray("\xEF\xBB\xBF[Rules]\ncheck.info=false\n\0check.debug=false", 47)));
    EXPECT_FALSE(mCategory.isInfoEnabled());
    EXPECT_TRUE(mCategory.isDebugEnabled());
    EXPECT_TRUE(load("[Other]\ncheck.debug=false"));
    EXPECT_FALSE(mCategory.isInfoEnabled()) << "a file without rules changes nothing";
}

TEST_F(LoggingRulesFile, ThatIsNoFileIsReportedWithItsFullPath)
{
    const QString relative = QDir::current().relativeFilePath(mPath);
    const QString message = QStringLiteral("HMI logging configuration file not found:\n    ");
    HmiTest::expectWarning(message + QDir::currentPath() + QLatin1Char('/') + relative);
    EXPECT_FALSE(LoggingRules::load(relative));
    HmiTest::expectWarning(message + mFolder.path());
    EXPECT_FALSE(LoggingRules::load(mFolder.path()));
    QLoggingCategory::setFilterRules(QStringLiteral("hmi.shared.warning=false"));
    EXPECT_FALSE(LoggingRules::load(mPath)) << "and silent";
}

TEST_F(LoggingRulesFile, OfOversizeIsIgnored)
{
    const QByteArray rule("check.info=false\n");
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral(".*ignored, it is larger than 1048576 bytes.*ini"));
    EXPECT_FALSE(load(rule.leftJustified(LoggingRules::MaximumFileSize + 1, '\n')));
    EXPECT_TRUE(mCategory.isInfoEnabled());
    EXPECT_TRUE(load(rule.leftJustified(LoggingRules::MaximumFileSize, '\n')));
    EXPECT_FALSE(mCategory.isInfoEnabled());
}

} // namespace
