#pragma once

#include <QHash>
#include <QString>

class QXmlStreamReader;

namespace Hmi::Core {

/** What a resource id stands for. */
enum class ResourceKind {
    Defaults, /**< A JSON object of default values. */
};

/**
 * The table of one bundle or library that maps ids to typed resources, an XML file:
 *
 *     <resources>
 *         <defaults id="DEFAULTS_SETTINGS_SHARED" file="defaults/settings_shared.json"/>
 *     </resources>
 *
 * Files are named relative to the table's folder. An id stands for one resource of the table, whatever its
 * kind.
 */
class Q_DECL_EXPORT ResourceTable
{
public:
    /**
     * Reads the table. False, with the table left empty and a warning that names file, line and reason, when
     * it cannot be read, is malformed or names a file that does not exist.
     */
    bool read(const QString& aFilePath);

    /** The path of the file that the table was read from. */
    QString getFilePath() const { return mFilePath; }

    /** The path of the resource's file, or an empty string for an id that is unknown or of another kind. */
    QString getFile(ResourceKind aKind, const QString& aId) const;

private:
    struct Entry
    {
        ResourceKind kind;
        QString file;
    };

    void readEntries(QXmlStreamReader& aReader);
    QString addEntry(const QXmlStreamReader& aElement);

    QString mFilePath;
    QHash<QString, Entry> mEntries;
};

} // namespace Hmi::Core
