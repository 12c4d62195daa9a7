#include <hmi/core/language/StringRegistrationManager.h>

#include <QFont>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

// A null text would be stored as NULL, which is another value than the empty text.
static QString notNull(const QString& aText) { return aText.isNull() ? QLatin1String("") : aText; }

StringRegistrationManager::StringRegistrationManager(const QString& aDatabasePath) :
    mDatabasePath(aDatabasePath), mConnectionName(QUuid::createUuid().toString())
{}

StringRegistrationManager::StringRegistrationManager(QQmlEngine*, QJSEngine*) :
    StringRegistrationManager(HmiCoreConfigs::instance()->getStringDatabaseName())
{}

StringRegistrationManager::~StringRegistrationManager()
{
    mInsertion.reset();
    QSqlDatabase::removeDatabase(mConnectionName);
}

bool StringRegistrationManager::registerString(const QString& aText, const QString& aItemId,
                                               const QString& aFontFamily, int aPixelSize)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return fail(QStringLiteral("an application without fonts cannot measure them"));
    if (aPixelSize < 1) {
        qWarning("The string of '%s' is not registered: its font has %d pixels.", qUtf8Printable(aItemId),
                 aPixelSize);
        return false;
    }
    QFont font(aFontFamily);
    font.setPixelSize(aPixelSize);
    const int width = QFontMetrics(font).horizontalAdvance(aText);
    return registerMeasuredString(aText, aItemId, aFontFamily, aPixelSize, width);
}

bool StringRegistrationManager::registerMeasuredString(const QString& aText, const QString& aItemId,
                                                       const QString& aFontFamily, int aPixelSize, int aWidth)
{
    if (!isOpen())
        return false;
    int index = 0;
    for (const QVariant& value : {QVariant(notNull(aText)), QVariant(notNull(aFontFamily)),
                                  QVariant(aPixelSize), QVariant(notNull(aItemId)), QVariant(aWidth)})
        mInsertion->bindValue(index++, value);
    return mInsertion->exec() || fail(mInsertion->lastError().text());
}

bool StringRegistrationManager::isOpen()
{
    if (mInsertion || mHasFailed)
        return !mHasFailed;
    const QString fault = open();
    return fault.isEmpty() || fail(fault);
}

QString StringRegistrationManager::open()
{
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        return QStringLiteral("Qt's SQLite driver is not installed");
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), mConnectionName);
    database.setDatabaseName(mDatabasePath);
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=100"));
    if (!database.open())
        return database.lastError().text();
    QSqlQuery query(database);
    for (const QString& statement :
         {QStringLiteral("PRAGMA synchronous = OFF"),
          QStringLiteral("CREATE TABLE IF NOT EXISTS strings (text TEXT NOT NULL, font_family TEXT NOT NULL, "
                         "pixel_size INTEGER NOT NULL, item_id TEXT NOT NULL, width INTEGER NOT NULL, "
                         "PRIMARY KEY (text, font_family, pixel_size)) WITHOUT ROWID")}) {
        if (!query.exec(statement))
            return query.lastError().text();
    }
    if (!query.prepare(QStringLiteral("INSERT OR REPLACE INTO strings VALUES (?, ?, ?, ?, ?)")))
        return query.lastError().text();
    mInsertion = std::make_unique<QSqlQuery>(query);
    return QString();
}

bool StringRegistrationManager::fail(const QString& aReason)
{
    if (!mHasFailed)
        qWarning("Displayed strings are not registered in '%s': %s.", qUtf8Printable(mDatabasePath),
                 qUtf8Printable(aReason));
    mHasFailed = true;
    return false;
}

} // namespace Hmi::Core
