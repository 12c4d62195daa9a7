#include <hmi/shared/LifecycleListener.h>
#include <hmi/shared/application/modules/ModuleManager.h>

#include <functional>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::LifecycleListener;
using Hmi::Shared::ModuleManager;

namespace {

ModuleManager& manager() { return *ModuleManager::instance(); }

/** Writes what is asked of it into a journal, as "name.operation". */
class Module : public LifecycleListener
{
public:
    Module(const QString& aName, QStringList& aJournal) : mName(aName), mJournal(aJournal)
    {
        manager().registerListener(this);
    }
    ~Module() override { manager().unregisterListener(this); }

    QString getName() const override { return mName; }
    bool initialize() override
    {
        note("init");
        return succeeds;
    }
    void deInitialize() override { note("deInit"); }
    void deInitializeLate() override { note("late"); }

    bool succeeds = true;
    std::function<void(const QString&)> onOperation = [](const QString&) {};

private:
    void note(const char* aOperation)
    {
        mJournal.append(mName + QLatin1Char('.') + QLatin1String(aOperation));
        onOperation(QLatin1String(aOperation));
    }

    const QString mName;
    QStringList& mJournal;
};

struct Modules : testing::Test
{
    QStringList takeJournal() { return std::exchange(mJournal, {}); }

    void shutDown()
    {
        manager().deInitializeModules();
        manager().deInitializeModulesLate();
    }

    static QList<int> states()
    {
        QList<int> result;
        for (const QVariant& module : manager().getModules())
            result.append(module.toMap().value(QStringLiteral("state")).toInt());
        return result;
    }

    QStringList mJournal;
    Module mAudio{QStringLiteral("audio"), mJournal};
    Module mMap{QStringLiteral("map"), mJournal};
    Module mPhone{QStringLiteral("phone"), mJournal};
};

QStringList words(const char* aText) { return QString::fromLatin1(aText).split(QLatin1Char(' ')); }

} // namespace

TEST_F(Modules, StartsInOrderAndStopsInReverseOrder)
{
    EXPECT_TRUE(manager().initializeModules());
    EXPECT_TRUE(manager().initializeModules());
    EXPECT_EQ(takeJournal(), words("audio.init map.init phone.init"));
    shutDown();
    shutDown();
    EXPECT_EQ(takeJournal(), words("phone.deInit map.deInit audio.deInit phone.late map.late audio.late"));
}

TEST_F(Modules, StopsAtTheModuleThatFailsAndShutsDownOnlyTheOthers)
{
    mMap.succeeds = false;
    int changes = 0;
    const auto connection =
        QObject::connect(&manager(), &ModuleManager::modulesChanged, [&changes] { ++changes; });
    HmiTest::expectCritical(QStringLiteral(
        "The module \"map\" could not be initialised; the modules behind it are not started."));
    EXPECT_FALSE(manager().initializeModules());
    QObject::disconnect(connection);
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(states(), (QList<int>{ModuleManager::ModuleInitialized, ModuleManager::ModuleFailed,
                                    ModuleManager::ModuleRegistered}));
    shutDown();
    EXPECT_EQ(takeJournal(), words("audio.init map.init audio.deInit audio.late"));

    mMap.succeeds = true;
    EXPECT_TRUE(manager().initializeModules());
    EXPECT_EQ(takeJournal(), words("audio.init map.init phone.init"));
}

TEST_F(Modules, LetsAModuleUnregisterItselfAndOthersMeanwhile)
{
    const struct
    {
        const char* operation;
        const char* journal;
    } rows[] = {
        {"init", "audio.init map.init audio.deInit audio.late"},
        {"deInit",
         "audio.init map.init phone.init phone.deInit map.deInit audio.deInit phone.late audio.late"},
        {"late", "audio.init map.init phone.init phone.deInit map.deInit audio.deInit "
                 "phone.late map.late audio.late"},
    };
    for (const auto& row : rows) {
        mJournal.clear();
        for (Module* module : {&mAudio, &mMap, &mPhone}) {
            manager().unregisterListener(module);
            manager().registerListener(module);
        }
        mMap.onOperation = [&](const QString& aOperation) {
            if (aOperation != QLatin1String(row.operation))
                return;
            manager().unregisterListener(&mMap);
            if (aOperation == QLatin1String("init"))
                manager().unregisterListener(&mPhone);
        };
        EXPECT_TRUE(manager().initializeModules());
        shutDown();
        EXPECT_EQ(takeJournal(), words(row.journal)) << row.operation;
    }
}

TEST_F(Modules, RefusesANameThatIsTakenOrEmpty)
{
    for (const QString& name : {QStringLiteral("map"), QString()}) {
        HmiTest::expectWarning(
            QStringLiteral("The module name \"%1\" is empty or taken; the module is not registered.")
                .arg(name));
        const Module refused(name, mJournal);
    }
    EXPECT_EQ(states().size(), 3);
}

TEST_F(Modules, ReachesTheLateStageAfterTheManagerWasDeleted)
{
    EXPECT_TRUE(manager().initializeModules());
    manager().deInitializeModules();
    takeJournal();
    delete &manager();
    manager().deInitializeModulesLate();
    EXPECT_EQ(takeJournal(), words("phone.late map.late audio.late"));
}
