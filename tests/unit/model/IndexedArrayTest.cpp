#include "model/IndexedArray.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace plotvane {
namespace {

TEST(IndexedArray, HoldsOneValueForEachNumberInItsBounds) {
    IndexedArray<int, 3> squares{};
    for (int i = 0; i < 3; ++i) squares[i] = i * i;
    EXPECT_EQ(squares, (IndexedArray<int, 3>{0, 1, 4}));
    EXPECT_EQ(squares.size(), 3u);
}

TEST(IndexedArray, ANumberOutsideItsBoundsIsRefused) {
    IndexedArray<int, 3> numbers{};
    EXPECT_THROW(numbers[-1] = 0, std::out_of_range);
    EXPECT_THROW(numbers[3] = 0, std::out_of_range);
}

}  // namespace
}  // namespace plotvane
