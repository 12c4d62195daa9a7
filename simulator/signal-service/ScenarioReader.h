#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <unordered_map>

#include <simulator/signal-service/Scenario.h>

namespace Hmi::Simulator {

/**
 * Reads a scenario whole or not at all. The error names the file, the place in it, for example
 * "steps[3].ramp.every", and what is expected there.
 */
class ScenarioReader
{
public:
    static constexpr int MaximumRamp = 100000;          ///< values
    static constexpr std::size_t MaximumSteps = 300000; ///< with the values of all ramps

    /** What is wrong with a command; empty: nothing. */
    using CheckCommand = std::function<QString(const QString& aCommand)>;

    /** Without a check no command is known. */
    explicit ScenarioReader(CheckCommand aCheckCommand = nullptr);

    std::optional<Scenario> read(const QString& aFile);
    QString getError() const { return mError; }

private:
    std::optional<QJsonObject> readObject(const QString& aFile);
    bool readAll(const QJsonObject& aAll);
    bool readSignal(const QJsonObject& aSignal);
    bool readStep(const QJsonObject& aStep);
    bool readCommand(const QJsonObject& aStep);
    bool readRamp(const Scenario::Step& aStart, const QJsonObject& aRamp);
    bool readLoop(const QJsonObject& aAll);

    /** Each element of the list, which is of objects, at its place. */
    bool readList(const QJsonObject& aAll, const QString& aKey,
                  bool (ScenarioReader::*aRead)(const QJsonObject&));
    /** Refuses keys that nothing reads. */
    bool hasOnly(const QJsonObject& aObject, const QStringList& aKeys);
    /** Seconds into microseconds. */
    bool readTime(const QJsonObject& aObject, const QString& aKey, bool aAboveZero, qint64& aTime);
    /** False when it is left out. */
    bool readFlag(const QJsonObject& aObject, const QString& aKey, bool& aFlag);
    bool readValue(const QJsonValue& aJson, const Scenario::NamedSignal& aSignal,
                   std::optional<DataBuffer>& aValue);
    bool checkFits(const Scenario::NamedSignal& aSignal, const std::optional<DataBuffer>& aValue);
    bool fail(const QString& aKey, const QString& aExpected);

    const CheckCommand mCheckCommand;
    Scenario mScenario;
    std::unordered_map<std::string, std::size_t> mIndexes;
    QString mPlace; ///< of the object being read
    QString mError;
};

} // namespace Hmi::Simulator
