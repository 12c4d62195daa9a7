#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

namespace Hmi::Simulator {

/** One thing that the simulator does when it is told. */
struct Command
{
    QString name;          ///< one word, or two
    QStringList arguments; ///< the last takes the rest of the line; from one with '[' on, they may be missing
    QString purpose;
    /** Answers with lines on standard output; what cannot be done, with CommandTable::refuse(). */
    std::function<void(const QStringList& aArguments)> run;
};

/** All that the services of this run can be told, whoever tells it: standard input or a scenario. */
class CommandTable
{
public:
    /** Has "help" from the beginning. */
    CommandTable();

    void add(const std::vector<Command>& aCommands);
    /** What is wrong with the line's command or the number of its arguments; empty: nothing. */
    QString check(const QString& aLine) const;
    /** What cannot be done is answered with one line "error ...", and changes nothing. */
    void execute(const QString& aLine) const;

    static void refuse(const QString& aText);

private:
    const Command* find(const QString& aLine, QStringList& aArguments, QString& aError) const;
    void help() const;

    std::vector<Command> mCommands;
};

} // namespace Hmi::Simulator
