#include <hmi/shared/LifecycleListener.h>
#include <hmi/shared/application/modules/ModuleManager.h>

#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::ModuleManager;

namespace {

ModuleManager& manager() { return *ModuleManager::instance(); }

using Operation = std::function<bool(const QString& aOperation)>;

/** Hands on what is asked of it: its name with "+" initialize(), "-" deInitialize(), "~" the late stage. */
struct Module : Hmi::Shared::LifecycleListener
{
    Module(char aName, const Operation& aOperate) : mName(QLatin1Char(aName)), mOperate(aOperate)
    {
        manager().registerListener(this);
    }
    ~Module() override { manager().unregisterListener(this); }

    QString getName() const override { return mName; }
    bool initialize() override { return mOperate(mName + QLatin1Char('+')); }
    void deInitialize() override { mOperate(mName + QLatin1Char('-')); }
    void deInitializeLate() override { mOperate(mName + QLatin1Char('~')); }

    const QString mName;
    const Operation mOperate;
};

/** At one moment a module leaves or the operation fails; the states are those when start-up ends. */
struct Life
{
    QString moment;
    char leaving;
    bool succeeds;
    QList<int> states;
    const char* journal;
};

constexpr int Registered = ModuleManager::ModuleRegistered;
constexpr int AtWork = ModuleManager::ModuleInitialized;
constexpr int Failed = ModuleManager::ModuleFailed;

const Life sLives[] = {
    {QString(), 0, true, {AtWork, AtWork, AtWork}, "a+m+p+p-m-a-p~m~a~"},
    {QStringLiteral("m+"), 0, false, {AtWork, Failed, Registered}, "a+m+m+a-a~"},
    {QStringLiteral("m+"), 'm', true, {AtWork, AtWork}, "a+m+p+p-a-p~a~"},
    {QStringLiteral("m+"), 'p', true, {AtWork, AtWork}, "a+m+m-a-m~a~"},
    {QStringLiteral("m-"), 'm', true, {AtWork, AtWork, AtWork}, "a+m+p+p-m-a-p~a~"},
    {QStringLiteral("m~"), 'm', true, {AtWork, AtWork, AtWork}, "a+m+p+p-m-a-p~m~a~"},
};

/** As at the end of a process, where the late stage comes after the manager was deleted. */
void shutDown()
{
    manager().deInitializeModules();
    delete &manager();
    manager().deInitializeModulesLate();
}

} // namespace

TEST(ModuleManager, StartsInOrderAndStopsInReverseOrderWhatDidNotFailOrLeaveMeanwhile)
{
    for (const Life& life : sLives) {
        SCOPED_TRACE(life.journal);
        QString journal;
        std::map<char, Module> modules;
        const Operation operate = [&](const QString& aOperation) {
            journal += aOperation;
            const auto leaving = modules.find(life.leaving);
            if (aOperation == life.moment && leaving != modules.end())
                manager().unregisterListener(&leaving->second);
            return aOperation != life.moment || life.succeeds;
        };
        for (const char name : {'a', 'm', 'p'})
            modules.try_emplace(name, name, operate);
        HmiTest::expectWarning(
            QStringLiteral("The module name \"m\" is empty or taken; the module is not registered."));
        const Module refused('m', operate);
        QList<int> states;
        QObject::connect(&manager(), &ModuleManager::modulesChanged, [&states] {
            states.clear();
            for (const QVariant& module : manager().getModules())
                states.append(module.toMap()[QStringLiteral("state")].toInt());
        });
        for (int time = 0; time < 2; ++time) {
            if (!life.succeeds)
                HmiTest::expectCritical(QStringLiteral("The module \"m\" could not be initialised; "
                                                       "the modules behind it are not started."));
            EXPECT_EQ(manager().initializeModules(), life.succeeds);
        }
        EXPECT_EQ(states, life.states);
        shutDown();
        shutDown();
        EXPECT_EQ(journal, QLatin1String(life.journal));
    }
}
