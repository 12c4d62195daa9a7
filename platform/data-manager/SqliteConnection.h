#pragma once

#include <QByteArray>
#include <QString>
#include <memory>
#include <sqlite3.h>

namespace DataManager {

/** One prepared statement; belongs to a connection, which has to outlive it. One thread at a time. */
class SqliteStatement
{
public:
    SqliteStatement() = default;
    SqliteStatement(sqlite3* aDatabase, const char* aSql);

    /** Whether the text was understood; what a statement that is not does is fail. */
    bool isValid() const { return mStatement != nullptr; }

    SqliteStatement& bind(int aIndex, qint64 aNumber);
    SqliteStatement& bind(int aIndex, double aNumber);
    /** The bytes have to live until the statement ran. */
    SqliteStatement& bindText(int aIndex, const QByteArray& aUtf8);
    SqliteStatement& bindBytes(int aIndex, const QByteArray& aBytes);

    /** To the next row; false behind the last one and on failure, see isFailed(). */
    bool next();
    /** Runs a statement that gives no rows, and makes it ready for the next run; SQLITE_OK or an error code.
     */
    int run();
    /** Makes it ready for the next run, and lets go of what it read; SQLITE_OK or the code of its failure. */
    int reset() { return sqlite3_reset(mStatement.get()); }

    qint64 number(int aColumn) const { return sqlite3_column_int64(mStatement.get(), aColumn); }
    double real(int aColumn) const { return sqlite3_column_double(mStatement.get(), aColumn); }
    QString text(int aColumn) const;
    QByteArray bytes(int aColumn) const;
    /** SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL. */
    int type(int aColumn) const { return sqlite3_column_type(mStatement.get(), aColumn); }

private:
    struct Finalizer
    {
        void operator()(sqlite3_stmt* aStatement) const { sqlite3_finalize(aStatement); }
    };

    std::unique_ptr<sqlite3_stmt, Finalizer> mStatement;
};

/** One connection to a database file, closed with the object. One thread at a time. */
class SqliteConnection
{
public:
    SqliteConnection() = default;

    /** Opens the file, with flags of sqlite3_open_v2(); returns SQLITE_OK or an error code. */
    int open(const QString& aPath, int aFlags);
    bool isOpen() const { return mDatabase != nullptr; }
    void close() { mDatabase.reset(); }

    /** How long an operation waits for a lock, in milliseconds. */
    void setBusyTimeout(int aTimeout) { sqlite3_busy_timeout(mDatabase.get(), aTimeout); }

    /** Runs statements without parameters; SQLITE_OK or the code of the first that failed. */
    int execute(const char* aSql) { return sqlite3_exec(mDatabase.get(), aSql, nullptr, nullptr, nullptr); }
    /** The first number that the query gives, or the fallback. */
    qint64 number(const char* aSql, qint64 aFallback);
    SqliteStatement prepare(const char* aSql) { return SqliteStatement(mDatabase.get(), aSql); }

    /** What SQLite has to say of the latest failure. */
    QString message() const { return QString::fromUtf8(sqlite3_errmsg(mDatabase.get())); }
    bool isReadOnly() const { return sqlite3_db_readonly(mDatabase.get(), "main") == 1; }
    sqlite3* handle() const { return mDatabase.get(); }

private:
    struct Closer
    {
        void operator()(sqlite3* aDatabase) const { sqlite3_close_v2(aDatabase); }
    };

    std::unique_ptr<sqlite3, Closer> mDatabase;
};

} // namespace DataManager
