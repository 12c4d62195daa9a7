#include <simulator/signal-service/SignalValue.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Hmi::Simulator {

using namespace SignalService;

static const std::array<QString, 5> sTypeNames = {QStringLiteral("int"), QStringLiteral("double"),
                                                  QStringLiteral("bool"), QStringLiteral("string"),
                                                  QStringLiteral("bytes")};
static const QString sBytesKey = QStringLiteral("bytes");

QString nameOf(SignalType aType) { return sTypeNames.at(static_cast<std::size_t>(aType)); }

std::optional<SignalType> typeNamed(const QString& aName)
{
    const auto found = std::find(sTypeNames.begin(), sTypeNames.end(), aName);
    if (found == sTypeNames.end())
        return std::nullopt;
    return static_cast<SignalType>(found - sTypeNames.begin());
}

static bool isText(const DataBuffer& aBytes)
{
    const QString text = aBytes.toString();
    const QVector<uint> characters = text.toUcs4();
    return text.toUtf8() == aBytes.getBytes() &&
           std::all_of(characters.begin(), characters.end(), [](uint aOne) { return QChar::isPrint(aOne); });
}

SignalType SignalValue::guessType(const DataBuffer& aBytes)
{
    const int size = aBytes.getBytes().size();
    const bool text = isText(aBytes);
    // Four or eight characters may be a number or a text.
    if (size == static_cast<int>(sizeof(int)))
        return text ? SignalType::Bytes : SignalType::Int;
    if (size == static_cast<int>(sizeof(double)))
        return text ? SignalType::Bytes : SignalType::Double;
    if (size == 1 && static_cast<uchar>(aBytes.getBytes().at(0)) <= 1)
        return SignalType::Bool;
    return text ? SignalType::Text : SignalType::Bytes;
}

static SignalValue makeText(const QString& aText) { return {SignalType::Text, StringToDataBuffer(aText)}; }

static std::optional<SignalValue> readInt(const QString& aWord)
{
    bool ok = false;
    const int value = aWord.toInt(&ok);
    if (!ok)
        return std::nullopt;
    return SignalValue{SignalType::Int, MemcpyToDataBuffer(value)};
}

static std::optional<SignalValue> readDouble(const QString& aWord)
{
    bool ok = false;
    const double value = aWord.toDouble(&ok);
    if (!ok)
        return std::nullopt;
    return SignalValue{SignalType::Double, MemcpyToDataBuffer(value)};
}

static std::optional<SignalValue> readBool(const QString& aWord)
{
    const bool value = aWord == QLatin1String("true");
    if (!value && aWord != QLatin1String("false"))
        return std::nullopt;
    return SignalValue{SignalType::Bool, MemcpyToDataBuffer(value)};
}

/** Quotes and escapes are those of JSON. */
static std::optional<SignalValue> readText(const QString& aWord)
{
    if (!aWord.startsWith(QLatin1Char('"')))
        return makeText(aWord);
    const QJsonArray parsed = QJsonDocument::fromJson('[' + aWord.toUtf8() + ']').array();
    if (parsed.size() != 1 || !parsed.first().isString())
        return std::nullopt;
    return makeText(parsed.first().toString());
}

std::optional<SignalValue> SignalValue::fromWord(const QString& aWord)
{
    static const QRegularExpression whole(QStringLiteral("^[+-]?\\d+$"));
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?$"));
    if (auto value = readBool(aWord))
        return value;
    if (whole.match(aWord).hasMatch())
        return readInt(aWord);
    if (number.match(aWord).hasMatch())
        return readDouble(aWord);
    return readText(aWord);
}

std::optional<SignalValue> SignalValue::fromWord(const QString& aWord, SignalType aType)
{
    switch (aType) {
    case SignalType::Int:
        return readInt(aWord);
    case SignalType::Double:
        return readDouble(aWord);
    case SignalType::Bool:
        return readBool(aWord);
    case SignalType::Text:
        return readText(aWord);
    case SignalType::Bytes:
        break;
    }
    return fromWord(aWord);
}

static std::optional<DataBuffer> readBytes(const QJsonValue& aJson)
{
    const QJsonObject object = aJson.toObject();
    const QJsonValue text = object.value(sBytesKey);
    if (object.size() != 1 || !text.isString())
        return std::nullopt;
    const auto decoded =
        QByteArray::fromBase64Encoding(text.toString().toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return DataBuffer(*decoded);
}

static std::optional<DataBuffer> readNumber(const QJsonValue& aJson, SignalType aType)
{
    const double value = aJson.toDouble();
    if (aType == SignalType::Double)
        return MemcpyToDataBuffer(value);
    if (std::trunc(value) != value || std::abs(value) > std::numeric_limits<int>::max())
        return std::nullopt;
    return MemcpyToDataBuffer(static_cast<int>(value));
}

std::optional<SignalValue> SignalValue::fromJson(const QJsonValue& aJson, SignalType aType)
{
    std::optional<DataBuffer> bytes = readBytes(aJson);
    if (aType == SignalType::Bool && aJson.isBool())
        bytes = MemcpyToDataBuffer(aJson.toBool());
    else if (aType == SignalType::Text && aJson.isString())
        bytes = StringToDataBuffer(aJson.toString());
    else if ((aType == SignalType::Int || aType == SignalType::Double) && aJson.isDouble())
        bytes = readNumber(aJson, aType);
    if (!bytes)
        return std::nullopt;
    return SignalValue{aType, *bytes};
}

static QString wordOf(double aValue)
{
    // Qt writes it without its sign.
    if (aValue == 0 && std::signbit(aValue))
        return QStringLiteral("-0.0");
    const QString digits = QString::number(aValue, 'g', QLocale::FloatingPointShortest);
    // Without a fraction it would read as a whole number.
    const bool isWhole = std::none_of(digits.begin(), digits.end(),
                                      [](QChar aOne) { return aOne.isLetter() || aOne == QLatin1Char('.'); });
    return isWhole ? digits + QStringLiteral(".0") : digits;
}

static QString compact(const QJsonValue& aJson)
{
    const QByteArray array = QJsonDocument(QJsonArray{aJson}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QString SignalValue::toWord() const
{
    const SignalType shown = type == SignalType::Bytes ? guessType(bytes) : type;
    bool isDouble = false;
    const double number = bytes.toDouble(&isDouble);
    if (shown == SignalType::Double && isDouble)
        return wordOf(number);
    return compact(SignalValue{shown, bytes}.toJson());
}

/** The form that the type has in JSON, which need not read back as the same bytes. */
static QJsonValue plainJson(const SignalValue& aValue)
{
    switch (aValue.type) {
    case SignalType::Int:
        return aValue.bytes.toInt();
    case SignalType::Double:
        return aValue.bytes.toDouble();
    case SignalType::Bool:
        return aValue.bytes.toBool();
    case SignalType::Text:
        return aValue.bytes.toString();
    case SignalType::Bytes:
        break;
    }
    return {};
}

QJsonValue SignalValue::toJson() const
{
    // Through the text: JSON knows no infinity, no "not a number" and no negative zero.
    const QByteArray text = QJsonDocument(QJsonArray{plainJson(*this)}).toJson(QJsonDocument::Compact);
    QJsonValue plain = QJsonDocument::fromJson(text).array().first();
    const std::optional<SignalValue> again = fromJson(plain, type);
    if (again && again->bytes == bytes)
        return plain;
    return QJsonObject{{sBytesKey, QString::fromLatin1(bytes.getBytes().toBase64())}};
}

} // namespace Hmi::Simulator
