#include <hmi/shared/events/CallbackHandler.h>

#include <atomic>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

TEST(CallbackHandler, RunsCollectedCallbacksOnceInOrderAndLaterOnesAtOnce)
{
    Hmi::Shared::CallbackHandler handler;
    std::string calls;
    handler.addCallback([&calls] { calls += 'a'; });
    handler.addCallback({});
    handler.addCallback([&calls] { calls += 'b'; });
    EXPECT_EQ(calls, "");
    handler.handleCallbacks();
    EXPECT_EQ(calls, "ab");
    handler.addCallback([&calls] { calls += 'c'; });
    EXPECT_EQ(calls, "abc");
    handler.handleCallbacks();
    EXPECT_EQ(calls, "abc");
}

TEST(CallbackHandlerThreads, LoseNothingAndKeepEachThreadsOrder)
{
    constexpr int Callbacks = 2000;
    Hmi::Shared::CallbackHandler handler;
    std::atomic<int> added{0};
    int calls[4] = {}; // no lock of its own: callbacks run one at a time
    std::vector<std::thread> threads;
    for (int& next : calls)
        threads.emplace_back([&] {
            for (int number = 0; number < Callbacks; ++number, ++added)
                handler.addCallback([&next, number] { EXPECT_EQ(next++, number); });
        });
    while (added < Callbacks)
        std::this_thread::yield();
    handler.handleCallbacks();
    for (std::thread& thread : threads)
        thread.join();
    for (const int count : calls)
        EXPECT_EQ(count, Callbacks);
}
