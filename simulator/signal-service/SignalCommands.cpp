#include <simulator/signal-service/SignalCommands.h>

#include <algorithm>

#include <simulator/Console.h>
#include <simulator/signal-service/ResponseFrames.h>

namespace Hmi::Simulator {

static constexpr int MaximumDelay = 60000; ///< milliseconds

static void printError(const QString& aText) { Console::print(QStringLiteral("error ") + aText); }

const std::vector<SignalCommands::Command>& SignalCommands::getCommands()
{
    const QString path = QStringLiteral("PATH");
    static const std::vector<Command> commands = {
        {QStringLiteral("set"),
         {path, QStringLiteral("VALUE")},
         QStringLiteral("gives a signal a value; a new one gets its type from it, and clients may write it"),
         &SignalCommands::set},
        {QStringLiteral("get"), {path}, QStringLiteral("shows a value"), &SignalCommands::get},
        {QStringLiteral("list"), {}, QStringLiteral("shows all signals"), &SignalCommands::list},
        {QStringLiteral("drop"), {}, QStringLiteral("ends every client's connection"), &SignalCommands::drop},
        {QStringLiteral("stall"),
         {},
         QStringLiteral("sends half a message, and then nothing"),
         &SignalCommands::stall},
        {QStringLiteral("garbage"),
         {},
         QStringLiteral("sends bytes that are no message"),
         &SignalCommands::garbage},
        {QStringLiteral("late"),
         {QStringLiteral("MILLISECONDS")},
         QStringLiteral("delays all answers from now on; 0 ends it"),
         &SignalCommands::late},
        {QStringLiteral("help"), {}, QStringLiteral("shows the commands"), &SignalCommands::help},
        {QStringLiteral("quit"), {}, QStringLiteral("ends the simulator"), &SignalCommands::quit}};
    return commands;
}

SignalCommands::SignalCommands(SignalTable& aTable, SignalServer& aServer, QObject* aParent) :
    QObject(aParent), mTable(aTable), mServer(aServer)
{}

/** As many words as are wanted, of which the last is the rest of the line. */
static QStringList split(const QString& aLine, int aWords)
{
    QStringList words;
    QString rest = aLine.trimmed();
    while (words.size() + 1 < aWords && !rest.isEmpty()) {
        const auto space = std::find_if(rest.begin(), rest.end(), [](QChar aOne) { return aOne.isSpace(); });
        const int length = static_cast<int>(space - rest.begin());
        words.append(rest.left(length));
        rest = rest.mid(length).trimmed();
    }
    return rest.isEmpty() ? words : words << rest;
}

void SignalCommands::execute(const QString& aLine)
{
    const QString name = split(aLine, 2).value(0);
    const std::vector<Command>& commands = getCommands();
    const auto command = std::find_if(commands.begin(), commands.end(),
                                      [&](const Command& aOne) { return aOne.name == name; });
    if (command == commands.end())
        return printError(QStringLiteral("'%1' is no command; 'help' shows them").arg(name));
    const int count = command->arguments.size();
    const QStringList arguments = split(aLine.mid(name.size()), qMax(1, count));
    if (arguments.size() != count)
        return printError(QStringLiteral("'%1' is used as: %1 %2")
                              .arg(name, command->arguments.join(QLatin1Char(' ')))
                              .trimmed());
    (this->*command->run)(arguments);
}

void SignalCommands::set(const QStringList& aArguments)
{
    const std::string path = aArguments[0].toStdString();
    const Signal* const signal = mTable.find(path);
    const auto value =
        signal ? SignalValue::fromWord(aArguments[1], signal->type) : SignalValue::fromWord(aArguments[1]);
    if (!value && signal)
        return printError(QStringLiteral("'%1' has type %2, of which %3 is no value")
                              .arg(aArguments[0], nameOf(signal->type), aArguments[1]));
    if (!value)
        return printError(QStringLiteral("%1 is no value: quotes have to close, and a whole number above "
                                         "2147483647 needs a fraction")
                              .arg(aArguments[1]));
    if (ResponseFrames::value(path, value->bytes).isEmpty())
        return printError(QStringLiteral("path and value do not fit a message of 255 bytes"));
    mTable.declare(path, {value->type, !signal, false, std::nullopt});
    mTable.take(path, value->bytes);
    get(aArguments);
}

void SignalCommands::get(const QStringList& aArguments)
{
    const Signal* const signal = mTable.find(aArguments[0].toStdString());
    if (!signal)
        return printError(QStringLiteral("there is no signal '%1'").arg(aArguments[0]));
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
        return printError(QStringLiteral("'late' takes 0 to %1 milliseconds, not '%2'")
                              .arg(MaximumDelay)
                              .arg(aArguments[0]));
    mServer.setDelay(milliseconds);
    Console::print(QStringLiteral("late %1").arg(milliseconds));
}

void SignalCommands::quit(const QStringList&) { emit quitRequested(); }

void SignalCommands::help(const QStringList&)
{
    for (const Command& command : getCommands()) {
        const QStringList words = QStringList(command.name) + command.arguments;
        Console::print(
            QStringLiteral("help %1  %2").arg(words.join(QLatin1Char(' ')), -18).arg(command.purpose));
    }
}

} // namespace Hmi::Simulator
