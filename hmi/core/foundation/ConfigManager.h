#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <hmi/core/foundation/SingletonCpp.h>

class QSettings;

namespace Hmi::Core {

/**
 * The start-up configuration of the process: the keys of one INI file over the defaults that the typed
 * facades (HmiCoreConfigs, HmiSharedConfigs) register. Components read through a facade, not through this
 * class.
 *
 * A full key is group, "/" and name, as in "HmiCore/ThemesPath"; a key that stands before any group has no
 * "/". The file is UTF-8 text. It is read once, there is no reload, and nothing is ever written.
 *
 * Values may hold placeholders, "%%NAME%%" with a name of 1 to 100 ASCII letters and digits, which are
 * replaced from the table that the host hands in before loading. Replaced text is not searched again.
 *
 * Main thread only. Bad input is reported once, as a warning that names the file or key; the keys that could
 * not be read keep their defaults.
 */
class Q_DECL_EXPORT ConfigManager : public SingletonCpp<ConfigManager>
{
    Q_OBJECT
public:
    /** Files larger than this many bytes are refused; a configuration is a few kilobytes. */
    static constexpr qint64 MaximumFileSize = 4LL * 1024 * 1024;
    /**
     * So is a file of more than LargeFileSize bytes when more than MostOpenBrackets of its lines open a
     * bracket and do not close it, as QSettings would need minutes for it.
     */
    static constexpr qint64 LargeFileSize = 64LL * 1024;
    static constexpr int MostOpenBrackets = 1000;

    /** The process's configuration is instance(); others may exist beside it. */
    ConfigManager() = default;

    /** Sets the replacement text of each placeholder name. To take effect, call it before load(). */
    void setPlaceholders(const QHash<QString, QString>& aPlaceholders);

    /**
     * Reads the file. False, with nothing changed, when it is missing, is no regular file, cannot be read or
     * is too large. A file with lines that are no INI syntax is reported, and its other keys are taken.
     */
    bool load(const QString& aFilePath);

    /**
     * Registers the default of a key; a value already read from the file is kept. A path key's relative file
     * value is taken relative to the file's folder. A file value that does not read as the default's type
     * (whole number or switch) is reported; the facades read it as 0 or, if it is not empty, as true.
     */
    void registerDefault(const QString& aKey, const QVariant& aDefault, bool aIsPath);

    /**
     * The file value, else the default, else an invalid value. With aResolvePaths a path key's relative file
     * value is returned behind its file's folder, not otherwise cleaned.
     */
    QVariant value(const QString& aKey, bool aResolvePaths) const;

    /** As value(), as text: a list, which is how an INI value with unquoted commas reads, is joined with ",".
     */
    QString text(const QString& aKey, bool aResolvePaths) const;

    /** The path handed to the last successful load(), or an empty string. */
    QString getFilePath() const { return mFilePath; }

    /** Every key of the file and every registered key, sorted. */
    QStringList getKeys() const;

    /** Whether the file holds the key, that is, whether value() does not come from a default. */
    bool isFromFile(const QString& aKey) const;

private:
    struct Entry
    {
        QString baseDirectory;
        bool isPath = false;
        QVariant defaultValue;
        QVariant fileValue;
    };

    /** False when the file has keys of which no value can be asked for. */
    bool takeValues(const QSettings& aSettings, const QString& aBaseDirectory);
    bool expandPlaceholders(QString& aText) const;

    QHash<QString, Entry> mEntries;
    QHash<QString, QString> mPlaceholders;
    QString mFilePath;
};

} // namespace Hmi::Core
