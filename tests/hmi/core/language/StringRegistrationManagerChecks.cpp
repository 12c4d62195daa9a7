#include <hmi/core/language/StringRegistrationManager.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>
#include <gtest/gtest.h>

#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::StringRegistrationManager;
using namespace HmiTest;

static const QString Text = QStringLiteral("Zurück'); DROP TABLE strings;--");
static const QString Sans = QStringLiteral("Sans");
static const QString Item = QStringLiteral("item");

TEST(StringRegistrationManager, KeepsOneRowForEachTextAndFont)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("strings.db"));
    StringRegistrationManager first(path);
    StringRegistrationManager second(path);
    EXPECT_FALSE(QFile::exists(path)) << "opened before it is used";
    EXPECT_TRUE(first.registerMeasuredString(Text, Sans, Sans, 20, 90));
    EXPECT_TRUE(second.registerMeasuredString(Text, Item, Sans, 20, 91));
    EXPECT_TRUE(first.registerMeasuredString(Text, Item, Sans, 24, 110));
    EXPECT_TRUE(first.registerMeasuredString(Text, Item, Item, 24, 111));
    EXPECT_TRUE(first.registerMeasuredString(QString(), QString(), QString(), 1, 121));
    QStringList rows;
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), path);
        database.setDatabaseName(path);
        EXPECT_TRUE(database.open());
        QSqlQuery row(QStringLiteral("SELECT text || item_id || width FROM strings ORDER BY width"),
                      database);
        while (row.next())
            rows.append(row.value(0).toString().replace(Text, QStringLiteral("text ")));
    }
    QSqlDatabase::removeDatabase(path);
    EXPECT_EQ(joined(rows), "text item91,text item110,text item111,121");
}

TEST(StringRegistrationManager, ReportsOnceThatItCannotRegister)
{
    const QTemporaryDir folder;
    writeFile(folder, "text", QByteArray(4096, 'x'));
    for (const char* name : {"missing/strings.db", "", "text"}) {
        const QString path = folder.filePath(QLatin1String(name));
        StringRegistrationManager manager(path);
        expectMessageMatching(QtWarningMsg, QStringLiteral(".* not registered in '%1': .+").arg(path));
        EXPECT_FALSE(manager.registerMeasuredString(Text, Item, Sans, 20, 9));
        EXPECT_FALSE(manager.registerMeasuredString(Text, Item, Sans, 20, 9));
    }
    StringRegistrationManager manager(QStringLiteral("never_opened.db"));
    expectMessageMatching(QtWarningMsg, QStringLiteral(".* an application without fonts cannot measure .*"));
    EXPECT_FALSE(manager.registerString(Text, Item, Sans, 20));
}
