#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

#include <hmi/core/language/TranslationFile.h>

namespace Hmi::Core {

/**
 * The translations of one folder and the language of them that is installed in the application. A file is
 * named by its language code, alone or as the last part: "de_DE.qm", "navigation_de_DE.qm". A language may
 * have several files; other files are ignored. The folder is listed once, by the constructor; one that does
 * not exist holds no languages.
 *
 * Installed translations are withdrawn by the destructor. Main thread only.
 */
class Q_DECL_EXPORT Translations
{
public:
    explicit Translations(const QString& aFolder);

    /** Whether the text has the form "en_US" and names a language that Qt knows. */
    static bool isCode(const QString& aText);

    /** The codes of the languages that have files, sorted. */
    QStringList getCodes() const { return mFiles.keys(); }

    /**
     * Installs the files of this language instead of those installed. A language without files takes those of
     * the same language for another country, and else shows the source texts. False, with everything left as
     * it is and a warning, when one of the files is damaged.
     */
    bool install(const QString& aCode);

private:
    QStringList findFiles(const QString& aCode) const;

    /** Paths by code. */
    QMap<QString, QStringList> mFiles;
    std::vector<std::unique_ptr<TranslationFile>> mInstalled;
};

} // namespace Hmi::Core
