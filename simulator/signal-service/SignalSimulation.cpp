#include <simulator/signal-service/SignalSimulation.h>

#include <simulator/Console.h>
#include <simulator/Options.h>
#include <simulator/signal-service/ScenarioPlayer.h>
#include <simulator/signal-service/ScenarioReader.h>
#include <simulator/signal-service/SignalCommands.h>
#include <simulator/signal-service/SignalServer.h>
#include <simulator/signal-service/TrafficRecorder.h>
#include <simulator/signal-service/Upstream.h>

namespace Hmi::Simulator {

SignalSimulation::SignalSimulation() = default;

SignalSimulation::~SignalSimulation() = default;

bool SignalSimulation::start(const Options& aOptions)
{
    if (!loadScenario(aOptions.scenario) || !record(aOptions.record) || !listen(aOptions))
        return false;
    mCommands = std::make_unique<SignalCommands>(mTable, *mServer);
    connect(mCommands.get(), &SignalCommands::quitRequested, this, &SignalSimulation::quitRequested);
    Console::print(QStringLiteral("listening ") + aOptions.signalService);
    if (mPlayer)
        mPlayer->start();
    return true;
}

bool SignalSimulation::loadScenario(const QString& aFile)
{
    if (aFile.isEmpty())
        return true;
    ScenarioReader reader;
    const std::optional<Scenario> scenario = reader.read(aFile);
    if (!scenario) {
        Console::printError(reader.getError());
        return false;
    }
    mPlayer = std::make_unique<ScenarioPlayer>(mTable, *scenario);
    connect(mPlayer.get(), &ScenarioPlayer::ended, this,
            [] { Console::print(QStringLiteral("scenario ended")); });
    return true;
}

bool SignalSimulation::record(const QString& aFile)
{
    if (aFile.isEmpty())
        return true;
    mRecorder = std::make_unique<TrafficRecorder>(mTable, aFile);
    return mRecorder->canSave();
}

bool SignalSimulation::listen(const Options& aOptions)
{
    if (!aOptions.upstream.isEmpty())
        mUpstream = std::make_unique<Upstream>(mTable, aOptions.upstream);
    mServer = std::make_unique<SignalServer>(mTable, mUpstream.get());
    return mServer->listen(aOptions.signalService, aOptions.permissions);
}

bool SignalSimulation::finish() { return !mRecorder || mRecorder->save(); }

void SignalSimulation::execute(const QString& aLine) { mCommands->execute(aLine); }

} // namespace Hmi::Simulator
