#include "base/OutwaitHolder.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

// Fails `failures` times, then succeeds.
struct Attempts {
    int failures;
    int made = 0;
    bool operator()() { return ++made > failures; }
};

TEST(OutwaitHolder, TriesOnceIfNobodyHoldsTheFile) {
    Attempts attempts{0};
    EXPECT_TRUE(OutwaitHolder([&] { return attempts(); }));
    EXPECT_EQ(attempts.made, 1);
}

TEST(OutwaitHolder, TriesUntilTheFileIsFree) {
    Attempts attempts{4};
    EXPECT_TRUE(OutwaitHolder([&] { return attempts(); }));
    EXPECT_EQ(attempts.made, 5);
}

TEST(OutwaitHolder, GivesUpAfterFiveAttemptsAnd80Milliseconds) {
    Attempts attempts{100};
    const auto began = std::chrono::steady_clock::now();
    EXPECT_FALSE(OutwaitHolder([&] { return attempts(); }));
    EXPECT_EQ(attempts.made, 5);
    EXPECT_GE(std::chrono::steady_clock::now() - began, std::chrono::milliseconds{80});
}

}  // namespace
}  // namespace plotvane
