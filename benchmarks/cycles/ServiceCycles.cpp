// Kills, stops and restarts the services of a head unit while its clients are in the middle of something:
// hmi_service_cycles COUNT. Every state meets every fault, in an order that is the same each time. The
// clients are on the GUI thread of this process; the services are processes of their own, harmed from another
// thread.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "Clients.h"
#include "Findings.h"
#include "GuiThread.h"
#include "GuiWatch.h"
#include "ServiceCases.h"
#include "Starvation.h"
#include <benchmarks/Require.h>
#include <benchmarks/Times.h>
#include <hmi/core/foundation/InstanceTracker.h>
#include <platform/data-manager/ChangeBus.h>
#include <platform/data-manager/DataManager.h>

static const QString sWatched = QStringLiteral("watched");
static constexpr std::size_t WaitedFor = 1; ///< the case whose service has calls that wait
static constexpr int MostHarms = 20;
static constexpr int Patience = 5000;      ///< milliseconds until it is given up that all is subscribed
static constexpr int CallBeforeKill = 100; ///< milliseconds
static constexpr int SamplePeriod = 20;    ///< cycles
/** Numbers that are announced begin here: no percentage is among them. */
static constexpr int FirstNumber = 1000;

namespace {

enum class Fault { Kill, End, HangAndKill, HangAndGoOn };

struct Cycle
{
    ServiceCase* subject;
    std::size_t state;
    Fault fault;
};

std::string describe(int aNumber, const Cycle& aCycle)
{
    static const char* const sFaults[] = {"killed", "ended", "hung and killed", "hung and gone on"};
    return "cycle " + std::to_string(aNumber) + ", " + aCycle.subject->name + ", " +
           aCycle.subject->states[aCycle.state] + ", " + sFaults[static_cast<int>(aCycle.fault)];
}

class ServiceCycles
{
public:
    ServiceCycles(const PrivateBus& aBus, const QString& aFolder, Clients& aClients, GuiWatch& aWatch) :
        mBus(aBus), mClients(aClients), mWatch(aWatch), mCases(makeServiceCases(aClients, aFolder))
    {}

    /** Whether nothing was harmed. */
    bool run(int aCount);

private:
    std::vector<Cycle> makeRound();
    void carryOut(const Cycle& aCycle);
    void harm(const Cycle& aCycle);
    void useHanging(const Cycle& aCycle);
    void callUntilKilled(const PlatformService& aService);
    void use();
    /** Milliseconds that a call of the notification service, a process or 0, took. */
    double call(qint64 aService);
    /** Its process. */
    qint64 getWaitedFor() const { return mCases[WaitedFor]->service.getProcess(); }
    void judgeHeld();
    void judgeProcess();
    void judgeSubscriptions();
    void announceSetting();
    void pause(int aMost)
    {
        QThread::msleep(
            std::uniform_int_distribution<unsigned long>(0, static_cast<unsigned long>(aMost))(mRandom));
    }

