#include <hmi/shared/events/ElapsedTimer.h>

#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::ElapsedTimer;

TEST(ElapsedTimer, IsZeroUntilItIsStartedAndBeginsAgain)
{
    ElapsedTimer never;
    ElapsedTimer once;
    ElapsedTimer again;
    once.start();
    again.start();
    EXPECT_TRUE(HmiTest::waitUntil([&again] { return again.getElapsedMs() >= 50; }));
    again.start();
    EXPECT_EQ(never.getElapsedMs(), 0);
    EXPECT_GE(once.getElapsedMs(), 50 + again.getElapsedMs() - 1);
}
