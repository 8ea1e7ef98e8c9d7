#include "base/TextInput.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <share.h>

#include <chrono>
#include <thread>
#endif

#include "tests/support/TempFolder.h"

namespace plotvane {
namespace {

std::string AllOf(TextInput& input) {
    std::string text;
    for (int c = input.Get(); c != TextInput::kEnd; c = input.Get()) text += static_cast<char>(c);
    return text;
}

class TextInputTest : public testing::Test {
protected:
    std::string Reading(std::string_view bytes) {
        test::WriteBytes(m_folder / "text", bytes);
        TextInput input(m_folder / "text");
        return AllOf(input);
    }
    test::TempFolder m_folder;
};

TEST_F(TextInputTest, FoldsLineEndsAndKeepsALoneCarriageReturn) {
    EXPECT_EQ(Reading("a\r\nb\nc\rd\r\r\n\r"), "a\nb\nc\rd\r\n\r");
}

TEST_F(TextInputTest, EndsAtTheEndOfFileBytes) {
    EXPECT_EQ(Reading("ab\xFFxy"), "ab");
    EXPECT_EQ(Reading("ab\x1Axy"), "ab");
}

TEST_F(TextInputTest, StaysAtTheEnd) {
    test::WriteBytes(m_folder / "text", "a\xFFxy");
    TextInput input(m_folder / "text");
    EXPECT_EQ(input.Get(), 'a');
    EXPECT_EQ(input.Peek(), TextInput::kEnd);
    EXPECT_EQ(input.Get(), TextInput::kEnd);
    EXPECT_EQ(input.Get(), TextInput::kEnd);
}

TEST_F(TextInputTest, PeekDoesNotMove) {
    test::WriteBytes(m_folder / "text", "xy");
    TextInput input(m_folder / "text");
    EXPECT_EQ(input.Peek(), 'x');
    EXPECT_EQ(input.Peek(), 'x');
    EXPECT_EQ(input.Get(), 'x');
    EXPECT_EQ(input.Get(), 'y');
}

TEST_F(TextInputTest, FoldsALineEndThatLiesAcrossTwoBuffers) {
    const std::string filler(4095, 'x');
    EXPECT_EQ(Reading(filler + "\r\nb"), filler + "\nb");
    EXPECT_EQ(Reading(filler + "\rb"), filler + "\rb");
}

TEST_F(TextInputTest, GivesBytesAboveAsciiAsPositiveNumbers) {
    test::WriteBytes(m_folder / "text", "\xB0");
    TextInput input(m_folder / "text");
    EXPECT_EQ(input.Get(), 0xB0);
}

TEST_F(TextInputTest, IsNotOpenForAMissingFileOrAFolder) {
    TextInput missing(m_folder / "none");
    EXPECT_FALSE(missing.IsOpen());
    EXPECT_EQ(missing.Get(), TextInput::kEnd);
    TextInput folder(m_folder.Path());
    EXPECT_FALSE(folder.IsOpen());
}

// Counts how often it is asked, and no longer wants the text at question number `wanted`.
struct CountingWatch : ReadWatch {
    bool GoOn() override { return ++asked < wanted; }

    int asked = 0;
    int wanted = 1'000'000;
};

TEST_F(TextInputTest, AsksItsWatchEvery64KilobytesAndChangesNothing) {
    const std::string text = std::string(200'000, 'x') + "\r\nend";
    test::WriteBytes(m_folder / "text", text);
    CountingWatch watch;
    TextInput input(m_folder / "text", &watch);
    EXPECT_EQ(AllOf(input), std::string(200'000, 'x') + "\nend");
    EXPECT_EQ(watch.asked, 3);
    EXPECT_TRUE(input.IsOpen());
}

TEST_F(TextInputTest, AsksNobodyAboutAnOrdinaryFile) {
    test::WriteBytes(m_folder / "text", std::string(60'000, 'x'));
    CountingWatch watch;
    TextInput input(m_folder / "text", &watch);
    EXPECT_EQ(AllOf(input).size(), 60'000u);
    EXPECT_EQ(watch.asked, 0);
}

TEST_F(TextInputTest, ATextThatIsNotWantedAnyMoreEndsThereForGood) {
    test::WriteBytes(m_folder / "text", std::string(10'000'000, 'x'));
    CountingWatch watch;
    watch.wanted = 2;
    TextInput input(m_folder / "text", &watch);
    EXPECT_EQ(AllOf(input).size(), 2u * 65536u);
    EXPECT_EQ(watch.asked, 2);
    EXPECT_FALSE(input.IsOpen());
    EXPECT_EQ(input.Get(), TextInput::kEnd);
    EXPECT_EQ(watch.asked, 2);
}

TEST_F(TextInputTest, HasNotFailedWhereTheFileEndsOrIsMissing) {
    test::WriteBytes(m_folder / "text", "ab");
    TextInput input(m_folder / "text");
    AllOf(input);
    EXPECT_FALSE(input.HasFailed());
    TextInput missing(m_folder / "none");
    AllOf(missing);
    EXPECT_FALSE(missing.HasFailed());
}

#ifdef _WIN32
// Only Windows lets a program keep a file to itself.
TEST_F(TextInputTest, OutwaitsAProgramThatKeepsTheFileForAMoment) {
    test::WriteBytes(m_folder / "text", "mine");
    std::FILE* const held = _wfsopen((m_folder / "text").c_str(), L"rb", _SH_DENYRW);
    ASSERT_TRUE(held);
    std::thread backup([held] {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        std::fclose(held);
    });
    TextInput input(m_folder / "text");
    backup.join();
    EXPECT_EQ(AllOf(input), "mine");
}
#endif

}  // namespace
}  // namespace plotvane