    const PrivateBus& mBus;
    Clients& mClients;
    GuiWatch& mWatch;
    const std::vector<std::unique_ptr<ServiceCase>> mCases;
    const QDBusConnection mStranger = QDBusConnection::connectToBus(
        qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS"), QStringLiteral("stranger"));
    std::mt19937 mRandom;
    Findings mFindings;
    Findings::Duration* mHeld = &mFindings.asynchronous;
    int mNumber = FirstNumber;
    int mSettingsBefore = 0;
};

bool ServiceCycles::run(int aCount)
{
    for (const auto& subject : mCases)
        subject->service.start();
    mFindings.begin("the beginning");
    judgeSubscriptions();
    judgeHeld();
    std::vector<Cycle> round;
    for (int number = 1; number <= aCount && mFindings.getHarms() < MostHarms; ++number) {
        if (round.empty())
            round = makeRound();
        mFindings.begin(describe(number, round.back()));
        carryOut(round.back());
        round.pop_back();
        if (number >= aCount / 10 && number % SamplePeriod == 0)
            judgeProcess();
        if (number % 100 == 0)
            std::fprintf(stderr, "%d cycles\n", number);
    }
    mFindings.print();
    return mFindings.getHarms() == 0;
}

/** Every state of every service with every fault. */
std::vector<Cycle> ServiceCycles::makeRound()
{
    std::vector<Cycle> round;
    for (const auto& subject : mCases)
        for (std::size_t state = 0; state < subject->states.size(); ++state)
            for (const Fault fault : {Fault::Kill, Fault::End, Fault::HangAndKill, Fault::HangAndGoOn})
                round.push_back({subject.get(), state, fault});
    std::shuffle(round.begin(), round.end(), mRandom);
    return round;
}

void ServiceCycles::carryOut(const Cycle& aCycle)
{
    ServiceCase& subject = *aCycle.subject;
    const bool isHalf = subject.states[aCycle.state] == "half a message";
    mHeld = isHalf ? &mFindings.restOfMessage : &mFindings.asynchronous;
    mFindings.expect(subject.bring(static_cast<int>(aCycle.state)), "the state is not reached");
    pause(20);
    harm(aCycle);
    use();
    mFindings.judge(mFindings.answered, call(getWaitedFor()));
    pause(100);
    subject.service.start();
    judgeSubscriptions();
    judgeHeld();
}

void ServiceCycles::harm(const Cycle& aCycle)
{
    PlatformService& service = aCycle.subject->service;
    const bool goesOn = aCycle.fault == Fault::HangAndGoOn;
    if (goesOn || aCycle.fault == Fault::HangAndKill) {
        service.signal(SIGSTOP);
        pause(200);
        useHanging(aCycle);
        pause(200);
    }
    if (goesOn) {
        service.signal(SIGCONT);
        judgeSubscriptions();
    }
    service.end(goesOn || aCycle.fault == Fault::End ? SIGTERM : SIGKILL);
}

void ServiceCycles::useHanging(const Cycle& aCycle)
{
    use();
    if (aCycle.subject != mCases[WaitedFor].get())
        return mFindings.judge(mFindings.answered, call(getWaitedFor()));
    if (aCycle.fault == Fault::HangAndKill)
        return callUntilKilled(aCycle.subject->service);
    const double waited = call(getWaitedFor());
    mFindings.judge(mFindings.unanswered, waited);
    mFindings.expect(waited > mFindings.unanswered.bound / 2,
                     "a call does not wait for a service that hangs");
}

void ServiceCycles::callUntilKilled(const PlatformService& aService)
{
    std::atomic<bool> isOver{false};
    double waited = 0;
    const auto wait = [&] {
        // What a process waited for is forgotten when it ends.
        waited = call(0);
        isOver = true;
    };
    QMetaObject::invokeMethod(qApp, wait, Qt::QueuedConnection);
    QThread::msleep(CallBeforeKill);
    mFindings.expect(!isOver, "a call does not wait for a service that hangs");
    aService.signal(SIGKILL);
    onGui([] {});
    mFindings.judge(mFindings.cutOff, waited);
}

void ServiceCycles::use()
{
    onGui([this] { mClients.use(mNumber); });
    judgeHeld();
}

/** Without the time in which the machine gave no processor to one of those that have a part in it. */
double ServiceCycles::call(qint64 aService)
{
    const std::vector<qint64> parts{QCoreApplication::applicationPid(), mBus.getProcess(), aService};
    // On the GUI thread, whichever asks for it.
    const auto waited = [&] {
        const double starved = starvedTime(parts);
        const double begin = monotonicTime();
        mClients.wrapper.GetIsNotificationEnabledFromType(QStringLiteral("fuel"));
        const double elapsed = (monotonicTime() - begin) / 1e6;
        mWatch.takeLongest();
        return elapsed - (starvedTime(parts) - starved);
    };
    return QThread::currentThread() == qApp->thread() ? waited() : onGui(waited);
}

void ServiceCycles::judgeHeld()
{
    mFindings.judge(*mHeld, onGui([this] { return mWatch.takeLongest(); }));
}

/** While the watch, which opens files, is not at work. */
void ServiceCycles::judgeProcess()
{
    onGui([this] {
        mFindings.judgeProcess();
        mWatch.takeLongest();
    });
}

void ServiceCycles::judgeSubscriptions()
{
    QElapsedTimer timer;
    timer.start();
    ++mNumber;
    for (const auto& subject : mCases)
        subject->announce(mNumber);
    announceSetting();
    const auto judge = [&](const std::string& aWhat, const std::function<bool()>& aIsHeard) {
        const bool isHeard = waitOnGui(Patience, aIsHeard);
        mFindings.judge(mFindings.subscribed, static_cast<double>(timer.nsecsElapsed()) / 1e6, aWhat);
        mFindings.expect(isHeard, aWhat + " is not heard");
    };
    for (const auto& subject : mCases)
        judge(subject->name, [&] { return subject->isHeard(mNumber); });
    judge("another process's setting", [&] { return mClients.settingsTold > mSettingsBefore; });
}

/** As another process does that wrote it. */
void ServiceCycles::announceSetting()
{
    namespace Bus = DataManager::ChangeBus;
    mSettingsBefore = onGui([this] { return mClients.settingsTold; });
    QDBusMessage change = QDBusMessage::createSignal(Bus::Path, Bus::Interface, Bus::SettingChanged);
    change.setArguments({static_cast<int>(Bus::GlobalSetting), sWatched});
    require(mStranger.send(change), "announcing a setting");
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const int count = argc == 2 ? std::atoi(argv[1]) : 0;
    require(count > 0, "running without a number of cycles");
    const PrivateBus bus;
    const QTemporaryDir folder;
    const QString configuration = folder.filePath(QStringLiteral("DataManagerConf.ini"));
    require(QFile(configuration).open(QFile::WriteOnly) &&
                DataManager::StartUp(configuration) == DataManager::Ok,
            "starting the store");
    DataManager::Settings::requestSettingChangedSignal(sWatched, QStringLiteral("service cycles"));
    bool isUnharmed = false;
    {
        Clients clients(folder.filePath(QStringLiteral("signals")));
        GuiWatch watch;
        std::thread platform([&] {
            isUnharmed = ServiceCycles(bus, folder.path(), clients, watch).run(count);
            QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
        });
        QCoreApplication::exec();
        platform.join();
    }
    DataManager::ShutDown();
    Hmi::Core::InstanceTracker::deleteInstancesCpp();
    return isUnharmed ? 0 : 1;
}
