#include <gtest/gtest.h>

#include <pthread.h>

#include <chrono>
#include <thread>
#include <vector>

#include "cli/OrderedWork.h"

using quor::cli::runOrdered;

TEST(OrderedWork, DeliversInIndexOrderWhenLaterWorkFinishesFirst) {
    constexpr std::size_t COUNT = 12;
    std::vector<std::size_t> delivered;
    std::vector<int> results(COUNT, -1);
    runOrdered(
        COUNT, 4,
        [&](std::size_t i) {
            // The first items take longest, so the workers finish them last.
            std::this_thread::sleep_for(std::chrono::milliseconds(i < 4 ? 40 : 1));
            results[i] = static_cast<int>(i * i);
        },
        [&](std::size_t i) {
            EXPECT_EQ(results[i], static_cast<int>(i * i));
            delivered.push_back(i);
        });
    std::vector<std::size_t> expected(COUNT);
    for (std::size_t i = 0; i < COUNT; ++i) expected[i] = i;
    EXPECT_EQ(delivered, expected);
}

TEST(OrderedWork, DoesEachItemOnceWithMoreWorkersThanItems) {
    std::vector<int> done(3, 0);
    std::size_t deliveries = 0;
    runOrdered(3, 16, [&](std::size_t i) { ++done[i]; }, [&](std::size_t) { ++deliveries; });
    EXPECT_EQ(done, (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(deliveries, 3u);
}

TEST(OrderedWork, NothingToDoCallsNothing) {
    bool called = false;
    runOrdered(0, 4, [&](std::size_t) { called = true; }, [&](std::size_t) { called = true; });
    EXPECT_FALSE(called);
}

TEST(OrderedWork, WorkRunsOffTheCallingThreadOnAStackOfAtLeastOneGibibyte) {
    std::vector<std::size_t> stackSizes(4, 0);
    std::vector<bool> onCaller(4, true);
    pthread_t caller = pthread_self();
    runOrdered(
        4, 2,
        [&](std::size_t i) {
            onCaller[i] = pthread_equal(pthread_self(), caller) != 0;
            pthread_attr_t attributes;
            if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
                pthread_attr_getstacksize(&attributes, &stackSizes[i]);
                pthread_attr_destroy(&attributes);
            }
        },
        [](std::size_t) {});
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_FALSE(onCaller[i]) << i;
        EXPECT_GE(stackSizes[i], std::size_t{1} << 30) << i;
    }
}
