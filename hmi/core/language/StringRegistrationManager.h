#pragma once

#include <QString>
#include <memory>

#include <hmi/core/foundation/SingletonQml.h>

class QSqlQuery;

namespace Hmi::Core {

/**
 * Records the strings that the screens display, with their measured widths, in an SQLite database, from which
 * translators learn how much room a text has. QML reaches it as the singleton StringRegistrationManager of
 * Hmi.Core, one object per engine.
 *
 * The table "strings" has the columns text, font_family, pixel_size, item_id and width, with one row for each
 * text, family and size; a string registered again takes the place of its row. The database is opened by the
 * first registration. When it cannot be opened or written, one warning is logged and every registration from
 * then on returns false. The database can be made again from the screens, so that a write does not wait for
 * the disk. Main thread only.
 */
class Q_DECL_EXPORT StringRegistrationManager : public SingletonQml<StringRegistrationManager>
{
    Q_OBJECT
    friend class SingletonQml<StringRegistrationManager>;

public:
    /** Uses this database file, which is created when missing; its folder must exist. */
    explicit StringRegistrationManager(const QString& aDatabasePath);
    ~StringRegistrationManager() override;

    /**
     * Measures the string and registers it. False also for a size below 1 and in an application without
     * fonts, which is no QGuiApplication.
     */
    Q_INVOKABLE bool registerString(const QString& aText, const QString& aItemId, const QString& aFontFamily,
                                    int aPixelSize);

    /** Registers a string of a known width in pixels. */
    bool registerMeasuredString(const QString& aText, const QString& aItemId, const QString& aFontFamily,
                                int aPixelSize, int aWidth);

private:
    StringRegistrationManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool isOpen();
    QString open();
    bool fail(const QString& aReason);

    const QString mDatabasePath;
    const QString mConnectionName;
    std::unique_ptr<QSqlQuery> mInsertion;
    bool mHasFailed = false;
};

} // namespace Hmi::Core
