#include <gtest/gtest.h>

#include "tests/support/ProgramFolder.h"

namespace plotvane::test {
namespace {

constexpr const char* kName = "data of a test";

TEST(DataFolder, IsTheOneInTheTreeUnlessOneLiesBesideTheProgram) {
    EXPECT_EQ(DataFolder(kName, "elsewhere"), "elsewhere");
    const std::filesystem::path beside = ProgramFolder() / kName;
    ASSERT_TRUE(std::filesystem::create_directory(beside));
    EXPECT_EQ(DataFolder(kName, "elsewhere"), beside);
    std::filesystem::remove(beside);
}

}  // namespace
}  // namespace plotvane::test
