#include <hmi/shared/services/ErrorReport.h>
#include <hmi/shared/services/ErrorReportModel.h>

#include <QDir>
#include <QMetaProperty>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/FullMedium.h>

using namespace Hmi::Shared;
using namespace HmiTest;

namespace {

struct ErrorReports : testing::Test
{
    QString path(const char* aName) const { return folder.filePath(QLatin1String(aName)); }
    QString exported(const char* aName) const { return exportFolder.filePath(QLatin1String(aName)); }

    const QTemporaryDir folder;
    const QTemporaryDir exportFolder;
    const QByteArray xml =
        "<Report><Product>p</Product><UnitId>u</UnitId><Other>o</Other><logfile>l</logfile>"
        "<Backtrace>1\n2</Backtrace><ShutdownInfo>s</ShutdownInfo><ProcessName>n</ProcessName>"
        "<ParserVersion>v</ParserVersion></Report>";
    const bool made = QDir(folder.path()).mkpath(QStringLiteral("uploaded"));
};

} // namespace

TEST_F(ErrorReports, HaveTheTextsOfTheirElementsOrNone)
{
    ErrorReport report;
    for (const auto& [content, expected] : {std::pair(xml, "1\n2,l,v,n,p,s,u"), {xml.left(200), ",,,,,,"}}) {
        writeFile(folder, "a.xml", content);
        if (content != xml)
            expectMessageMatching(QtWarningMsg, QStringLiteral("The XML file '.+/a\\.xml' .+"));
        EXPECT_EQ(report.load(path("a.xml")), content == xml);
        EXPECT_EQ(joined({report.getBacktrace(), report.getLogFile(), report.getParserVersion(),
                          report.getProcessName(), report.getProduct(), report.getShutdownInfo(),
                          report.getUnitId()}),
                  expected);
        EXPECT_EQ(report.getPath(), path("a.xml"));
    }
}

TEST_F(ErrorReports, AreListedFromTheFolderAndThenFromUploaded)
{
    for (const char* name : {"a.xml", "b.txt", "A.XML", "uploaded/c.xml", "uploaded/xml"})
        writeFile(folder, name, xml);
    ErrorReportModel model(folder.path(), exportFolder.path());
    expectMessageMatching(QtWarningMsg, QStringLiteral("The XML file '/none' .+"));
    model.addErrorReport(QStringLiteral("/none"));
    const QStringList paths{path("a.xml"), path("uploaded/c.xml"), QStringLiteral("/none")};
    ASSERT_EQ(model.getLength(), paths.size());
    const QMetaObject& type = ErrorReportInfo::staticMetaObject;
    for (int row = 0; row < model.getLength(); ++row) {
        QStringList fields;
        for (int property = type.propertyOffset(); property < type.propertyCount(); ++property)
            fields += type.property(property).read(model.getModel()->get(row)).toString();
        EXPECT_EQ(joined(fields), joined(row < 2 ? QStringList{QStringLiteral("1\n2,l,v"), paths[row],
                                                               QStringLiteral("n,p,false,u")}
                                                 : QStringList{QStringLiteral(",,"), paths[row],
                                                               QStringLiteral(",,false,")}));
    }
    EXPECT_EQ(ErrorReportModel(QStringLiteral("/none"), QString()).getLength(), 0);
}

TEST_F(ErrorReports, AreCopiedWholeOrNotAtAll)
{
    const char* odd = "-a 'b\"\n%s.xml";
    writeFile(folder, odd, xml);
    writeFile(folder, "there.xml", xml);
    writeFile(exportFolder, "there.xml", "old");
    ASSERT_EQ(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QFile::link(path(odd), path("link.xml"));
    const ErrorReportModel model(path("uploaded"), exportFolder.path());
    for (const char* name : {odd, "link.xml"}) {
        EXPECT_TRUE(model.copyErrorLog(path(name)));
        EXPECT_EQ(readFile(exported(name)), xml);
    }
    const QString failed = QStringLiteral("Could not copy log file %1 to uploaded folder");
    for (const char* name : {odd, "there.xml", "pipe", "uploaded"}) {
        expectWarning(failed.arg(path(name)));
        EXPECT_FALSE(model.copyErrorLog(path(name)));
    }
    EXPECT_EQ(readFile(exported("there.xml")), "old");
    EXPECT_EQ(QDir(exportFolder.path()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    expectWarning(failed.arg(path(odd)));
    ErrorReportModel(path("uploaded"), exported("missing")).copyErrorLog(path(odd));
    EXPECT_FALSE(QFile::exists(exported("missing")));
}

TEST_F(ErrorReports, LeaveNothingInAFullExportFolder)
{
    writeFile(folder, "large.xml", QByteArray(100000, 'x'));
    const ErrorReportModel model(path("uploaded"), exportFolder.path());
    expectWarning(QStringLiteral("Could not copy log file %1 to uploaded folder").arg(path("large.xml")));
    {
        const FullMedium full(50000);
        model.copyErrorLog(path("large.xml"));
    }
    EXPECT_TRUE(QDir(exportFolder.path()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(ErrorReports, AreDeletedWithTheirRecordsKept)
{
    writeFile(folder, "a.xml", xml);
    QFile::link(path("a.xml"), path("link"));
    const ErrorReportModel model(folder.path(), exportFolder.path());
    model.deleteErrorLog(path("link"));
    EXPECT_TRUE(QFile::exists(path("a.xml")));
    EXPECT_TRUE(model.deleteErrorLog(path("a.xml")));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size(),
              1);
    expectWarning(QStringLiteral("Could not delete log file ") + path("uploaded"));
    EXPECT_FALSE(model.deleteErrorLog(path("uploaded")));
    for (int time = 0; time < 2; ++time)
        expectWarning(QStringLiteral("Could not find log file ") + path("a.xml"));
    EXPECT_FALSE(model.deleteErrorLog(path("a.xml")) || model.copyErrorLog(path("a.xml")));
    EXPECT_EQ(model.getLength(), 1);
}
