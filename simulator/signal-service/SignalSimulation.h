#pragma once

#include <QObject>
#include <memory>

#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

class ScenarioPlayer;
class SignalCommands;
class SignalServer;
class TrafficRecorder;
class Upstream;
struct Options;

/** The vehicle signal service as the command line wants it. */
class SignalSimulation : public QObject
{
    Q_OBJECT

public:
    SignalSimulation();
    ~SignalSimulation() override;

    /** False, with one message on standard error, when the service cannot be as it is wanted. */
    bool start(const Options& aOptions);
    /** Writes what was recorded; false, with one message, if it cannot be. */
    bool finish();

    void execute(const QString& aLine);

signals:
    void quitRequested();

private:
    bool loadScenario(const QString& aFile);
    bool record(const QString& aFile);
    bool listen(const Options& aOptions);

    SignalTable mTable;
    std::unique_ptr<Upstream> mUpstream;
    std::unique_ptr<ScenarioPlayer> mPlayer;
    std::unique_ptr<TrafficRecorder> mRecorder;
    std::unique_ptr<SignalServer> mServer;
    std::unique_ptr<SignalCommands> mCommands;
};

} // namespace Hmi::Simulator
