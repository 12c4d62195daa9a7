#include <platform/data-manager/SqliteConnection.h>

#include <QFile>
#include <platform/data-manager/Value.h>

namespace DataManager {

SqliteStatement::SqliteStatement(sqlite3* aDatabase, const char* aSql)
{
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(aDatabase, aSql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    mStatement.reset(statement);
}

SqliteStatement& SqliteStatement::bind(int aIndex, qint64 aNumber)
{
    sqlite3_bind_int64(mStatement.get(), aIndex, aNumber);
    return *this;
}

SqliteStatement& SqliteStatement::bind(int aIndex, double aNumber)
{
    sqlite3_bind_double(mStatement.get(), aIndex, aNumber);
    return *this;
}

SqliteStatement& SqliteStatement::bindText(int aIndex, const QByteArray& aUtf8)
{
    sqlite3_bind_text(mStatement.get(), aIndex, aUtf8.constData(), aUtf8.size(), SQLITE_STATIC);
    return *this;
}

SqliteStatement& SqliteStatement::bindBytes(int aIndex, const QByteArray& aBytes)
{
    sqlite3_bind_blob(mStatement.get(), aIndex, aBytes.constData(), aBytes.size(), SQLITE_STATIC);
    return *this;
}

bool SqliteStatement::next() { return sqlite3_step(mStatement.get()) == SQLITE_ROW; }

int SqliteStatement::run()
{
    const int stepped = sqlite3_step(mStatement.get());
    const int code = sqlite3_reset(mStatement.get());
    return stepped == SQLITE_DONE || stepped == SQLITE_ROW ? SQLITE_OK : code != SQLITE_OK ? code : stepped;
}

QString SqliteStatement::text(int aColumn) const
{
    const void* const text = sqlite3_column_text(mStatement.get(), aColumn);
    return textOfUtf8(static_cast<const char*>(text), sqlite3_column_bytes(mStatement.get(), aColumn));
}

QByteArray SqliteStatement::bytes(int aColumn) const
{
    const void* const bytes = sqlite3_column_blob(mStatement.get(), aColumn);
    return QByteArray(static_cast<const char*>(bytes), sqlite3_column_bytes(mStatement.get(), aColumn));
}

int SqliteConnection::open(const QString& aPath, int aFlags)
{
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(QFile::encodeName(aPath).constData(), &database,
                                     aFlags | SQLITE_OPEN_NOMUTEX, nullptr);
    mDatabase.reset(database);
    if (code != SQLITE_OK)
        mDatabase.reset();
    return code;
}

qint64 SqliteConnection::number(const char* aSql, qint64 aFallback)
{
    SqliteStatement query = prepare(aSql);
    return query.isValid() && query.next() ? query.number(0) : aFallback;
}

} // namespace DataManager
