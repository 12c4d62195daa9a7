#pragma once

#include <QString>
#include <QStringList>

namespace Hmi::Core {

/**
 * The files of a folder that are named after languages, such as "en_US.json" and "de.json". They are found
 * once, at construction: they are installed with the software. A folder that does not exist has none.
 */
class LanguageFiles
{
public:
    /** The suffix is given without a dot. */
    LanguageFiles(const QString& aFolder, const QString& aSuffix);

    /** Language codes, sorted. */
    const QStringList& getLanguages() const { return mLanguages; }

    /**
     * The language itself, else the one without country ("de" for "de_AT"), else the first of another
     * country ("de_CH"), else an empty string.
     */
    QString closestTo(const QString& aLanguage) const;

    QString filePath(const QString& aLanguage) const;

private:
    QString mFolder;
    QString mSuffix;
    QStringList mLanguages;
};

} // namespace Hmi::Core
