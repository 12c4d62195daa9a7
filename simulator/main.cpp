#include <QCoreApplication>
#include <optional>
#include <unistd.h>

#include <simulator/CommandReader.h>
#include <simulator/Options.h>
#include <simulator/TerminationSignals.h>
#include <simulator/signal-service/SignalSimulation.h>

using namespace Hmi::Simulator;

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("hmi-platform-simulator"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HMI_VERSION));
    const std::optional<Options> options = Options::parse(QCoreApplication::arguments());
    if (!options)
        return 1;
    const TerminationSignals termination;
    QObject::connect(&termination, &TerminationSignals::received, &application, &QCoreApplication::quit);

    SignalSimulation signalService;
    if (!signalService.start(*options))
        return 1;
    std::optional<CommandReader> commands;
    if (options->commands) {
        commands.emplace(STDIN_FILENO);
        QObject::connect(&*commands, &CommandReader::lineRead, &signalService, &SignalSimulation::execute);
        QObject::connect(&*commands, &CommandReader::ended, &application, &QCoreApplication::quit);
    }
    QObject::connect(&signalService, &SignalSimulation::quitRequested, &application, &QCoreApplication::quit);
    QCoreApplication::exec();
    return signalService.finish() ? 0 : 1;
}
