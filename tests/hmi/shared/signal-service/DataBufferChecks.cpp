#include <hmi/shared/signal-service/DataBuffer.h>

#include <QSignalSpy>
#include <climits>
#include <gtest/gtest.h>
#include <limits>
#include <tests/support/PrintQt.h>

#include <hmi/shared/signal-service/qml/RxSignalProxy.h>
#include <hmi/shared/signal-service/qml/TxSignalProxy.h>

using SignalService::DataBuffer;

namespace {

struct DataBufferConversion : testing::Test
{
    DataBufferConversion() { SignalService::registerDataBuffer(); }

    static QVariant bytes(const char* aHex)
    {
        return QVariant::fromValue(DataBuffer(QByteArray::fromHex(aHex)));
    }
};

/** What was there is as it was, and QVariant's own ways of asking agree. */
template <class T>
void expectThereAndBack(T aValue, int aSize)
{
    SCOPED_TRACE(testing::Message() << aValue);
    const auto buffer = QVariant::fromValue(aValue).template value<DataBuffer>();
    EXPECT_EQ(buffer.getBytes(), QByteArray::fromRawData(reinterpret_cast<const char*>(&aValue), aSize));
    QVariant variant = QVariant::fromValue(buffer);
    EXPECT_EQ(variant.value<T>(), aValue);
    EXPECT_TRUE(variant.convert(qMetaTypeId<T>()));
    EXPECT_EQ(variant, QVariant(aValue));
}

} // namespace

TEST_F(DataBufferConversion, IsThereAndBackForEachType)
{
    EXPECT_EQ(QMetaType::type("SignalService::DataBuffer"), qMetaTypeId<DataBuffer>());
    for (const int value : {0, 1, -1, INT_MAX, INT_MIN})
        expectThereAndBack(value, 4);
    for (const double value : {0.0, -0.5, 1e300, std::numeric_limits<double>::infinity()})
        expectThereAndBack(value, 8);
    expectThereAndBack(true, 1);
    expectThereAndBack(false, 1);
    for (const char* const utf8 : {"", "plain", "\xc3\xbc \xe2\x82\xac \xf0\x9f\x9a\x97", "1", "true"}) {
        const QString text = QString::fromUtf8(utf8);
        const auto buffer = QVariant(text).value<DataBuffer>();
        EXPECT_EQ(buffer.getBytes(), QByteArray(utf8));
        EXPECT_EQ(QVariant::fromValue(buffer).toString(), text);
    }
    EXPECT_EQ(bytes("610062").toString(), QString::fromUtf8("a\0b", 3));
    EXPECT_EQ(bytes("61ff62").toString(), QStringLiteral("a\ufffdb"));
    EXPECT_TRUE(bytes("ff").toBool()) << "whatever is not 0";
}

TEST_F(DataBufferConversion, GivesNoValueFromAnotherSize)
{
    for (int size = 0; size <= 9; ++size) {
        const DataBuffer buffer(QByteArray(size, 1));
        const QVariant variant = QVariant::fromValue(buffer);
        SCOPED_TRACE(size);
        bool ok = size != 4;
        EXPECT_EQ(variant.toInt(&ok), size == 4 ? 0x01010101 : 0);
        EXPECT_EQ(ok, size == 4);
        ok = size != 8;
        EXPECT_EQ(variant.toDouble(&ok) != 0.0, size == 8);
        EXPECT_EQ(ok, size == 8);
        EXPECT_EQ(variant.toBool(), size == 1);
        for (const auto& [type, wanted] : {std::pair{QMetaType::Int, 4},
                                           {QMetaType::Double, 8},
                                           {QMetaType::Bool, 1},
                                           {QMetaType::QString, size}})
            EXPECT_EQ(QVariant(variant).convert(type), size == wanted) << type;
        short untouched = 7;
        EXPECT_EQ(SignalService::MemcpyFromDataBuffer(buffer, untouched), size == 2);
        EXPECT_EQ(untouched, size == 2 ? 0x0101 : 7);
    }
}

TEST(QmlSignalProxies, AreInertWhereTheServiceIsNotEnabled)
{
    Hmi::Shared::SignalService::TxSignalProxy writer;
    Hmi::Shared::SignalService::RxSignalProxy reader;
    QSignalSpy fails(&writer, &Hmi::Shared::SignalService::TxSignalProxy::putValueFail);
    QSignalSpy successes(&writer, &Hmi::Shared::SignalService::TxSignalProxy::putValueSuccess);
    QSignalSpy paths(&reader, &Hmi::Shared::SignalService::RxSignalProxy::pathChanged);
    for (const QString& path : {QString(), QStringLiteral("a"), QStringLiteral("a"), QStringLiteral("b")}) {
        reader.requestUpdates();
        reader.requestUpdate();
        reader.setPath(path);
        reader.cancelUpdates();
        writer.setPath(path);
        EXPECT_EQ(writer.getPath(), path);
        const int before = fails.count();
        writer.putValue(1);
        EXPECT_EQ(fails.count(), before + 1);
        writer.onPutValueResult(0);
    }
    EXPECT_EQ(paths.count(), 2);
    EXPECT_EQ(successes.count(), 0);
    EXPECT_EQ(fails.count(), 4);
}
