#include <simulator/Options.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <hmi/shared/signal-service/TransportProxy.h>
#include <simulator/Console.h>
#include <simulator/services/ServiceSimulation.h>

namespace Hmi::Simulator {

static const QString sSignalService = QStringLiteral("signal-service");
static const QString sNoSignalService = QStringLiteral("no-signal-service");
static const QString sServices = QStringLiteral("services");
static const QString sBus = QStringLiteral("bus");
static const QString sReports = QStringLiteral("reports");
static const QString sPermissions = QStringLiteral("permissions");
static const QString sScenario = QStringLiteral("scenario");
static const QString sSpeed = QStringLiteral("speed");
static const QString sRecord = QStringLiteral("record");
static const QString sUpstream = QStringLiteral("upstream");
static const QString sNoCommands = QStringLiteral("no-commands");

static constexpr double MinimumSpeed = 0.01;
static constexpr double MaximumSpeed = 1000;

static void describe(QCommandLineParser& aParser)
{
    const QString file = QStringLiteral("FILE");
    const QString path = QStringLiteral("PATH");
    aParser.setApplicationDescription(QStringLiteral(
        "Stands in for the platform's services, so that a whole head unit runs on a desk.\nIt takes commands "
        "on "
        "standard input; 'help' lists them. It ends with 'quit', with the end of the input, or on SIGTERM."));
    aParser.addHelpOption();
    aParser.addVersionOption();
    aParser.addOptions(
        {{sSignalService,
          QStringLiteral("Socket of the vehicle signal service (default: /var/run/signal_service)."), path,
          ::SignalService::TransportProxy::DefaultSocketPath()},
         {sNoSignalService, QStringLiteral("No vehicle signal service, only those on D-Bus.")},
         {sServices,
          QStringLiteral("Services on D-Bus, with commas between: %1, all or none (default: none).")
              .arg(ServiceSimulation::getWords().join(QStringLiteral(", "))),
          QStringLiteral("LIST")},
         {sBus, QStringLiteral("Bus of these services (default: the system bus)."),
          QStringLiteral("ADDRESS")},
         {sReports, QStringLiteral("Folder in which bug reports are created."), QStringLiteral("FOLDER")},
         {sPermissions, QStringLiteral("Permissions of the socket (default: 0660)."), QStringLiteral("OCTAL"),
          QStringLiteral("0660")},
         {sScenario, QStringLiteral("Plays the signals and commands of a scenario."), file},
         {sSpeed, QStringLiteral("Plays it so many times as fast (default: 1)."), QStringLiteral("FACTOR"),
          QStringLiteral("1")},
         {sRecord, QStringLiteral("Records every value, and writes a scenario at the end."), file},
         {sUpstream, QStringLiteral("Passes on the signals of the service at another socket."), path},
         {sNoCommands, QStringLiteral("Leaves standard input alone, as in the background.")}});
}

static std::optional<Options> fail(const QString& aMessage)
{
    Console::printError(aMessage + QStringLiteral(" See --help."));
    return std::nullopt;
}

static bool isSameFile(const QString& aOne, const QString& aOther)
{
    const auto clean = [](const QString& aPath) {
        return QDir::cleanPath(QFileInfo(aPath).absoluteFilePath());
    };
    return clean(aOne) == clean(aOther);
}

/** Nothing, after one message, where a word names no service. */
static std::optional<QStringList> readServices(const QString& aList)
{
    const QStringList words = ServiceSimulation::getWords();
    QStringList services;
    const QStringList chosen = aList.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& word : chosen) {
        if (word == QLatin1String("all"))
            services += words;
        else if (words.contains(word))
            services += word;
        else if (word != QLatin1String("none")) {
            fail(QStringLiteral("'%1' is no service; --services takes %2, all or none.")
                     .arg(word, words.join(QStringLiteral(", "))));
            return std::nullopt;
        }
    }
    services.removeDuplicates();
    return services;
}

/** False, after one message, where it is none. */
static bool readSpeed(const QString& aFactor, double& aSpeed)
{
    aSpeed = aFactor.toDouble();
    if (aSpeed >= MinimumSpeed && aSpeed <= MaximumSpeed)
        return true;
    fail(QStringLiteral("--speed takes a number from %1 to %2, not '%3'.")
             .arg(MinimumSpeed)
             .arg(MaximumSpeed)
             .arg(aFactor));
    return false;
}

/** The signal service and what needs it. */
static std::optional<Options> checked(const Options& aOptions)
{
    if (aOptions.signalService.isEmpty() && aOptions.services.isEmpty())
        return fail(QStringLiteral("Without the signal service, --services is to name one at least."));
    if (aOptions.upstream.isEmpty())
        return aOptions;
    if (aOptions.signalService.isEmpty())
        return fail(QStringLiteral("--upstream needs the signal service."));
    if (isSameFile(aOptions.upstream, aOptions.signalService))
        return fail(QStringLiteral("--upstream is to be another socket than '%1', at which this service "
                                   "listens itself.")
                        .arg(aOptions.signalService));
    return aOptions;
}

static std::optional<Options> read(const QCommandLineParser& aParser)
{
    Options options;
    bool isOctal = false;
    options.permissions = aParser.value(sPermissions).toUInt(&isOctal, 8);
    if (!isOctal || options.permissions > 0777)
        return fail(QStringLiteral("--permissions takes octal digits up to 0777, not '%1'.")
                        .arg(aParser.value(sPermissions)));
    options.signalService = aParser.value(sSignalService);
    options.scenario = aParser.value(sScenario);
    if (!readSpeed(aParser.value(sSpeed), options.speed))
        return std::nullopt;
    options.record = aParser.value(sRecord);
    options.upstream = aParser.value(sUpstream);
    options.commands = !aParser.isSet(sNoCommands);
    options.bus = aParser.value(sBus);
    options.reports = aParser.value(sReports);
    if (aParser.isSet(sNoSignalService))
        options.signalService.clear();
    const std::optional<QStringList> services = readServices(aParser.value(sServices));
    if (!services)
        return std::nullopt;
    options.services = *services;
    return checked(options);
}

std::optional<Options> Options::parse(const QStringList& aArguments)
{
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(aArguments))
        return fail(parser.errorText() + QLatin1Char('.'));
    if (!parser.positionalArguments().isEmpty())
        return fail(QStringLiteral("'%1' is no option.").arg(parser.positionalArguments().constFirst()));
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    return read(parser);
}

} // namespace Hmi::Simulator
