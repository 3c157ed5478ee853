#include "study/shared_work.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

TEST(SharedWork, TakesAsManyThreadsAsAreWantedAndUseful) {
    EXPECT_EQ(threads_for(3, 8), 3);
    EXPECT_EQ(threads_for(9, 8), 8);
    EXPECT_EQ(threads_for(2, 0), 1);
    EXPECT_GE(threads_for(0, 8), 1);
    EXPECT_LE(threads_for(0, 8), 8);
}

TEST(SharedWork, DoesEveryPieceOnce) {
    for (const int threads : {1, 2, 7}) {
        std::vector<std::atomic<int>> times(100);
        std::atomic<int> strange{0};
        share_work(100, threads, [&](int thread, int number) {
            ++times[static_cast<std::size_t>(number)];
            strange += thread < 0 || thread >= threads ? 1 : 0;
        });
        for (const std::atomic<int>& each : times) {
            EXPECT_EQ(each, 1);
        }
        EXPECT_EQ(strange, 0);
    }
    share_work(0, 2, [](int, int) { FAIL() << "there is nothing to do"; });
}

TEST(SharedWork, ThrowsWhatTheLowestNumberThrewAndBeginsNothingAfterIt) {
    std::vector<int> begun;
    const auto work = [&](int, int number) {
        begun.push_back(number);
        if (number >= 3) {
            throw std::runtime_error(std::to_string(number));
        }
    };
    try {
        share_work(10, 1, work);
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "3");
    }
    EXPECT_EQ(begun, (std::vector<int>{0, 1, 2, 3}));

    // Both threads have begun before either throws: the lower number counts, whoever comes first.
    std::atomic<int> inside{0};
    try {
        share_work(2, 2, [&](int, int number) {
            ++inside;
            while (inside < 2) {
                std::this_thread::yield();
            }
            throw std::runtime_error(std::to_string(number));
        });
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "0");
    }
}
