// app/Version.h sets the version; the places that cannot read it from there must agree with it.
#include <gtest/gtest.h>

#include <string>

#include "app/Version.h"
#include "tests/docs/Page.h"

namespace plotvane::test {
namespace {

class VersionTest : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(VersionTest, IsTheProgramsOwn) {
    const auto& [file, before] = GetParam();
    const std::string expected = std::string(before) + kVersion;
    const std::string text = SourceText(file);
    const std::size_t place = text.find(expected);
    ASSERT_NE(place, std::string::npos) << file << " does not say " << expected;
    const char after = text[place + expected.size()];
    EXPECT_TRUE(after == '"' || after == '\n' || after == '\\') << file << " says more than " << expected;
}

INSTANTIATE_TEST_SUITE_P(Places, VersionTest,
                         testing::Values(std::pair("CHANGELOG.md", "## "),
                                         std::pair("packaging/read-me-first.txt", "PLOTVANE "),
                                         std::pair("res/version.rc", "VALUE \"FileVersion\", \""),
                                         std::pair("res/version.rc", "VALUE \"ProductVersion\", \""),
                                         std::pair("res/main-dialog.rc", "CAPTION \"Plotvane v")));

}  // namespace
}  // namespace plotvane::test
