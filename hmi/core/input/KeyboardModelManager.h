#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/core/input/KeyboardLayout.h>
#include <hmi/core/input/LanguageFiles.h>

namespace Hmi::Core {

/**
 * The keys of the on-screen keyboard. A layout is a file "<language>.json" in the configured keyboards path,
 * of the form described at KeyboardLayout; QML lays the rows out with nested repeaters:
 *
 *     Repeater { model: KeyboardModelManager.rows; Row { Repeater { model: modelData; Key { ... } } } }
 *
 * A layout that cannot be taken is reported once, as a warning that names the file and the place, and the old
 * layout stays. Main thread only.
 */
class Q_DECL_EXPORT KeyboardModelManager : public SingletonCppQml<KeyboardModelManager>
{
    Q_OBJECT
    Q_PROPERTY(QStringList availableLayouts READ getAvailableLayouts CONSTANT)
    Q_PROPERTY(QString currentLayout READ getCurrentLayout WRITE setCurrentLayout NOTIFY currentLayoutChanged)
    Q_PROPERTY(QString name READ getName NOTIFY currentLayoutChanged)
    Q_PROPERTY(QVariantList rows READ getRows NOTIFY currentLayoutChanged)
    friend class SingletonCppQml<KeyboardModelManager>;

public:
    /** Files larger than this many bytes are refused; a layout is a few kilobytes. */
    static constexpr qint64 MaximumFileSize = 256LL * 1024;

    explicit KeyboardModelManager(const QString& aKeyboardsPath);

    /** The language codes for which there was a file when the manager was created, sorted. */
    QStringList getAvailableLayouts() const { return mFiles.getLanguages(); }

    /** The language code of the layout that was taken; empty until one was. */
    QString getCurrentLayout() const { return mLayout.language; }

    /**
     * Takes the layout of a language, else of the language without or with another country: "de_AT" is served
     * by "de" or "de_DE". False when there is none or it is malformed.
     */
    Q_INVOKABLE bool setCurrentLayout(const QString& aLanguage);

    /** What the layout calls itself, for the user. */
    QString getName() const { return mLayout.name; }

    /** A list of rows, each a list of keys, each a map with "text", "shifted" and "width". */
    QVariantList getRows() const { return mLayout.rows; }

signals:
    void currentLayoutChanged();

private:
    KeyboardModelManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool readLayout(KeyboardLayout& aLayout, QString& aProblem) const;

    const LanguageFiles mFiles;
    KeyboardLayout mLayout;
};

} // namespace Hmi::Core
