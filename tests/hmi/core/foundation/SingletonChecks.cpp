#include <QCoreApplication>
#include <QPointer>
#include <QQmlEngine>
#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/core/foundation/SingletonCppQml.h>

using namespace Hmi::Core;

namespace {

struct Native : SingletonCpp<Native>
{};

struct Handed : SingletonCppQml<Handed>
{
    Handed(QQmlEngine* aEngine, QJSEngine*) : engine(aEngine) {}
    QQmlEngine* const engine;
};

/** A class of its own for each number, so that no other check has given it a place in the order of deletion.
 */
template <int Number>
struct Ordered : SingletonCppQml<Ordered<Number>>
{
    Ordered(QQmlEngine*, QJSEngine*) {}
    ~Ordered() override
    {
        fprintf(stderr, "~%d ", Number);
        if (Number == 2)
            Ordered<3>::instance();
    }
};

struct Hurried : SingletonCpp<Hurried>
{};

struct Payload : QObject
{
    int value = 42;
};

/** Runs the reader on four threads until the main thread's work is done and something was read. */
template <class Read, class Work>
void readWhile(Read aRead, Work aWork)
{
    std::atomic<bool> stop{false};
    std::atomic<int> seen{0};
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 4; ++reader)
        readers.emplace_back([&] {
            while (!stop)
                seen += aRead() ? 1 : 0;
        });
    aWork();
    while (seen == 0)
        std::this_thread::yield();
    stop = true;
    for (std::thread& reader : readers)
        reader.join();
}

} // namespace

TEST(Singleton, IsOneObjectUntilItIsDeletedAndThenAFreshOne)
{
    const QPointer<Native> first = Native::instance();
    std::make_unique<Native>();
    EXPECT_EQ(Native::instance(), first) << "an object beside it changes nothing";
    delete first.data();
    EXPECT_TRUE(first.isNull());
    EXPECT_NE(Native::instance(), nullptr);
    delete Native::instance();
}

TEST(SingletonDeathTest, FirstUsedOffTheMainThreadOrWithoutApplicationEndsTheProcess)
{
    EXPECT_DEATH(std::thread([] { Native::instance(); }).join(), "Singleton must be created on main thread");
    EXPECT_DEATH(
        {
            QCoreApplication::instance()->~QCoreApplication();
            Handed::instance();
        },
        "Singleton must be created on main thread");
}

TEST(Singleton, HandedToAnEngineBelongsToIt)
{
    const int type =
        qmlRegisterSingletonType<Handed>("HmiTest.Singleton", 1, 0, "Handed", &Handed::registerInstance);
    const QPointer<Handed> native = Handed::instance();
    EXPECT_EQ(native->engine, nullptr);
    auto engine = std::make_unique<QQmlEngine>();
    EXPECT_EQ(engine->singletonInstance<QObject*>(type), native);
    engine.reset();
    EXPECT_TRUE(native.isNull());

    engine = std::make_unique<QQmlEngine>();
    engine->singletonInstance<QObject*>(type);
    const QPointer<Handed> createdByEngine = Handed::instance();
    EXPECT_EQ(createdByEngine->engine, engine.get());
    engine.reset();
    EXPECT_TRUE(createdByEngine.isNull());
}

TEST(SingletonDeathTest, NativelyOwnedOnesDieLastCreatedFirst)
{
    const auto deleteAll = [](bool aHandOver) {
        Ordered<1>::instance();
        Ordered<2>::instance();
        Ordered<3>::instance();
        if (aHandOver)
            Ordered<1>::registerInstance(nullptr, nullptr);
        InstanceTracker::deleteInstancesCpp();
        fprintf(stderr, "done");
        _exit(0);
    };
    // What the second one creates as it dies has a place that the walk has passed: it is left to process
    // exit.
    EXPECT_EXIT(deleteAll(false), testing::ExitedWithCode(0), "~3 ~2 ~1 done");
    EXPECT_EXIT(deleteAll(true), testing::ExitedWithCode(0), "~3 ~2 done");
    EXPECT_EXIT((Ordered<4>::instance(), Ordered<5>::registerInstance(nullptr, nullptr), exit(0)),
                testing::ExitedWithCode(0), "^~4 $")
        << "what is still held at process exit";
}

TEST(SingletonThreads, PublishCompleteObjectsToReadersThatTakeNoLock)
{
    static InstanceTracker tracker;
    std::vector<std::unique_ptr<Payload>> retired;
    const auto read = [] {
        const auto* payload = static_cast<const Payload*>(tracker.getInstance());
        return payload && payload->value == 42;
    };
    readWhile(read, [&retired] {
        for (int round = 0; round < 5000; ++round) {
            retired.push_back(std::make_unique<Payload>());
            tracker.setInstance(retired.back().get());
            if (round % 3 == 0)
                tracker.setInstance(nullptr);
            tracker.setInstance(retired.back().get());
        }
    });
    tracker.setInstance(nullptr);
}

TEST(SingletonThreads, AreReadWhileTheMainThreadCreatesAndDeletesOthers)
{
    Native* native = Native::instance();
    readWhile([native] { return Native::instance() == native; },
              [] {
                  for (int round = 0; round < 5000; ++round)
                      delete Hurried::instance();
              });
    delete native;
}
