#include "app/ManualAddress.h"

#include <gtest/gtest.h>

namespace plotvane {
namespace {

TEST(ManualAddress, IsTheFileWithThePageBehindIt) {
    EXPECT_EQ(AddressOf(R"(C:\Plotvane\manual.html)", "keys"), "file:///C:/Plotvane/manual.html#keys");
}

TEST(ManualAddress, EncodesWhatHasAMeaningInAddresses) {
    EXPECT_EQ(AddressOf(R"(C:\My "50% off" #1\m.html)", "keys"),
              "file:///C:/My%20%2250%25%20off%22%20%231/m.html#keys");
    EXPECT_EQ(AddressOf("C:\\Pr\xC3\xBC"
                        "fung\\m.html",
                        "keys"),
              "file:///C:/Pr%C3%BCfung/m.html#keys");
}

TEST(ManualAddress, NamesTheMachineOfAShare) {
    EXPECT_EQ(AddressOf(R"(\\server\tools\m.html)", "keys"), "file://server/tools/m.html#keys");
}

TEST(ManualAddress, KnowsTheFormOfLongPaths) {
    EXPECT_EQ(AddressOf(R"(\\?\C:\a\m.html)", "keys"), "file:///C:/a/m.html#keys");
    EXPECT_EQ(AddressOf(R"(\\?\UNC\server\tools\m.html)", "keys"), "file://server/tools/m.html#keys");
}

TEST(BrowserCommand, HasTheAddressInItsPlace) {
    EXPECT_EQ(CommandFor(LR"("C:\b c\browser.exe" -url "%1" -x)", L"file:///m"),
              LR"("C:\b c\browser.exe" -url "file:///m" -x)");
    EXPECT_EQ(CommandFor(LR"(C:\browser.exe --single-argument %1)", L"file:///m"),
              LR"(C:\browser.exe --single-argument file:///m)");
    EXPECT_EQ(CommandFor(LR"(C:\browser.exe "%L")", L"file:///m"), LR"(C:\browser.exe "file:///m")");
}

TEST(BrowserCommand, IsNoneWithoutAPlaceForTheAddress) {
    EXPECT_EQ(CommandFor(LR"("C:\browser.exe" -dde)", L"file:///m"), std::nullopt);
    EXPECT_EQ(CommandFor(L"", L"file:///m"), std::nullopt);
}

// Windows would look for it in the working folder too.
TEST(BrowserCommand, IsNoneForAProgramThatIsNotNamedInFull) {
    EXPECT_EQ(CommandFor(L"browser.exe %1", L"file:///m"), std::nullopt);
    EXPECT_EQ(CommandFor(LR"("browser.exe" "%1")", L"file:///m"), std::nullopt);
    EXPECT_EQ(CommandFor(LR"("" %1)", L"file:///m"), std::nullopt);
    EXPECT_EQ(CommandFor(LR"(C:browser.exe %1)", L"file:///m"), std::nullopt);
}

}  // namespace
}  // namespace plotvane
