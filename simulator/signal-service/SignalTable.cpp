#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

QString Signal::toWord() const
{
    return value ? SignalValue{type, *value}.toWord() : QStringLiteral("unavailable");
}

const Signal* SignalTable::find(const std::string& aPath) const
{
    const auto found = mSignals.find(aPath);
    return found == mSignals.end() ? nullptr : &found->second;
}

void SignalTable::declare(const std::string& aPath, const Signal& aSignal)
{
    const auto [entry, isNew] = mSignals.try_emplace(aPath, aSignal);
    const bool becomesWritable = aSignal.writable && (isNew || !entry->second.writable);
    entry->second.writable |= aSignal.writable;
    if (isNew)
        emit readerAdded(aPath);
    if (becomesWritable)
        emit writerAdded(aPath);
}

void SignalTable::take(const std::string& aPath, const std::optional<DataBuffer>& aValue)
{
    Signal& signal = mSignals.at(aPath);
    signal.value = aValue;
    emit valueTaken(aPath, signal);
}

} // namespace Hmi::Simulator
