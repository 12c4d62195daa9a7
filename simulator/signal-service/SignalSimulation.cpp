#include <simulator/signal-service/SignalSimulation.h>

#include <simulator/CommandTable.h>
#include <simulator/Console.h>
#include <simulator/Options.h>
#include <simulator/signal-service/ScenarioPlayer.h>
#include <simulator/signal-service/ScenarioReader.h>
#include <simulator/signal-service/SignalCommands.h>
#include <simulator/signal-service/SignalServer.h>
#include <simulator/signal-service/TrafficRecorder.h>
#include <simulator/signal-service/Upstream.h>

namespace Hmi::Simulator {

SignalSimulation::SignalSimulation(CommandTable& aCommands) : mCommandTable(aCommands) {}

SignalSimulation::~SignalSimulation() = default;

bool SignalSimulation::start(const Options& aOptions)
{
    if (!aOptions.signalService.isEmpty())
        makeServer(aOptions);
    if (!loadScenario(aOptions) || !record(aOptions.record) || !listen(aOptions))
        return false;
    if (mPlayer)
        mPlayer->start();
    return true;
}

bool SignalSimulation::loadScenario(const Options& aOptions)
{
    if (aOptions.scenario.isEmpty())
        return true;
    ScenarioReader reader([this](const QString& aCommand) { return mCommandTable.check(aCommand); });
    const std::optional<Scenario> scenario = reader.read(aOptions.scenario);
    if (!scenario) {
        Console::printError(reader.getError());
        return false;
    }
    mPlayer = std::make_unique<ScenarioPlayer>(mTable, *scenario, aOptions.speed);
    connect(mPlayer.get(), &ScenarioPlayer::ended, this,
            [] { Console::print(QStringLiteral("scenario ended")); });
    connect(mPlayer.get(), &ScenarioPlayer::commandDue, this,
            [this](const QString& aCommand) { mCommandTable.execute(aCommand); });
    return true;
}

bool SignalSimulation::record(const QString& aFile)
{
    if (aFile.isEmpty())
        return true;
    mRecorder = std::make_unique<TrafficRecorder>(mTable, aFile);
    return mRecorder->canSave();
}

void SignalSimulation::makeServer(const Options& aOptions)
{
    if (!aOptions.upstream.isEmpty())
        mUpstream = std::make_unique<Upstream>(mTable, aOptions.upstream);
    mServer = std::make_unique<SignalServer>(mTable, mUpstream.get());
    mCommands = std::make_unique<SignalCommands>(mTable, *mServer, mCommandTable);
}

bool SignalSimulation::listen(const Options& aOptions)
{
    if (!mServer)
        return true;
    if (!mServer->listen(aOptions.signalService, aOptions.permissions))
        return false;
    Console::print(QStringLiteral("listening ") + aOptions.signalService);
    return true;
}

bool SignalSimulation::finish() { return !mRecorder || mRecorder->save(); }

} // namespace Hmi::Simulator
