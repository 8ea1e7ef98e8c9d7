// Every meter open, a window that is pulled about, and copies started over and over.
#include <random>

#include "tests/system/support/MainDialog.h"
#include "tests/system/support/Meters.h"
#include "tests/system/support/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kAllMeters = 12 + 2;

class RoughHandling : public AnyState {
protected:
    // One for each slot, and the two of the fuel figures.
    void OpenEveryMeter() {
        for (int slot = 0; slot < 12; ++slot) {
            ASSERT_TRUE(Becomes([&] { return main.IsChecked(IDC_SHOW_FIRST + slot); }, true)) << slot;
            RightClick(main, IDC_SWATCH_FIRST + slot);
        }
        for (const int id : {IDC_MILEAGE, IDC_CONSUMPTION}) {
            ASSERT_TRUE(Becomes([&] { return main.IsShown(id); }, true)) << id;
            main.Click(id);
        }
        ASSERT_EQ(OpenMeters(main).size(), kAllMeters);
    }
    // A log with all twelve fields; the first shows "<speed> /min".
    static std::string FullLog(int speed) {
        std::string log =
            "Friday,20,November,2026,10:15:30\r\n038 906 019 FT,Engine control\r\n\r\n"
            ",Row A,'001,,,,Row B,'003,,,,Row C,'004\r\n,,,,,,,,,,,,,,,\r\n,,,,,,,,,,,,,,,\r\n"
            "mark,time, /min, km/h, l/h, V,time, %, %, %, %,time, %, %, %, %\r\n";
        for (int row = 1; row <= 400; ++row) {
            const std::string time =
                std::to_string(row / 20) + "." + std::to_string(row % 20 * 5 + 100).substr(1);
            const std::string four = "," + time + ",1,2,3," + std::to_string(row % 100);
            log.append("0,").append(time).append(",").append(std::to_string(speed)).append(",50,4.2,12");
            log.append(four).append(four).append(",\r\n");
        }
        return log;
    }
};

TEST_F(RoughHandling, AnotherLogIsLoadedWithEveryMeterOpen) {
    Start();
    Load(WriteLog("first.csv", FullLog(780)));
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    OpenEveryMeter();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    Press(IDC_STOP);
    ASSERT_TRUE(Becomes([this] { return main.IsEnabled(IDC_STOP); }, false));
    Load(WriteLog("second.csv", FullLog(1240)));
    EXPECT_TRUE(session.Shows(0, L"1240 /min"));
    EXPECT_EQ(OpenMeters(main).size(), kAllMeters) << "they stay";
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(RoughHandling, EveryMeterFollowsTheHostAndClosesInTheMidstOfIt) {
    Enter(ProgramState::LiveRunning);
    OpenEveryMeter();
    ASSERT_FALSE(HasFatalFailure());
    AnswerWatch answers(main.Get());
    const int shown = std::stoi(session.ValueText(0));
    EXPECT_TRUE(Becomes([&] { return std::stoi(session.ValueText(0)) > shown + 20; }, true));
    for (const RemoteWindow& meter : OpenMeters(main)) meter.Close();
    EXPECT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 0u));
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// Sizes from nothing to more than the screen, faster than they can be laid out, with the window shrunk to the
// task bar and spread over the screen in between.
TEST_F(RoughHandling, AWindowThatIsPulledAboutEndsUpLaidOutForItsLastSize) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    const SIZE usual = main.Size();
    const RECT chartBefore = main.Control(IDC_CHART).ScreenRect();
    AnswerWatch answers(main.Get());
    constexpr unsigned kSeed = 1121;
    std::mt19937 random(kSeed);
    for (int pull = 0; pull < 60; ++pull) {
        if (pull % 30 == 7) main.Post(WM_SYSCOMMAND, SC_MINIMIZE);
        if (pull % 30 == 11) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        if (pull % 30 == 17) main.Post(WM_SYSCOMMAND, SC_MAXIMIZE);
        if (pull % 30 == 21) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        main.ResizeTo(static_cast<int>(random() % 1400), static_cast<int>(random() % 1100));
    }
    // The window manager follows when it likes, and may shrink or spread the window once more behind all
    // that.
    const auto chartGrewBy = [&](int width, int height) {
        if (::IsIconic(main.Get()) || ::IsZoomed(main.Get())) main.Post(WM_SYSCOMMAND, SC_RESTORE);
        if (main.Size().cx != usual.cx + width) main.ResizeTo(usual.cx + width, usual.cy + height);
        const RECT chart = main.Control(IDC_CHART).ScreenRect();
        return std::pair(chart.right - chart.left - (chartBefore.right - chartBefore.left),
                         chart.bottom - chart.top - (chartBefore.bottom - chartBefore.top));
    };
    EXPECT_TRUE(Becomes([&] { return chartGrewBy(90, 60); }, std::pair<LONG, LONG>(90, 60)));
    EXPECT_TRUE(Becomes([&] { return chartGrewBy(0, 0); }, std::pair<LONG, LONG>(0, 0)));
    answers.Stop();
    EXPECT_LE(answers.MedianMs(), answers.BoundMs()) << "laying out is dear, but must not pile up";
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

// Each ends silently and by itself, and the first goes on as if nothing were.
TEST_F(RoughHandling, CopiesStartedOverAndOverDisturbNothing) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    const DWORD first = main.ProcessId();
    AnswerWatch answers(main.Get());
    const std::wstring program = L'"' + (ProgramFolder() / "plotvane.exe").wstring() + L'"';
    for (int copy = 0; copy < 15; ++copy) {
        ChildProcess second(program, session.Folder());
        ASSERT_TRUE(Becomes(
            [&] {
                EXPECT_TRUE(WindowsOf(second.Id()).empty()) << "a copy shows a window";
                return second.Running();
            },
            false));
        EXPECT_EQ(second.ExitCode(), 0u);
    }
    EXPECT_TRUE(AnsweredPromptly(answers));
    EXPECT_EQ(FindMainDialog().ProcessId(), first);
    EXPECT_TRUE(std::filesystem::exists(session.ExchangeFile())) << "the first one's, not theirs to delete";
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("Prefs.cfg"))) << "written by none of them";
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
