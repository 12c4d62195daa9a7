#include "Surroundings.h"

#include <algorithm>
#include <cmath>

#include <simulator/signal-service/ResponseFrames.h>
#include <simulator/signal-service/ScenarioReader.h>

using HmiFuzz::require;
using namespace Hmi::Simulator;

/** Qt's JSON parser leaks the list or object of a member that is there twice. */
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

namespace {

bool hasCommands(const Scenario& aScenario)
{
    return std::any_of(aScenario.steps.begin(), aScenario.steps.end(),
                       [](const Scenario::Step& aStep) { return !aStep.command.isEmpty(); });
}

QString checkCommand(const QString& aCommand)
{
    return aCommand.startsWith(QLatin1String("notification ")) ? QString() : QStringLiteral("unknown");
}

bool isFinite(SignalType aType, const std::optional<SignalService::DataBuffer>& aValue)
{
    bool isDouble = false;
    const double number = aValue ? aValue->toDouble(&isDouble) : 0;
    return aType != SignalType::Double || !isDouble || std::isfinite(number);
}

/** The player relies on all of this. */
void checkContent(const Scenario& aScenario, bool aHasRawBytes)
{
    for (const Scenario::NamedSignal& named : aScenario.signalTable)
        require(!named.path.empty() && !ResponseFrames::value(named.path, named.signal.value).isEmpty(),
                "a signal's value fits a message");
    qint64 former = 0;
    for (const Scenario::Step& step : aScenario.steps) {
        require(step.at >= former, "steps come in the order of their times");
        former = step.at;
        if (!step.command.isEmpty())
            continue;
        require(step.signal < aScenario.signalTable.size(), "a step's signal is there");
        const Scenario::NamedSignal& named = aScenario.signalTable[step.signal];
        require(!ResponseFrames::value(named.path, step.value).isEmpty(), "a step's value fits a message");
        require(aHasRawBytes || isFinite(named.signal.type, step.value), "numbers are numbers");
    }
    require(aScenario.loop == 0 || aScenario.loop >= std::max<qint64>(former, 10000),
            "a loop goes over all steps, and not too often");
}

bool isSameStep(const Scenario::Step& aOne, const Scenario::Step& aOther)
{
    return aOne.at == aOther.at && aOne.signal == aOther.signal && aOne.value == aOther.value;
}

bool isSameSignal(const Scenario::NamedSignal& aOne, const Scenario::NamedSignal& aOther)
{
    return aOne.path == aOther.path && aOne.signal.type == aOther.signal.type &&
           aOne.signal.writable == aOther.signal.writable && aOne.signal.value == aOther.signal.value;
}

template <class Row, class IsSame>
void requireSame(const std::vector<Row>& aOnes, const std::vector<Row>& aOthers, IsSame aIsSame)
{
    require(std::equal(aOnes.begin(), aOnes.end(), aOthers.begin(), aOthers.end(), aIsSame),
            "what was written is read");
}

void checkRoundTrip(const Scenario& aScenario)
{
    const HmiFuzz::File file{QByteArray()};
    require(aScenario.save(file.getPath()), "what was read can be written");
    ScenarioReader reader;
    const std::optional<Scenario> again = reader.read(file.getPath());
    require(again.has_value(), "what was written can be read");
    require(again->loop == aScenario.loop, "what was written is read");
    requireSame(again->signalTable, aScenario.signalTable, &isSameSignal);
    requireSame(again->steps, aScenario.steps, &isSameStep);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    HmiFuzz::Input input(aData, aSize);
    const QByteArray content = HmiFuzz::takeStretched(input);
    const HmiFuzz::File file(content);
    ScenarioReader reader(&checkCommand);
    std::optional<Scenario> scenario;
    {
        const HmiFuzz::Quick quick;
        scenario = reader.read(file.getPath());
    }
    require(scenario.has_value() == reader.getError().isEmpty(), "an error is told, and only an error");
    require(scenario || reader.getError().contains(file.getPath()), "an error names the file");
    if (!scenario)
        return 0;
    checkContent(*scenario, content.contains("bytes"));
    if (!hasCommands(*scenario) && scenario->steps.size() < 1000)
        checkRoundTrip(*scenario);
    return 0;
}
