#include <hmi/core/input/KeyboardLayout.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

namespace Hmi::Core {

static QString shiftedText(const QString& aText, const QLocale& aLocale)
{
    if (aText.toUcs4().size() != 1)
        return aText;
    const QString upper = aLocale.toUpper(aText);
    // A key types one character: the upper case of the sharp s is two.
    return upper.size() == aText.size() ? upper : aText;
}

/** The key in its full form, or an empty map for one that is malformed. */
static QVariantMap readKey(const QJsonValue& aKey, const QLocale& aLocale)
{
    QJsonObject key = aKey.isString() ? QJsonObject{{QStringLiteral("text"), aKey}} : aKey.toObject();
    const QString text = key.value(QStringLiteral("text")).toString();
    if (!key.contains(QStringLiteral("shifted")))
        key.insert(QStringLiteral("shifted"), shiftedText(text, aLocale));
    if (!key.contains(QStringLiteral("width")))
        key.insert(QStringLiteral("width"), 1);
    const double width = key.value(QStringLiteral("width")).toDouble();
    const bool valid = !text.isEmpty() && key.value(QStringLiteral("shifted")).isString() && width > 0 &&
                       width <= KeyboardLayout::MaximumKeyWidth;
    return valid ? key.toVariantMap() : QVariantMap();
}

static bool readRow(const QJsonArray& aRow, const QLocale& aLocale, QVariantList& aKeys)
{
    for (const QJsonValue& value : aRow) {
        const QVariantMap key = readKey(value, aLocale);
        if (key.isEmpty())
            return false;
        aKeys.append(key);
    }
    return !aKeys.isEmpty();
}

bool KeyboardLayout::read(const QByteArray& aJson, QString& aProblem)
{
    QJsonParseError error;
    const QJsonObject layout = QJsonDocument::fromJson(aJson, &error).object();
    if (error.error != QJsonParseError::NoError) {
        aProblem = QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset);
        return false;
    }
    const QLocale locale(language);
    name = layout.value(QStringLiteral("name")).toString(language);
    rows.clear();
    const QJsonArray array = layout.value(QStringLiteral("rows")).toArray();
    for (const QJsonValue& value : array) {
        QVariantList keys;
        if (!readRow(value.toArray(), locale, keys)) {
            aProblem = QStringLiteral("row %1, key %2 is no key").arg(rows.size() + 1).arg(keys.size() + 1);
            return false;
        }
        rows.append(QVariant(keys));
    }
    if (rows.isEmpty())
        aProblem = QStringLiteral("it has no \"rows\"");
    return !rows.isEmpty();
}

} // namespace Hmi::Core
