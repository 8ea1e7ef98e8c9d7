// The host dies, stutters, floods the pipe or falls silent; the program keeps answering.
#include <gtest/gtest.h>

#include <memory>

#include "tests/support/system/Feed.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/RunButtons.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class HostFaults : public ::testing::Test {
protected:
    void SetUp() override {
        session.StartWithHost();
        main = session.Main();
        ASSERT_TRUE(main.Exists());
        ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_PAUSE); }, true));
        answers = std::make_unique<AnswerWatch>(main.Get());
    }
    PipeHost& TheHost() { return session.Host(); }
    ::testing::AssertionResult HasTakenAll() {
        return Becomes([this] { return TheHost().Unread(); }, 0u);
    }
    static std::string BlockOf(const std::string& record) {
        std::string block = record;
        block.resize(kBlockBytes, '\0');
        return block;
    }
    int ShownNumber() const {
        const std::wstring text = session.ValueText(0);
        return text.empty() ? 0 : std::stoi(text);
    }

    Session session;
    RemoteWindow main;
    std::unique_ptr<AnswerWatch> answers;
};

// Bytes that a host sends before it dies: nothing; the beginning, the middle and all but the end of a block;
// a block; a block and the beginning of the next.
class DyingHost : public HostFaults, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(DyingHost, CountsAsStoppedAndHoldsNothingUp) {
    const LRESULT playing = ButtonsOf(main).pauseImage;
    TheHost().Send((BlockOf(DriveRecord(1)) + BlockOf(DriveRecord(2))).substr(0, GetParam()));
    TheHost().Die();
    EXPECT_TRUE(Becomes([&] { return ButtonsOf(main).pauseImage != playing; }, true))
        << "starting over is offered";
    EXPECT_EQ(session.ValueText(0), GetParam() < kBlockBytes ? L"" : DriveText(1));
    EXPECT_TRUE(Stays([&] { return main.IsEnabled(IDC_PAUSE); }, true, 200ms));
    EXPECT_TRUE(AnsweredPromptly(*answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(After, DyingHost, ::testing::Values(0u, 1u, 256u, 512u, 513u, 514u),
                         [](const auto& info) { return std::to_string(info.param) + "Bytes"; });

TEST_F(HostFaults, ABlockInTwoPartsIsShownRightWhereverItIsSplit) {
    for (std::size_t split = 0; split < kBlockBytes; ++split) {
        const int number = static_cast<int>(split) + 1;
        const std::string block = BlockOf(DriveRecord(number));
        TheHost().Send(block.substr(0, split));
        ASSERT_TRUE(HasTakenAll()) << split;
        ASSERT_EQ(ShownNumber(), number - 1) << "the program shows a part of " << split << " bytes";
        TheHost().Send(block.substr(split));
        ASSERT_TRUE(session.Shows(0, DriveText(number))) << split;
        const std::wstring last = std::to_wstring(number % 100) + L".5 %";
        ASSERT_EQ(session.ValueText(11), last) << split;
    }
    EXPECT_TRUE(AnsweredPromptly(*answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(HostFaults, AFloodOfNothingNewHidesNoRecordAndHoldsNothingUp) {
    Feed flood = Feed::NothingNew(TheHost());
    for (int number = 1; number <= 20; ++number) {
        TheHost().SendRecord(DriveRecord(number));
        ASSERT_TRUE(session.Shows(0, DriveText(number)));
    }
    EXPECT_GT(flood.Sent(), 20);
    EXPECT_TRUE(AnsweredPromptly(*answers));
    EXPECT_TRUE(ClosesPromptly(session)) << "during the flood";
}

TEST_F(HostFaults, RecordsAsFastAsThePipeTakesThemAreShownOneAfterAnother) {
    Feed feed = Feed::Records(TheHost(), 0ms);
    int shown = 0;
    EXPECT_TRUE(Becomes(
        [&] {
            const int now = ShownNumber();
            EXPECT_GE(now, shown) << "never backwards";
            EXPECT_LE(now, feed.Sent());
            shown = now;
            return now > 60;
        },
        true));
    EXPECT_GT(TheHost().Unread(), 30'000u) << "the pipe is always full";
    EXPECT_TRUE(AnsweredPromptly(*answers));
    EXPECT_TRUE(ClosesPromptly(session)) << "with the pipe full";
}

TEST_F(HostFaults, SilenceBeforeAfterAndInsideABlockHoldsNothingUp) {
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, L"", 500ms));
    TheHost().SendRecord(DriveRecord(1));
    ASSERT_TRUE(session.Shows(0, DriveText(1)));
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, DriveText(1), 500ms));
    TheHost().Send(BlockOf(DriveRecord(2)).substr(0, 300));
    ASSERT_TRUE(HasTakenAll());
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, DriveText(1), 500ms));
    EXPECT_TRUE(AnsweredPromptly(*answers));
    EXPECT_TRUE(ClosesPromptly(session)) << "inside a block";
}

TEST_F(HostFaults, AHostThatClosesDuringAFloodEndsTheProgram) {
    Feed flood = Feed::NothingNew(TheHost());
    ASSERT_TRUE(Becomes([&] { return flood.Sent() > 100; }, true));
    flood.Stop();
    TheHost().SendClosing();
    EXPECT_TRUE(EndsPromptly(session));
}

// The exchange file names the descriptor of a console, such as 0, instead of the pipe. Reading that would
// wait for somebody to type. It counts as a closed pipe, and so as a host that has stopped.
TEST(HostThatNamesAConsole, CountsAsStoppedAndHoldsNothingUp) {
    ::FreeConsole();  // a console that nobody can type into, if there is one
    ASSERT_TRUE(::AllocConsole()) << ::GetLastError();
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    Handle console(::CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                 &inheritable, OPEN_EXISTING, 0, nullptr));
    ASSERT_NE(console.Get(), INVALID_HANDLE_VALUE);
    Session session;
    session.StartWithHostAt(console.Get(), 0);
    const RemoteWindow main = session.Main();
    ASSERT_TRUE(main.Exists());
    ASSERT_TRUE(Becomes([&] { return main.IsEnabled(IDC_PAUSE); }, true));
    EXPECT_TRUE(KeepsAnswering(main));
    const LRESULT stopped = ButtonsOf(main).pauseImage;
    main.PostClick(IDC_PAUSE);
    EXPECT_TRUE(KeepsAnswering(main));
    EXPECT_EQ(ButtonsOf(main).pauseImage, stopped) << "started over, it has stopped again";
    EXPECT_TRUE(ClosesPromptly(session));
    console.Close();
    ::FreeConsole();
}

}  // namespace
}  // namespace plotvane::test
