#pragma once

#include <QString>
#include <QStringList>

namespace Hmi::Shared {

/**
 * The rules file that switches logging categories and levels on or off at start-up:
 *
 *     ; everything but debug output
 *     [Rules]
 *     *.debug=false
 *     hmi.shared.debug=true
 *
 * Rules may stand before the first section or in a section [Rules], in whatever case that is written; other
 * sections are skipped. Lines beginning with ";" are comments.
 */
class Q_DECL_EXPORT LoggingRules
{
public:
    /** In bytes, 1 MiB. A larger file is no rules file. */
    static constexpr qint64 MaximumFileSize = 1 << 20;

    /** The rule lines in file order, without surrounding blanks, else as they stand: what is no rule is kept
     * too. */
    static QStringList parse(const QString& aText);

    /**
     * Makes the rules of a UTF-8 file, up to its first NUL byte, Qt's filter rules. A file without rules
     * leaves the filters alone.
     *
     * Whatever is no regular file that opens (missing, a folder, a pipe) counts as not found; that and a file
     * above MaximumFileSize give one warning and false, and the filters stay as they are.
     */
    static bool load(const QString& aFilePath);
};

} // namespace Hmi::Shared
