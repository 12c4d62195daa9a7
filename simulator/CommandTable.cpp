#include <simulator/CommandTable.h>

#include <algorithm>

#include <simulator/Console.h>

namespace Hmi::Simulator {

static constexpr int MaximumName = 2; ///< words

CommandTable::CommandTable()
{
    add({{QStringLiteral("help"), {}, QStringLiteral("shows the commands"), [this](const QStringList&) {
              help();
          }}});
}

void CommandTable::add(const std::vector<Command>& aCommands)
{
    mCommands.insert(mCommands.end(), aCommands.begin(), aCommands.end());
}

void CommandTable::refuse(const QString& aText) { Console::print(QStringLiteral("error ") + aText); }

static QString takeWord(QString& aRest)
{
    const auto space = std::find_if(aRest.begin(), aRest.end(), [](QChar aOne) { return aOne.isSpace(); });
    const int length = static_cast<int>(space - aRest.begin());
    QString word = aRest.left(length);
    aRest = aRest.mid(length).trimmed();
    return word;
}

/** As many words as are wanted, of which the last is the rest of the line. */
static QStringList split(QString aRest, int aWords)
{
    QStringList words;
    while (words.size() + 1 < aWords && !aRest.isEmpty())
        words.append(takeWord(aRest));
    return aRest.isEmpty() ? words : words << aRest;
}

const Command* CommandTable::find(const QString& aLine, QStringList& aArguments, QString& aError) const
{
    QString rest = aLine.trimmed();
    QString name;
    auto command = mCommands.end();
    for (int words = 0; words < MaximumName && command == mCommands.end(); ++words) {
        name += (words > 0 ? QStringLiteral(" ") : QString()) + takeWord(rest);
        command = std::find_if(mCommands.begin(), mCommands.end(),
                               [&](const Command& aOne) { return aOne.name == name; });
    }
    if (command == mCommands.end()) {
        aError = QStringLiteral("'%1' is no command; 'help' shows them").arg(name.trimmed());
        return nullptr;
    }
    const QStringList& wanted = command->arguments;
    const auto optional = std::find_if(wanted.begin(), wanted.end(),
                                       [](const QString& aOne) { return aOne.startsWith(QLatin1Char('[')); });
    aArguments = split(rest, qMax(1, wanted.size()));
    if (aArguments.size() >= optional - wanted.begin() && aArguments.size() <= wanted.size())
        return &*command;
    aError = QStringLiteral("'%1' is used as: %1 %2").arg(name, wanted.join(QLatin1Char(' '))).trimmed();
    return nullptr;
}

QString CommandTable::check(const QString& aLine) const
{
    QStringList arguments;
    QString error;
    find(aLine, arguments, error);
    return error;
}

void CommandTable::execute(const QString& aLine) const
{
    QStringList arguments;
    QString error;
    if (const Command* const command = find(aLine, arguments, error))
        command->run(arguments);
    else
        refuse(error);
}

void CommandTable::help() const
{
    for (const Command& command : mCommands) {
        const QStringList words = QStringList(command.name) + command.arguments;
        Console::print(
            QStringLiteral("help %1  %2").arg(words.join(QLatin1Char(' ')), -40).arg(command.purpose));
    }
}

} // namespace Hmi::Simulator
