#include <hmi/core/language/StringRegistrationManager.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <tests/hmi/core/resources/TestBundle.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Core::StringRegistrationManager;

namespace {

const QString Sans = QStringLiteral("Open Sans");

QStringList rows(const QString& aDatabasePath)
{
    QStringList result;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("check"));
        database.setDatabaseName(aDatabasePath);
        EXPECT_TRUE(database.open());
        QSqlQuery query(
            QStringLiteral("SELECT text || '|' || font_family || '|' || pixel_size || '|' || item_id "
                           "|| '|' || width FROM strings ORDER BY width"),
            database);
        while (query.next())
            result.append(query.value(0).toString());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("check"));
    return result;
}

TEST(StringRegistrationManager, KeepsOneRowForEachTextAndFont)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("strings.db"));
    const QString text = QString::fromUtf8("Zurück'); DROP TABLE strings;--");
    {
        StringRegistrationManager first(path);
        StringRegistrationManager second(path);
        EXPECT_FALSE(QFile::exists(path)) << "opened before it is used";
        EXPECT_TRUE(first.registerMeasuredString(text, QStringLiteral("a"), Sans, 20, 90));
        EXPECT_TRUE(second.registerMeasuredString(text, QStringLiteral("b"), Sans, 20, 91));
        EXPECT_TRUE(first.registerMeasuredString(text, QStringLiteral("c"), Sans, 24, 110));
        EXPECT_TRUE(first.registerMeasuredString(QString(), QString(), QString(), 1, 121));
    }
    EXPECT_EQ(rows(path),
              (QStringList{text + QStringLiteral("|Open Sans|20|b|91"),
                           text + QStringLiteral("|Open Sans|24|c|110"), QStringLiteral("||1||121")}));
}

TEST(StringRegistrationManager, ReportsAnUnusableDatabaseOnce)
{
    const QTemporaryDir folder;
    const QString text = folder.filePath(QStringLiteral("text"));
    HmiTest::writeFile(text, QByteArray(4096, 'x'));
    for (const QString& path : {folder.filePath(QStringLiteral("missing/strings.db")), folder.path(), text}) {
        StringRegistrationManager manager(path);
        HmiTest::expectMessageMatching(
            QtWarningMsg, QStringLiteral("Displayed strings are not registered in '%1': .+").arg(path));
        EXPECT_FALSE(manager.registerMeasuredString(QStringLiteral("a"), QStringLiteral("i"), Sans, 20, 9));
        EXPECT_FALSE(manager.registerMeasuredString(QStringLiteral("b"), QStringLiteral("i"), Sans, 20, 9));
    }
    EXPECT_FALSE(QDir(folder.path()).exists(QStringLiteral("missing")));
}

TEST(StringRegistrationManager, RefusesToMeasureInAnApplicationWithoutFonts)
{
    StringRegistrationManager manager(QStringLiteral("never_opened.db"));
    HmiTest::expectWarning(QStringLiteral("Displayed strings are not registered in 'never_opened.db': an "
                                          "application without fonts cannot measure them."));
    EXPECT_FALSE(manager.registerString(QStringLiteral("a"), QStringLiteral("i"), Sans, 20));
    EXPECT_FALSE(manager.registerString(QStringLiteral("a"), QStringLiteral("i"), Sans, 20));
}

} // namespace
