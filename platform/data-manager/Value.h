#pragma once

#include <QByteArray>
#include <QString>
#include <cstring>
#include <type_traits>
#include <variant>

#include <platform/data-manager/ReturnCode.h>

namespace DataManager {

/** The value of a setting, with its type. */
using Value = std::variant<bool, int, double, QString, QByteArray>;

/** QString::fromUtf8() would drop a byte-order mark at the beginning. */
inline QString textOfUtf8(const char* aBytes, int aSize)
{
    const QString text = QString::fromUtf8(aBytes, aSize);
    return aSize >= 3 && std::memcmp(aBytes, "\xEF\xBB\xBF", 3) == 0 ? QChar(QChar::ByteOrderMark) + text
                                                                     : text;
}

/** Whose a setting is. */
enum class Scope { Protected, Global, User, AllUsers };

/** What a read brings: a code and, when that is Ok, the value, which outlives no other operation. */
struct ReadResult
{
    int code = Failed;
    const Value* value = nullptr;
};

/** Hands the read value over when it is of the argument's type; WrongType otherwise. */
template <class T>
int takeValue(const ReadResult& aResult, T& aValue)
{
    const T* held = aResult.value ? std::get_if<T>(aResult.value) : nullptr;
    aValue = held ? *held : T();
    return aResult.value && !held ? WrongType : aResult.code;
}

/** A value of exactly the type of the argument, which has to be one of the five. */
template <class T>
Value makeValue(const T& aValue)
{
    return Value(std::in_place_type<T>, aValue);
}

} // namespace DataManager
