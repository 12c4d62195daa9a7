#include <simulator/signal-service/ScenarioPlayer.h>

#include <algorithm>

namespace Hmi::Simulator {

/** After so many steps at once the clients get their turn. */
static constexpr int StepsPerTurn = 256;

/** In milliseconds. A timer cannot be set for more than this, so it looks again. */
static constexpr qint64 LongestSleep = 60000;

ScenarioPlayer::ScenarioPlayer(SignalTable& aTable, const Scenario& aScenario, QObject* aParent) :
    QObject(aParent), mTable(aTable), mScenario(aScenario)
{
    mTimer.setSingleShot(true);
    mTimer.setTimerType(Qt::PreciseTimer);
    connect(&mTimer, &QTimer::timeout, this, &ScenarioPlayer::playDue);
    for (const Scenario::NamedSignal& named : mScenario.signalTable)
        mTable.declare(named.path, named.signal);
}

void ScenarioPlayer::start()
{
    mClock.start();
    if (!mScenario.steps.empty())
        mTimer.start(0);
}

qint64 ScenarioPlayer::getDue() const { return mPassStart + mScenario.steps[mNext].at; }

void ScenarioPlayer::playDue()
{
    const qint64 now = mClock.nsecsElapsed() / 1000;
    for (int played = 0; played < StepsPerTurn && getDue() <= now; ++played) {
        const Scenario::Step& step = mScenario.steps[mNext];
        if (step.command.isEmpty())
            mTable.take(mScenario.signalTable[step.signal].path, step.value);
        else
            emit commandDue(step.command);
        if (++mNext < mScenario.steps.size())
            continue;
        if (mScenario.loop == 0)
            return emit ended();
        mNext = 0;
        mPassStart += mScenario.loop;
    }
    const qint64 milliseconds = (getDue() - now + 999) / 1000;
    mTimer.start(static_cast<int>(std::clamp<qint64>(milliseconds, 0, LongestSleep)));
}

} // namespace Hmi::Simulator
