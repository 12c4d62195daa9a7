#include <simulator/signal-service/ScenarioReader.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cmath>
#include <utility>

#include <simulator/signal-service/ResponseFrames.h>

namespace Hmi::Simulator {

static const QString sSignals = QStringLiteral("signals");
static const QString sSteps = QStringLiteral("steps");
static const QString sLoop = QStringLiteral("loop");
static const QString sPath = QStringLiteral("path");
static const QString sType = QStringLiteral("type");
static const QString sValue = QStringLiteral("value");
static const QString sWritable = QStringLiteral("writable");
static const QString sAt = QStringLiteral("at");
static const QString sCommand = QStringLiteral("command");
static const QString sOnce = QStringLiteral("once");
static const QString sRamp = QStringLiteral("ramp");
static const QString sFrom = QStringLiteral("from");
static const QString sTo = QStringLiteral("to");
static const QString sDuring = QStringLiteral("during");
static const QString sEvery = QStringLiteral("every");

static constexpr double MicrosecondsPerSecond = 1e6;
static constexpr double MaximumSeconds = 1e7;
static constexpr qint64 DefaultEvery = 100000; ///< microseconds
static constexpr qint64 MinimumLoop = 10000;   ///< microseconds

ScenarioReader::ScenarioReader(CheckCommand aCheckCommand) : mCheckCommand(std::move(aCheckCommand)) {}

std::optional<Scenario> ScenarioReader::read(const QString& aFile)
{
    mScenario = {};
    mIndexes.clear();
    mError.clear();
    const std::optional<QJsonObject> all = readObject(aFile);
    if (all && readAll(*all))
        return std::move(mScenario);
    mError = QStringLiteral("The scenario '%1' is not played: %2.").arg(aFile, mError);
    return std::nullopt;
}

std::optional<QJsonObject> ScenarioReader::readObject(const QString& aFile)
{
    QFile file(aFile);
    if (!file.open(QFile::ReadOnly)) {
        mError = QStringLiteral("it cannot be read (%1)").arg(file.errorString());
        return std::nullopt;
    }
    const QByteArray content = file.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (document.isObject())
        return document.object();
    const int line = content.left(error.offset).count('\n') + 1;
    mError = error.error == QJsonParseError::NoError
                 ? QStringLiteral("an object is expected around all")
                 : QStringLiteral("line %1: %2").arg(line).arg(error.errorString());
    return std::nullopt;
}

bool ScenarioReader::fail(const QString& aKey, const QString& aExpected)
{
    const QString point = mPlace.isEmpty() || aKey.isEmpty() ? QString() : QStringLiteral(".");
    mError = QStringLiteral("%1%2%3: %4 is expected").arg(mPlace, point, aKey, aExpected);
    return false;
}

bool ScenarioReader::readAll(const QJsonObject& aAll)
{
    mPlace.clear();
    if (!hasOnly(aAll, {sSignals, sSteps, sLoop}) || !readList(aAll, sSignals, &ScenarioReader::readSignal) ||
        !readList(aAll, sSteps, &ScenarioReader::readStep))
        return false;
    std::stable_sort(
        mScenario.steps.begin(), mScenario.steps.end(),
        [](const Scenario::Step& aOne, const Scenario::Step& aOther) { return aOne.at < aOther.at; });
    return !aAll.contains(sLoop) || readLoop(aAll);
}

bool ScenarioReader::readList(const QJsonObject& aAll, const QString& aKey,
                              bool (ScenarioReader::*aRead)(const QJsonObject&))
{
    if (aAll.contains(aKey) && !aAll.value(aKey).isArray())
        return fail(aKey, QStringLiteral("a list of objects"));
    const QJsonArray list = aAll.value(aKey).toArray();
    for (int index = 0; index < list.size(); ++index) {
        mPlace = QStringLiteral("%1[%2]").arg(aKey).arg(index);
        if (!list.at(index).isObject())
            return fail(QString(), QStringLiteral("an object"));
        if (!(this->*aRead)(list.at(index).toObject()))
            return false;
    }
    mPlace.clear();
    return true;
}

bool ScenarioReader::hasOnly(const QJsonObject& aObject, const QStringList& aKeys)
{
    const QStringList keys = aObject.keys();
    const auto unknown =
        std::find_if(keys.begin(), keys.end(), [&](const QString& aKey) { return !aKeys.contains(aKey); });
    return unknown == keys.end() ||
           fail(*unknown, QStringLiteral("one of the keys ") + aKeys.join(QStringLiteral(", ")));
}

bool ScenarioReader::readTime(const QJsonObject& aObject, const QString& aKey, bool aAboveZero, qint64& aTime)
{
    const QJsonValue json = aObject.value(aKey);
    const double value = json.toDouble(-1);
    aTime = std::llround(std::clamp(value, -1.0, MaximumSeconds) * MicrosecondsPerSecond);
    if (value >= 0 && value <= MaximumSeconds && (!aAboveZero || aTime > 0))
        return true;
    return fail(aKey, QStringLiteral("a number of seconds %1 and at most %2")
                          .arg(aAboveZero ? QStringLiteral("above 0") : QStringLiteral("from 0 on"))
                          .arg(MaximumSeconds, 0, 'f', 0));
}

bool ScenarioReader::readFlag(const QJsonObject& aObject, const QString& aKey, bool& aFlag)
{
    const QJsonValue json = aObject.value(aKey);
    aFlag = json.toBool();
    return json.isUndefined() || json.isBool() || fail(aKey, QStringLiteral("true or false"));
}

bool ScenarioReader::readSignal(const QJsonObject& aSignal)
{
    if (!hasOnly(aSignal, {sPath, sType, sValue, sWritable}))
        return false;
    Scenario::NamedSignal named;
    named.path = aSignal.value(sPath).toString().toStdString();
    if (named.path.empty() || mIndexes.count(named.path) > 0)
        return fail(sPath, QStringLiteral("the path of a signal that no other entry has"));
    const std::optional<SignalType> type = typeNamed(aSignal.value(sType).toString());
    if (!type)
        return fail(sType, QStringLiteral("one of \"int\", \"double\", \"bool\", \"string\", \"bytes\""));
    named.signal.type = *type;
    if (!readFlag(aSignal, sWritable, named.signal.writable))
        return false;
    const QJsonValue value = aSignal.contains(sValue) ? aSignal.value(sValue) : QJsonValue::Null;
    if (!readValue(value, named, named.signal.value))
        return false;
    mIndexes.emplace(named.path, mScenario.signalTable.size());
    mScenario.signalTable.push_back(named);
    return true;
}

bool ScenarioReader::readValue(const QJsonValue& aJson, const Scenario::NamedSignal& aSignal,
                               std::optional<DataBuffer>& aValue)
{
    const SignalType type = aSignal.signal.type;
    if (aJson.isNull())
        aValue = std::nullopt;
    else if (const auto value = SignalValue::fromJson(aJson, type))
        aValue = value->bytes;
    else
        return fail(sValue,
                    QStringLiteral("a value of type %1, null or {\"bytes\": base64}").arg(nameOf(type)));
    return checkFits(aSignal, aValue);
}

bool ScenarioReader::checkFits(const Scenario::NamedSignal& aSignal, const std::optional<DataBuffer>& aValue)
{
    return !ResponseFrames::value(aSignal.path, aValue).isEmpty() ||
           fail(sValue, QStringLiteral("a value that fits a message of 255 bytes beside its path"));
}

bool ScenarioReader::readStep(const QJsonObject& aStep)
{
    if (aStep.contains(sCommand))
        return readCommand(aStep);
    Scenario::Step step{};
    if (!hasOnly(aStep, {sAt, sPath, sValue, sRamp}) || !readTime(aStep, sAt, false, step.at))
        return false;
    const auto signal = mIndexes.find(aStep.value(sPath).toString().toStdString());
    if (signal == mIndexes.end())
        return fail(sPath, QStringLiteral("the path of an entry in \"signals\""));
    step.signal = signal->second;
    if (aStep.contains(sValue) == aStep.contains(sRamp))
        return fail(QString(), QStringLiteral("either \"value\" or \"ramp\""));
    if (aStep.contains(sRamp)) {
        if (!aStep.value(sRamp).isObject())
            return fail(sRamp, QStringLiteral("an object"));
        mPlace += QLatin1Char('.') + sRamp;
        return readRamp(step, aStep.value(sRamp).toObject());
    }
    if (!readValue(aStep.value(sValue), mScenario.signalTable[step.signal], step.value))
        return false;
    mScenario.steps.push_back(step);
    return true;
}

bool ScenarioReader::readCommand(const QJsonObject& aStep)
{
    Scenario::Step step{};
    if (!hasOnly(aStep, {sAt, sCommand, sOnce}) || !readTime(aStep, sAt, false, step.at))
        return false;
    if (!readFlag(aStep, sOnce, step.once))
        return false;
    step.command = aStep.value(sCommand).toString().trimmed();
    const QString error = mCheckCommand ? mCheckCommand(step.command) : QStringLiteral("there are none");
    if (!error.isEmpty())
        return fail(sCommand, QStringLiteral("a command of the services that are wanted (%1)").arg(error));
    mScenario.steps.push_back(step);
    return true;
}

static bool isNumberOf(SignalType aType, const QJsonValue& aJson)
{
    return aJson.isDouble() && SignalValue::fromJson(aJson, aType);
}

static DataBuffer numberOf(SignalType aType, double aValue)
{
    if (aType == SignalType::Int)
        return SignalService::MemcpyToDataBuffer(static_cast<int>(std::lround(aValue)));
    return SignalService::MemcpyToDataBuffer(aValue);
}

bool ScenarioReader::readRamp(const Scenario::Step& aStart, const QJsonObject& aRamp)
{
    const SignalType type = mScenario.signalTable[aStart.signal].signal.type;
    qint64 during = 0;
    qint64 every = DefaultEvery;
    if (type != SignalType::Int && type != SignalType::Double)
        return fail(QString(), QStringLiteral("a signal of type int or double"));
    if (!hasOnly(aRamp, {sFrom, sTo, sDuring, sEvery}) || !readTime(aRamp, sDuring, true, during) ||
        (aRamp.contains(sEvery) && !readTime(aRamp, sEvery, true, every)))
        return false;
    for (const QString& end : {sFrom, sTo}) {
        if (!isNumberOf(type, aRamp.value(end)))
            return fail(end, QStringLiteral("a number of type ") + nameOf(type));
    }
    const qint64 count = (during + every - 1) / every;
    if (count >= MaximumRamp)
        return fail(sEvery, QStringLiteral("a ramp of at most %1 values").arg(MaximumRamp));
    if (mScenario.steps.size() + static_cast<std::size_t>(count) >= MaximumSteps)
        return fail(sEvery, QStringLiteral("a scenario of at most %1 steps").arg(MaximumSteps));
    const double from = aRamp.value(sFrom).toDouble();
    const double to = aRamp.value(sTo).toDouble();
    if (!std::isfinite(to - from))
        return fail(sTo, QStringLiteral("a number whose distance to \"from\" is one"));
    if (!checkFits(mScenario.signalTable[aStart.signal], numberOf(type, from)))
        return false;
    for (qint64 index = 0; index <= count; ++index) {
        const qint64 offset = std::min(index * every, during);
        const double part = static_cast<double>(offset) / static_cast<double>(during);
        // Both ends are exact.
        const double value = offset == during ? to : from + (to - from) * part;
        mScenario.steps.push_back({aStart.at + offset, aStart.signal, numberOf(type, value)});
    }
    return true;
}

bool ScenarioReader::readLoop(const QJsonObject& aAll)
{
    if (!readTime(aAll, sLoop, true, mScenario.loop))
        return false;
    const qint64 end = mScenario.steps.empty() ? 0 : mScenario.steps.back().at;
    return mScenario.loop >= std::max(end, MinimumLoop) ||
           fail(sLoop,
                QStringLiteral("a time of at least 0.01 seconds that is not before the last step's end (%1)")
                    .arg(static_cast<double>(end) / MicrosecondsPerSecond));
}

} // namespace Hmi::Simulator
