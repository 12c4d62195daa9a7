#include <simulator/signal-service/SignalCommands.h>

#include <simulator/Console.h>
#include <simulator/signal-service/ResponseFrames.h>

namespace Hmi::Simulator {

static constexpr int MaximumDelay = 60000; ///< milliseconds

SignalCommands::SignalCommands(SignalTable& aTable, SignalServer& aServer, CommandTable& aCommands) :
    mTable(aTable), mServer(aServer)
{
    const auto add = [&](const char* aName, const QStringList& aArguments, const char* aPurpose,
                         void (SignalCommands::*aRun)(const QStringList&)) {
        aCommands.add({{QString::fromLatin1(aName), aArguments, QString::fromLatin1(aPurpose),
                        [this, aRun](const QStringList& aWords) { (this->*aRun)(aWords); }}});
    };
    const QString path = QStringLiteral("PATH");
    add("set", {path, QStringLiteral("VALUE")},
        "gives a signal a value; a new one gets its type from it, and clients may write it",
        &SignalCommands::set);
    add("get", {path}, "shows a value", &SignalCommands::get);
    add("list", {}, "shows all signals", &SignalCommands::list);
    add("drop", {}, "ends every client's connection", &SignalCommands::drop);
    add("stall", {}, "sends half a message, and then nothing", &SignalCommands::stall);
    add("garbage", {}, "sends bytes that are no message", &SignalCommands::garbage);
    add("late", {QStringLiteral("MILLISECONDS")}, "delays all answers from now on; 0 ends it",
        &SignalCommands::late);
}

void SignalCommands::set(const QStringList& aArguments)
{
    const std::string path = aArguments[0].toStdString();
    const Signal* const signal = mTable.find(path);
    const auto value =
        signal ? SignalValue::fromWord(aArguments[1], signal->type) : SignalValue::fromWord(aArguments[1]);
    if (!value && signal)
        return CommandTable::refuse(QStringLiteral("'%1' has type %2, of which %3 is no value")
                                        .arg(aArguments[0], nameOf(signal->type), aArguments[1]));
    if (!value)
        return CommandTable::refuse(
            QStringLiteral("%1 is no value: quotes have to close, and a whole number above "
                           "2147483647 needs a fraction")
                .arg(aArguments[1]));
    if (ResponseFrames::value(path, value->bytes).isEmpty())
        return CommandTable::refuse(QStringLiteral("path and value do not fit a message of 255 bytes"));
    mTable.declare(path, {value->type, !signal, false, std::nullopt});
    mTable.take(path, value->bytes);
    get(aArguments);
}

void SignalCommands::get(const QStringList& aArguments)
{
    const Signal* const signal = mTable.find(aArguments[0].toStdString());
    if (!signal)
        return CommandTable::refuse(QStringLiteral("there is no signal '%1'").arg(aArguments[0]));
    Console::print(QStringLiteral("value %1 %2").arg(aArguments[0], signal->toWord()));
}

void SignalCommands::list(const QStringList&)
{
    for (const auto& [path, signal] : mTable.getSignals())
        Console::print(QStringLiteral("signal %1 %2 %3 %4")
                           .arg(QString::fromStdString(path), nameOf(signal.type),
                                signal.writable ? QStringLiteral("writable") : QStringLiteral("read-only"),
                                signal.toWord()));
    Console::print(QStringLiteral("listed %1").arg(mTable.getSignals().size()));
}

void SignalCommands::drop(const QStringList&)
{
    Console::print(QStringLiteral("dropped %1").arg(mServer.drop()));
}

void SignalCommands::stall(const QStringList&)
{
    Console::print(QStringLiteral("stalled %1").arg(mServer.stall()));
}

void SignalCommands::garbage(const QStringList&)
{
    Console::print(QStringLiteral("garbage %1").arg(mServer.garbage()));
}

void SignalCommands::late(const QStringList& aArguments)
{
    bool ok = false;
    const int milliseconds = aArguments[0].toInt(&ok);
    if (!ok || milliseconds < 0 || milliseconds > MaximumDelay)
        return CommandTable::refuse(QStringLiteral("'late' takes 0 to %1 milliseconds, not '%2'")
                                        .arg(MaximumDelay)
                                        .arg(aArguments[0]));
    mServer.setDelay(milliseconds);
    Console::print(QStringLiteral("late %1").arg(milliseconds));
}

} // namespace Hmi::Simulator
