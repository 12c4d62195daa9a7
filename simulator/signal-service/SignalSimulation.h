#pragma once

#include <QObject>
#include <memory>

#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

class CommandTable;
class ScenarioPlayer;
class SignalCommands;
class SignalServer;
class TrafficRecorder;
class Upstream;
struct Options;

/** The vehicle signal service as the command line wants it, and the scenario, which may steer all services.
 */
class SignalSimulation : public QObject
{
    Q_OBJECT

public:
    /** The commands, to which it adds its own, outlive it. */
    explicit SignalSimulation(CommandTable& aCommands);
    ~SignalSimulation() override;

    /** False, with one message on standard error, when the service cannot be as it is wanted. To be called
     * when all other commands are in the table. */
    bool start(const Options& aOptions);
    /** Writes what was recorded; false, with one message, if it cannot be. */
    bool finish();

private:
    void makeServer(const Options& aOptions);
    bool loadScenario(const Options& aOptions);
    bool record(const QString& aFile);
    bool listen(const Options& aOptions);

    CommandTable& mCommandTable;
    SignalTable mTable;
    std::unique_ptr<Upstream> mUpstream;
    std::unique_ptr<ScenarioPlayer> mPlayer;
    std::unique_ptr<TrafficRecorder> mRecorder;
    std::unique_ptr<SignalServer> mServer;
    std::unique_ptr<SignalCommands> mCommands;
};

} // namespace Hmi::Simulator
