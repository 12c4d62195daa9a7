#include <simulator/services/SignalWords.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace Hmi::Simulator {

static std::optional<QJsonValue> fromJson(const QString& aText)
{
    const QByteArray list = '[' + aText.toUtf8() + ']';
    const QJsonArray values = QJsonDocument::fromJson(list).array();
    return values.size() == 1 ? std::make_optional(QJsonValue(values.first())) : std::nullopt;
}

QString SignalWords::toWords(const QVariantList& aValues)
{
    QStringList words;
    for (const QVariant& value : aValues) {
        const QByteArray list =
            QJsonDocument(QJsonArray{QJsonValue::fromVariant(value)}).toJson(QJsonDocument::Compact);
        words += QString::fromUtf8(list.mid(1, list.size() - 2));
    }
    return words.join(QLatin1Char(' '));
}

std::optional<QString> SignalWords::toText(const QString& aWord)
{
    if (!aWord.startsWith(QLatin1Char('"')))
        return aWord;
    const std::optional<QJsonValue> value = fromJson(aWord);
    return value && value->isString() ? std::make_optional(value->toString()) : std::nullopt;
}

static std::optional<QStringList> split(const QString& aWords)
{
    static const QString text = QStringLiteral(R"("(?:[^"\\]|\\.)*")");
    static const QRegularExpression words(
        QStringLiteral(R"(\G\s*(\[(?:[^\]"]|%1)*\]|%1|[^\s"\[]\S*)(?=\s|$))").arg(text));
    QStringList found;
    int end = 0;
    for (auto all = words.globalMatch(aWords); all.hasNext();) {
        const QRegularExpressionMatch match = all.next();
        found += match.captured(1);
        end = match.capturedEnd();
    }
    return aWords.midRef(end).trimmed().isEmpty() ? std::make_optional(found) : std::nullopt;
}

static std::optional<QStringList> toList(const QString& aWord)
{
    const std::optional<QJsonValue> value = fromJson(aWord);
    if (!value || !value->isArray())
        return std::nullopt;
    QStringList texts;
    const QJsonArray list = value->toArray();
    for (const auto& one : list) {
        if (!one.isString())
            return std::nullopt;
        texts += one.toString();
    }
    return texts;
}

/** Not valid: it is none of this type. */
static QVariant toValue(const QString& aWord, int aType)
{
    bool isNumber = false;
    const int number = aWord.toInt(&isNumber);
    const std::optional<QString> text = SignalWords::toText(aWord);
    switch (aType) {
    case QMetaType::Bool:
        return aWord == QLatin1String("true")    ? QVariant(true)
               : aWord == QLatin1String("false") ? QVariant(false)
                                                 : QVariant();
    case QMetaType::Int:
        return isNumber ? QVariant(number) : QVariant();
    case QMetaType::Double:
        aWord.toDouble(&isNumber);
        return isNumber ? QVariant(aWord.toDouble()) : QVariant();
    case QMetaType::QStringList:
        return toList(aWord) ? QVariant(*toList(aWord)) : QVariant();
    default:
        return text ? QVariant(*text) : QVariant();
    }
}

std::optional<QVariantList> SignalWords::toArguments(const QMetaMethod& aSignal, const QString& aWords)
{
    const std::optional<QStringList> words = split(aWords);
    if (!words || words->size() != aSignal.parameterCount())
        return std::nullopt;
    QVariantList values;
    for (const QString& word : *words)
        values += toValue(word, aSignal.parameterType(values.size()));
    const bool areAll =
        std::all_of(values.begin(), values.end(), [](const QVariant& aOne) { return aOne.isValid(); });
    return areAll ? std::make_optional(values) : std::nullopt;
}

} // namespace Hmi::Simulator
