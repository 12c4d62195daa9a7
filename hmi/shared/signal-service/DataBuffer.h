#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <cstring>
#include <type_traits>

namespace SignalService {

/**
 * The value of a vehicle signal as it travels: raw bytes, whose meaning the two sides agree upon. A text is
 * its UTF-8 bytes; a whole number, a floating-point number and a switch are the 4, 8 and 1 bytes of int,
 * double and bool in the byte order of the host.
 *
 * As the meta type "SignalService::DataBuffer" it converts to and from QString, int, double and bool, so a
 * QVariant that holds one gives toInt() and the like. A buffer whose size is not that of the wanted type
 * gives no value: the conversion fails. Copies share their bytes.
 */
class Q_DECL_EXPORT DataBuffer
{
public:
    DataBuffer() = default;
    explicit DataBuffer(const QByteArray& aBytes) : mBytes(aBytes) {}

    const QByteArray& getBytes() const { return mBytes; }

    // For Qt's converters. False is told through aOk, if it is given, where the size is another.
    QString toString() const;
    int toInt(bool* aOk = nullptr) const;
    double toDouble(bool* aOk = nullptr) const;
    bool toBool(bool* aOk = nullptr) const;

private:
    QByteArray mBytes;
};

inline bool operator==(const DataBuffer& aOne, const DataBuffer& aOther)
{
    return aOne.getBytes() == aOther.getBytes();
}
inline bool operator!=(const DataBuffer& aOne, const DataBuffer& aOther) { return !(aOne == aOther); }

Q_DECL_EXPORT DataBuffer StringToDataBuffer(const QString& aText);
/** Bytes that are no UTF-8 read as the replacement character. */
Q_DECL_EXPORT QString StringFromDataBuffer(const DataBuffer& aBuffer);

/** The bytes of a value of a trivially copyable type, in the host's order. */
template <class T>
DataBuffer MemcpyToDataBuffer(const T& aValue)
{
    static_assert(std::is_trivially_copyable<T>::value, "only such bytes mean the same elsewhere");
    return DataBuffer(QByteArray(reinterpret_cast<const char*>(&aValue), static_cast<int>(sizeof(T))));
}

/** False, with the value untouched, unless the buffer has exactly the size of the type. */
template <class T>
bool MemcpyFromDataBuffer(const DataBuffer& aBuffer, T& aValue)
{
    static_assert(std::is_trivially_copyable<T>::value, "only such bytes mean the same elsewhere");
    if (aBuffer.getBytes().size() != static_cast<int>(sizeof(T)))
        return false;
    std::memcpy(&aValue, aBuffer.getBytes().constData(), sizeof(T));
    return true;
}

/** As above; any byte but 0 is true. */
template <>
inline bool MemcpyFromDataBuffer<bool>(const DataBuffer& aBuffer, bool& aValue)
{
    if (aBuffer.getBytes().size() != static_cast<int>(sizeof(bool)))
        return false;
    aValue = aBuffer.getBytes().at(0) != 0;
    return true;
}

/** Registers the meta type and its converters; the transport does. Once per process, later calls do nothing.
 */
Q_DECL_EXPORT void registerDataBuffer();

} // namespace SignalService

// Small and movable: a QVariant holds it without memory of its own.
Q_DECLARE_TYPEINFO(SignalService::DataBuffer, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(SignalService::DataBuffer)
