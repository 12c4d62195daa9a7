#include <hmi/shared/signal-service/DataBuffer.h>

namespace SignalService {

template <class T>
static T read(const DataBuffer& aBuffer, bool* aOk)
{
    T value{};
    const bool read = MemcpyFromDataBuffer(aBuffer, value);
    if (aOk)
        *aOk = read;
    return value;
}

QString DataBuffer::toString() const { return StringFromDataBuffer(*this); }

int DataBuffer::toInt(bool* aOk) const { return read<int>(*this, aOk); }

double DataBuffer::toDouble(bool* aOk) const { return read<double>(*this, aOk); }

bool DataBuffer::toBool(bool* aOk) const { return read<bool>(*this, aOk); }

DataBuffer StringToDataBuffer(const QString& aText) { return DataBuffer(aText.toUtf8()); }

/** Of a byte array alone Qt would read no further than its first NUL. */
QString StringFromDataBuffer(const DataBuffer& aBuffer)
{
    return QString::fromUtf8(aBuffer.getBytes().constData(), aBuffer.getBytes().size());
}

static bool registerConverters()
{
    qRegisterMetaType<DataBuffer>("SignalService::DataBuffer");
    QMetaType::registerEqualsComparator<DataBuffer>();
    QMetaType::registerConverter<DataBuffer, QString>(&DataBuffer::toString);
    QMetaType::registerConverter<DataBuffer, int>(&DataBuffer::toInt);
    QMetaType::registerConverter<DataBuffer, double>(&DataBuffer::toDouble);
    QMetaType::registerConverter<DataBuffer, bool>(&DataBuffer::toBool);
    QMetaType::registerConverter<QString, DataBuffer>(&StringToDataBuffer);
    QMetaType::registerConverter<int, DataBuffer>(&MemcpyToDataBuffer<int>);
    QMetaType::registerConverter<double, DataBuffer>(&MemcpyToDataBuffer<double>);
    QMetaType::registerConverter<bool, DataBuffer>(&MemcpyToDataBuffer<bool>);
    return true;
}

void registerDataBuffer()
{
    static const bool registered = registerConverters();
    Q_UNUSED(registered)
}

} // namespace SignalService
