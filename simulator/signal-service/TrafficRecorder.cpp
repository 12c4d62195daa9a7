#include <simulator/signal-service/TrafficRecorder.h>

#include <QSaveFile>

#include <simulator/Console.h>

namespace Hmi::Simulator {

TrafficRecorder::TrafficRecorder(const SignalTable& aTable, const QString& aFile, QObject* aParent) :
    QObject(aParent), mTable(aTable), mFile(aFile)
{
    connect(&mTable, &SignalTable::valueTaken, this, &TrafficRecorder::onValueTaken);
    for (const auto& [path, signal] : mTable.getSignals())
        add(path, signal);
    mClock.start();
}

bool TrafficRecorder::canSave() const
{
    QSaveFile file(mFile);
    if (file.open(QIODevice::WriteOnly)) {
        file.cancelWriting();
        return true;
    }
    Console::printError(
        QStringLiteral("The recording '%1' could not be written at the end (%2); choose another "
                       "file with --record.")
            .arg(mFile, file.errorString()));
    return false;
}

bool TrafficRecorder::save()
{
    for (Scenario::NamedSignal& named : mScenario.signalTable)
        named.signal.writable = mTable.find(named.path)->writable;
    return mScenario.save(mFile);
}

std::size_t TrafficRecorder::add(const std::string& aPath, const Signal& aSignal)
{
    const auto [entry, isNew] = mIndexes.emplace(aPath, mScenario.signalTable.size());
    if (isNew)
        mScenario.signalTable.push_back({aPath, aSignal});
    return entry->second;
}

void TrafficRecorder::onValueTaken(const std::string& aPath, const Signal& aSignal)
{
    const std::size_t index = add(aPath, {aSignal.type, aSignal.writable, aSignal.upstream, std::nullopt});
    SignalType& type = mScenario.signalTable[index].signal.type;
    if (type == SignalType::Bytes && aSignal.value)
        type = SignalValue::guessType(*aSignal.value);
    mScenario.steps.push_back({mClock.nsecsElapsed() / 1000, index, aSignal.value});
}

} // namespace Hmi::Simulator
