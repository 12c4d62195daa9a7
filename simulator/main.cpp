#include <QCoreApplication>
#include <optional>
#include <unistd.h>

#include <simulator/CommandReader.h>
#include <simulator/CommandTable.h>
#include <simulator/Options.h>
#include <simulator/TerminationSignals.h>
#include <simulator/services/ServiceSimulation.h>
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

    CommandTable table;
    table.add({{QStringLiteral("quit"), {}, QStringLiteral("ends the simulator"), [](const QStringList&) {
                    QCoreApplication::quit();
                }}});
    ServiceSimulation services(table);
    SignalSimulation signalService(table);
    if (!services.start(*options) || !signalService.start(*options))
        return 1;
    std::optional<CommandReader> commands;
    if (options->commands) {
        commands.emplace(STDIN_FILENO);
        QObject::connect(&*commands, &CommandReader::lineRead,
                         [&](const QString& aLine) { table.execute(aLine); });
        QObject::connect(&*commands, &CommandReader::ended, &application, &QCoreApplication::quit);
    }
    const int status = QCoreApplication::exec();
    return signalService.finish() ? status : 1;
}
