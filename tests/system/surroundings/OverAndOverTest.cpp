// What happens a few times in a drive, many times over: modules change, meters open and close.
// scripts/soak.sh does this for an hour.
#include "tests/support/system/Meters.h"
#include "tests/support/system/ProgramState.h"
#include "tests/support/system/Prompt.h"
#include "tests/support/system/Repeats.h"
#include "tests/support/system/Resources.h"

namespace plotvane::test {
namespace {

// A change of the module, or a closed meter, must leave nothing in memory.
constexpr GrowthAllowance kAllowed{.privateKilobytes = 512, .gdiObjects = 2, .userObjects = 0, .handles = 4};

// At each stop and start three buttons change their images, and Wine keeps three bitmaps of each for ever,
// each of a kilobyte or more.
GrowthAllowance AllowedWithRestarts(int restarts) {
    GrowthAllowance allowed = kAllowed;
    allowed.gdiObjects += restarts * 3 * 3;
    allowed.privateKilobytes += static_cast<std::size_t>(restarts) * 18;
    return allowed;
}

class OverAndOver : public AnyState {
protected:
    void WriteLabels(const std::string& name, const std::string& text) {
        std::filesystem::create_directory(session.Folder() / "labels");
        WriteBytes(session.Folder() / "labels" / name, text);
    }
    // Starts live and waits until the hint in the title is over.
    void EnterLive() {
        Enter(ProgramState::LiveWaiting);
        ASSERT_TRUE(Becomes([this] { return main.Text().starts_with(L"Plotvane"); }, true));
    }
    // The program loads the labels and ranges of another module only after a stop and a start.
    void ChangeTo(const std::string& module, int number) {
        session.Host().SendRecord(module +
                                  DriveRecord(number).substr(std::string_view("038 906 019 FT").size()));
        ASSERT_TRUE(session.Shows(0, DriveText(number)));
        ASSERT_TRUE(Becomes([this] { return main.Text(); },
                            L"Plotvane  -  Live Data  -  " + std::wstring(module.begin(), module.end())));
        const LRESULT running = Buttons().pauseImage;
        session.Host().StopSending();
        ASSERT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
        main.PostClick(IDC_PAUSE);
    }
};

TEST_F(OverAndOver, TheModuleChanges) {
    constexpr int kUsual = 18;
    const int changes = Repeats("PLOTVANE_MODULES", kUsual);
    const auto name = [](int module) { return "MOD " + std::to_string(module); };
    EnterLive();
    for (int module = 1; module <= 10; ++module) ChangeTo(name(module), module);
    AnswerWatch answers(main.Get());
    const Resources before = ResourcesOf(main.ProcessId());
    for (int module = 11; module <= changes && !HasFatalFailure(); ++module) ChangeTo(name(module), module);
    EXPECT_EQ(GrownBeyond(before, ResourcesOf(main.ProcessId()), AllowedWithRestarts(changes - 10)), "");
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ClosesPromptly(session));
    EXPECT_TRUE(std::filesystem::exists(session.Scaling("MOD-" + std::to_string(changes) + ".SCL")));
}

// Each of the three files redirects to the next.
TEST_F(OverAndOver, LabelFilesRedirectInACircle) {
    WriteLabels("MOD-1.LBL", "REDIRECT,MOD-2.LBL,1\r\nREDIRECT,MOD-2.LBL,2\r\n");
    WriteLabels("MOD-2.LBL", "REDIRECT,MOD-3.LBL,1\r\nREDIRECT,MOD-3.LBL,2\r\n");
    WriteLabels("MOD-3.LBL", "REDIRECT,MOD-1.LBL,1\r\nREDIRECT,MOD-1.LBL,2\r\nREDIRECT,MOD-3.LBL,3\r\n");
    constexpr int kUsual = 15;
    const int changes = Repeats("PLOTVANE_MODULES", kUsual);
    const auto name = [](int number) { return "MOD " + std::to_string(1 + number % 3); };
    EnterLive();
    for (int number = 1; number <= 10; ++number) ChangeTo(name(number), number);
    AnswerWatch answers(main.Get());
    const Resources before = ResourcesOf(main.ProcessId());
    for (int number = 11; number <= changes && !HasFatalFailure(); ++number) ChangeTo(name(number), number);
    EXPECT_EQ(GrownBeyond(before, ResourcesOf(main.ProcessId()), AllowedWithRestarts(changes - 10)), "");
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(OverAndOver, AMeterOpensAndCloses) {
    constexpr int kUsual = 24;
    const int meters = Repeats("PLOTVANE_METERS", kUsual);
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(Becomes([&] { return main.IsChecked(IDC_SHOW_FIRST + 11); }, true));
    const auto openAndClose = [this](int slot) {
        RightClick(main, IDC_SWATCH_FIRST + slot);
        const std::vector<RemoteWindow> open = OpenMeters(main);
        ASSERT_EQ(open.size(), 1u);
        open.front().Send(WM_CLOSE);
        ASSERT_FALSE(open.front().Exists());
    };
    for (int slot = 0; slot < 12; ++slot) openAndClose(slot);
    AnswerWatch answers(main.Get());
    const int sentBefore = feed->Sent();
    const Resources before = ResourcesOf(main.ProcessId());
    for (int meter = 0; meter < meters && !HasFatalFailure(); ++meter) openAndClose(meter % 12);
    const GrowthAllowance allowed = WithRecording(kAllowed, feed->Sent() - sentBefore);
    EXPECT_EQ(GrownBeyond(before, ResourcesOf(main.ProcessId()), allowed), "");
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
