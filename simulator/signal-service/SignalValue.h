#pragma once

#include <QJsonValue>
#include <QString>
#include <optional>

#include <hmi/shared/signal-service/DataBuffer.h>

namespace Hmi::Simulator {

using SignalService::DataBuffer;

enum class SignalType {
    Int,
    Double,
    Bool,
    Text,
    Bytes ///< not known, as of a signal that another service publishes
};

/** "int", "double", "bool", "string" or "bytes" */
QString nameOf(SignalType aType);
std::optional<SignalType> typeNamed(const QString& aName);

/**
 * A value with its type, in its three forms: bytes on the wire, words in commands, JSON in scenarios. The
 * bytes need not be of the type: then the other forms show what they look like, and nothing of them is lost
 * in JSON.
 */
struct SignalValue
{
    /** What bytes of unknown type look like; Bytes where that is not certain. */
    static SignalType guessType(const DataBuffer& aBytes);

    /**
     * The value of a word in a command: true and false, whole numbers, numbers with a fraction or an
     * exponent, and else, or in quotes, text. Nothing where quotes do not close or a whole number is none of
     * an int.
     */
    static std::optional<SignalValue> fromWord(const QString& aWord);
    /** The same for a signal that has its type; nothing where the word is no value of it. */
    static std::optional<SignalValue> fromWord(const QString& aWord, SignalType aType);

    /** Nothing where the JSON is no value of the type; {"bytes": base64} is one of each. */
    static std::optional<SignalValue> fromJson(const QJsonValue& aJson, SignalType aType);

    /** As fromWord() reads it. Bytes that are no such value appear as their JSON. */
    QString toWord() const;
    QJsonValue toJson() const;

    SignalType type = SignalType::Bytes;
    DataBuffer bytes;
};

} // namespace Hmi::Simulator
