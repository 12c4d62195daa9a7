#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

namespace Hmi::Core {

/**
 * A keyboard layout as its file describes it:
 *
 *     {"name": "English (US)", "rows": [["q", "w", {"text": "Enter", "width": 2}], ["a"]]}
 *
 * In rows every key is a map, however the file wrote it: "text"; "shifted", by default the upper case of a
 * single character and otherwise the text; "width" in units of a normal key, by default 1. Further members of
 * a key, such as the name of an icon, are kept as they are.
 */
struct KeyboardLayout
{
    /** The largest width of a key. */
    static constexpr double MaximumKeyWidth = 20;

    QString language;
    QString name;
    /** A list of rows, each a list of keys. */
    QVariantList rows;

    /**
     * Reads a file's content; the language decides upper case and stands in for a missing name. On failure
     * false, with aProblem saying what is wrong where and the layout in an unspecified state.
     */
    bool read(const QByteArray& aJson, QString& aProblem);
};

} // namespace Hmi::Core
