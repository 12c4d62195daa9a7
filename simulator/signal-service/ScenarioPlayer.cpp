#include <simulator/signal-service/ScenarioPlayer.h>

#include <algorithm>
#include <cmath>

namespace Hmi::Simulator {

/** After so many steps at once the clients get their turn. */
static constexpr int StepsPerTurn = 256;

/** In milliseconds. A timer cannot be set for more than this, so it looks again. */
static constexpr double LongestSleep = 60000;

ScenarioPlayer::ScenarioPlayer(SignalTable& aTable, const Scenario& aScenario, double aSpeed,
                               QObject* aParent) :
    QObject(aParent), mTable(aTable), mScenario(aScenario), mSpeed(aSpeed)
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

qint64 ScenarioPlayer::getNow() const
{
    return std::llround(static_cast<double>(mClock.nsecsElapsed()) / 1000 * mSpeed);
}

qint64 ScenarioPlayer::getDue() const { return mPassStart + mScenario.steps[mNext].at; }

void ScenarioPlayer::play(const Scenario::Step& aStep)
{
    if (aStep.once && mPassStart > 0)
        return;
    if (aStep.command.isEmpty())
        mTable.take(mScenario.signalTable[aStep.signal].path, aStep.value);
    else
        emit commandDue(aStep.command);
}

void ScenarioPlayer::playDue()
{
    const qint64 now = getNow();
    for (int played = 0; played < StepsPerTurn && getDue() <= now; ++played) {
        play(mScenario.steps[mNext]);
        if (++mNext < mScenario.steps.size())
            continue;
        if (mScenario.loop == 0)
            return emit ended();
        mNext = 0;
        mPassStart += mScenario.loop;
    }
    const double milliseconds = std::ceil(static_cast<double>(getDue() - now) / 1000 / mSpeed);
    mTimer.start(static_cast<int>(std::clamp(milliseconds, 0.0, LongestSleep)));
}

} // namespace Hmi::Simulator
