#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace Hmi::Simulator {

/** The command line. Empty texts: not wanted. */
struct Options
{
    /**
     * Nothing, after one message on standard error, where an option is unknown or its value is none. Help and
     * version are printed and end the process.
     */
    static std::optional<Options> parse(const QStringList& aArguments);

    QString signalService; ///< path of the socket
    uint permissions = 0;  ///< of the socket, as chmod has them
    QString scenario;      ///< file to play
    double speed = 1;      ///< of its seconds, beside those of the clock
    QStringList services;  ///< on D-Bus, by the words of ServiceSimulation::getWords()
    QString bus;           ///< address; empty: the system bus
    QString reports;       ///< folder for bug reports
    QString record;        ///< file to write at the end
    QString upstream;      ///< socket of the service that is passed on
    bool commands = true;  ///< from standard input
};

} // namespace Hmi::Simulator
