#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <simulator/signal-service/SignalValue.h>
#include <tests/support/PrintQt.h>

using namespace Hmi::Simulator;
using SignalService::MemcpyToDataBuffer;

TEST(SignalValue, HasTheTypeThatItsWordLooksLike)
{
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"true", "bool"},   {"True", "string"},    {"-7", "int"},       {"+7", "int"},
        {"2147483648", ""}, {"7.", "double"},      {".5e-3", "double"}, {"1e5", "double"},
        {"nan", "string"},  {"0x10", "string"},    {"\"7\"", "string"}, {"\"7", ""},
        {"\"a\" b", ""},    {"a \"b\"", "string"}, {"1,5", "string"}};
    for (const auto& [word, type] : rows) {
        const auto value = SignalValue::fromWord(QLatin1String(word));
        EXPECT_EQ(value ? nameOf(value->type) : QString(), QLatin1String(type)) << word;
    }
}

TEST(SignalValue, IsGuessedFromBytesOnlyWhereThatIsCertain)
{
    const std::vector<std::pair<QByteArray, const char*>> rows = {
        {MemcpyToDataBuffer(100).getBytes(), "int"},
        {"Park", "bytes"},
        {MemcpyToDataBuffer(0.1).getBytes(), "double"},
        {"Sporting", "bytes"},
        {"\x01", "bool"},
        {"\x02", "bytes"},
        {"P", "string"},
        {"gr\xc3\xbc", "bytes"},
        {"gr\xc3\xbcn", "string"},
        {"\xff\xfe", "bytes"},
        {"a\nb", "bytes"},
        {"", "string"}};
    for (const auto& [bytes, type] : rows)
        EXPECT_EQ(nameOf(SignalValue::guessType(DataBuffer(bytes))), QLatin1String(type))
            << bytes.toHex().constData();
}

TEST(SignalValue, KeepsEveryByteInAScenario)
{
    const std::vector<std::pair<SignalType, DataBuffer>> rows = {
        {SignalType::Int, MemcpyToDataBuffer(std::numeric_limits<int>::min())},
        {SignalType::Double, MemcpyToDataBuffer(0.1 + 0.2)},
        {SignalType::Double, MemcpyToDataBuffer(-0.0)},
        {SignalType::Double, MemcpyToDataBuffer(std::nan(""))},
        {SignalType::Double, MemcpyToDataBuffer(-std::numeric_limits<double>::denorm_min())},
        {SignalType::Bool, DataBuffer(QByteArray("\x02"))},
        {SignalType::Text, DataBuffer(QByteArray("\xef\xbb\xbfmarked"))},
        {SignalType::Text, DataBuffer(QByteArray("\xff\0", 2))},
        {SignalType::Int, DataBuffer(QByteArray("longer"))}};
    for (const auto& [type, bytes] : rows) {
        const auto again = SignalValue::fromJson(SignalValue{type, bytes}.toJson(), type);
        EXPECT_TRUE(again && again->bytes == bytes) << bytes.getBytes().toHex().constData();
    }
}
