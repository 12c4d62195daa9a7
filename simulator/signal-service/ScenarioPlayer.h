#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <simulator/signal-service/Scenario.h>

namespace Hmi::Simulator {

/**
 * Plays a scenario into the table. Each step has its time on a monotonic clock from the beginning, so what is
 * late delays nothing after it; what was missed is made up for.
 */
class ScenarioPlayer : public QObject
{
    Q_OBJECT

public:
    /** The table outlives it, and has the scenario's signals from now on. The scenario's seconds pass so many
     * times as fast as those of the clock. */
    ScenarioPlayer(SignalTable& aTable, const Scenario& aScenario, double aSpeed = 1,
                   QObject* aParent = nullptr);

    void start();

signals:
    void commandDue(const QString& aCommand);
    /** After the last step of a scenario that does not loop. */
    void ended();

private:
    /** Since the start, in microseconds of the scenario. */
    qint64 getNow() const;
    /** Of the next step. */
    qint64 getDue() const;
    void playDue();
    void play(const Scenario::Step& aStep);

    SignalTable& mTable;
    const Scenario mScenario;
    const double mSpeed;
    QElapsedTimer mClock;
    QTimer mTimer;
    std::size_t mNext = 0;
    qint64 mPassStart = 0; ///< microseconds of the scenario, over all passes
};

} // namespace Hmi::Simulator
