#include "model/Meanwhile.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace plotvane {
namespace {

TEST(Meanwhile, IsTrueForAScopeHoweverThatEnds) {
    bool flag = false;
    try {
        const Meanwhile meanwhile(flag);
        EXPECT_TRUE(flag);
        throw std::runtime_error("");
    } catch (const std::runtime_error&) {
        EXPECT_FALSE(flag);
    }
}

}  // namespace
}  // namespace plotvane
