#include <simulator/signal-service/Scenario.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <simulator/Console.h>

namespace Hmi::Simulator {

static constexpr double MicrosecondsPerSecond = 1e6;

static double seconds(qint64 aMicroseconds)
{
    return static_cast<double>(aMicroseconds) / MicrosecondsPerSecond;
}

static QJsonValue jsonOf(SignalType aType, const std::optional<DataBuffer>& aValue)
{
    return aValue ? SignalValue{aType, *aValue}.toJson() : QJsonValue(QJsonValue::Null);
}

static QJsonObject toJson(const Scenario& aScenario)
{
    QJsonArray signalTable;
    for (const Scenario::NamedSignal& named : aScenario.signalTable)
        signalTable.append(
            QJsonObject{{QStringLiteral("path"), QString::fromStdString(named.path)},
                        {QStringLiteral("type"), nameOf(named.signal.type)},
                        {QStringLiteral("writable"), named.signal.writable},
                        {QStringLiteral("value"), jsonOf(named.signal.type, named.signal.value)}});
    QJsonArray steps;
    for (const Scenario::Step& step : aScenario.steps) {
        const Scenario::NamedSignal& named = aScenario.signalTable[step.signal];
        steps.append(QJsonObject{{QStringLiteral("at"), seconds(step.at)},
                                 {QStringLiteral("path"), QString::fromStdString(named.path)},
                                 {QStringLiteral("value"), jsonOf(named.signal.type, step.value)}});
    }
    QJsonObject all{{QStringLiteral("signals"), signalTable}, {QStringLiteral("steps"), steps}};
    if (aScenario.loop > 0)
        all.insert(QStringLiteral("loop"), seconds(aScenario.loop));
    return all;
}

bool Scenario::save(const QString& aFile) const
{
    QSaveFile file(aFile);
    const QByteArray content = QJsonDocument(toJson(*this)).toJson();
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return true;
    Console::printError(QStringLiteral("The recording '%1' cannot be written (%2); nothing is kept of it.")
                            .arg(aFile, file.errorString()));
    return false;
}

} // namespace Hmi::Simulator
