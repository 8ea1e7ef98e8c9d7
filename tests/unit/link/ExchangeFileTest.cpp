#include "link/ExchangeFile.h"

#include <gtest/gtest.h>

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

class ExchangeFileTest : public testing::Test {
protected:
    std::optional<int> Reading(std::string_view bytes) {
        test::WriteBytes(m_folder / kExchangeFileName, bytes);
        return ReadExchangeFile(m_folder / kExchangeFileName);
    }
    test::TempFolder m_folder;
};

TEST_F(ExchangeFileTest, GivesTheDescriptorOfTheFirstLine) {
    EXPECT_EQ(Reading("5\n"), 5);
    EXPECT_EQ(Reading("12\r\n7\r\n"), 12);
    EXPECT_EQ(Reading(" 3"), 3);
}

TEST_F(ExchangeFileTest, TakesNineCharactersAtMost) {
    EXPECT_EQ(Reading("1234567890"), 123456789);
}

TEST_F(ExchangeFileTest, GivesNoDescriptorWhereThereIsNoNumber) {
    for (const char* text : {"", "\n5\n", "pipe",
                             "\xFF"
                             "5"})
        EXPECT_EQ(Reading(text), kNoDescriptor) << text;
}

TEST_F(ExchangeFileTest, IsNothingWithoutAFile) {
    EXPECT_EQ(ReadExchangeFile(m_folder / kExchangeFileName), std::nullopt);
}

}  // namespace
}  // namespace plotvane
