// SPDX-License-Identifier: MIT
#include "platform/BackgroundThread.h"

#include <atomic>
#include <future>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

TEST(BackgroundThread, DoesOneWorkAfterAnotherOnAThreadOfItsOwn) {
    std::vector<int> done;
    std::promise<std::thread::id> last;
    BackgroundThread thread([] {});
    for (int i = 0; i < 100; ++i) {
        thread.Run([&done, i] { done.push_back(i); });
    }
    thread.Run([&] { last.set_value(std::this_thread::get_id()); });
    EXPECT_NE(last.get_future().get(), std::this_thread::get_id());
    ASSERT_EQ(done.size(), 100U);
    EXPECT_EQ(done.back(), 99);
}

TEST(BackgroundThread, EndsAfterTheWorkAtHand) {
    std::promise<void> begun;
    std::promise<void> goOn;
    std::atomic<int> done = 0;
    std::thread ends;
    {
        auto thread = std::make_unique<BackgroundThread>([] {});
        thread->Run([&] {
            begun.set_value();
            goOn.get_future().wait();
            ++done;
        });
        begun.get_future().wait();
        ends = std::thread([&] { thread.reset(); });
        goOn.set_value();
        ends.join();
    }
    EXPECT_EQ(done, 1);
}

TEST(BackgroundThread, WakesWhoeverItIsToWake) {
    int woken = 0;
    BackgroundThread thread([&] { ++woken; });
    thread.Wake();
    EXPECT_EQ(woken, 1);
}

}  // namespace
}  // namespace scenara::test
