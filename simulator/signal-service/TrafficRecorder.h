#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <unordered_map>

#include <simulator/signal-service/Scenario.h>

namespace Hmi::Simulator {

/**
 * Keeps every value that the table takes, with its time, until it is written as a scenario. A signal of
 * unknown type gets the one that its first value looks like; what then is of another keeps its bytes.
 */
class TrafficRecorder : public QObject
{
    Q_OBJECT

public:
    /** The table outlives it. The signals that it has now are those of the beginning. */
    TrafficRecorder(const SignalTable& aTable, const QString& aFile, QObject* aParent = nullptr);

    /** False, with one message on standard error, when the file could not be written at the end. */
    bool canSave() const;
    /** As Scenario::save(). */
    bool save();

private:
    std::size_t add(const std::string& aPath, const Signal& aSignal);
    void onValueTaken(const std::string& aPath, const Signal& aSignal);

    const SignalTable& mTable;
    const QString mFile;
    QElapsedTimer mClock;
    Scenario mScenario;
    std::unordered_map<std::string, std::size_t> mIndexes;
};

} // namespace Hmi::Simulator
