#include <platform/bus/BusWork.h>

#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

TEST(BusWorkThreads, CarryOutAllPiecesInOrderBeforeTheirOwnerGoes)
{
    for (int round = 0; round < 50; ++round) {
        std::vector<int> done; // without a lock: one thread at a time has it
        std::thread::id thread;
        Bus::BusWork first;
        auto second = std::make_unique<Bus::BusWork>();
        first.add([&] { thread = std::this_thread::get_id(); });
        std::vector<int> expected;
        for (int piece = 0; piece < 20; ++piece) {
            (piece % 3 ? first : *second).add([&done, piece] { done.push_back(piece); });
            expected.push_back(piece);
        }
        first.finish();
        second.reset();
        EXPECT_EQ(done, expected);
        EXPECT_NE(thread, std::this_thread::get_id());
        first.add([&] { done.clear(); });
        first.finish();
        EXPECT_TRUE(done.empty());
    }
}
