// Somebody leaves Preferences or About open while the host goes on. The acquisition is below the dialog on
// the same stack, and waits there on purpose: what the host sends meanwhile stays in the pipe.
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

struct SystemDialog {
    WPARAM command;
    int control;  // one that only this dialog has
    const char* name;
};

void PrintTo(const SystemDialog& dialog, std::ostream* out) {
    *out << dialog.name;
}

class DialogOverData : public AnyState, public ::testing::WithParamInterface<SystemDialog> {
protected:
    // Opens the dialog over a program that shows what the host sends.
    void Open() {
        Enter(ProgramState::LiveRunning);
        ASSERT_FALSE(HasFatalFailure());
        main.Post(WM_SYSCOMMAND, GetParam().command);
        dialog = session.DialogWith(GetParam().control);
        ASSERT_TRUE(dialog.Exists());
        answers = std::make_unique<AnswerWatch>(main.Get());
    }
    // The window answers, but shows nothing new.
    void StandsStillBelowIt() {
        EXPECT_TRUE(Becomes([this] { return session.Host().Unread() > 0; }, true));
        const std::wstring shown = session.ValueText(0);
        EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, shown, 300ms));
        EXPECT_TRUE(dialog.Exists());
        EXPECT_TRUE(AnsweredPromptly(*answers));
    }
    void CloseDialog() {
        dialog.PostClick(IDCANCEL);
        EXPECT_TRUE(Becomes([this] { return dialog.Exists(); }, false));
    }

    RemoteWindow dialog;
    std::unique_ptr<AnswerWatch> answers;
};

TEST_P(DialogOverData, DataThatArrivesBelowItIsShownAfterwards) {
    Open();
    StandsStillBelowIt();
    feed->Stop();
    const int sent = feed->Sent();
    CloseDialog();
    EXPECT_TRUE(session.Shows(0, DriveText(sent)));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(DialogOverData, AHostThatStopsBelowItCountsAsStoppedAfterwards) {
    Open();
    const LRESULT running = Buttons().pauseImage;
    feed.reset();
    session.Host().StopSending();
    StandsStillBelowIt();
    CloseDialog();
    EXPECT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(DialogOverData, AHostThatDiesBelowItCountsAsStoppedAfterwards) {
    Open();
    const LRESULT running = Buttons().pauseImage;
    StandsStillBelowIt();
    feed.reset();
    session.Host().Die();
    CloseDialog();
    EXPECT_TRUE(Becomes([&] { return Buttons().pauseImage != running; }, true));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_P(DialogOverData, TheProgramClosesBelowIt) {
    Open();
    StandsStillBelowIt();
    EXPECT_TRUE(ClosesPromptly(session));
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

TEST_P(DialogOverData, AHostThatClosesBelowItEndsTheProgramAfterwards) {
    Open();
    feed.reset();
    session.Host().SendClosing();
    StandsStillBelowIt();
    dialog.PostClick(IDCANCEL);
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline)) << "once what came before is shown";
    EXPECT_EQ(session.Process().ExitCode(), 0u);
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

INSTANTIATE_TEST_SUITE_P(Open, DialogOverData,
                         ::testing::Values(SystemDialog{ID_SYSMENU_PREFERENCES, IDC_PREFS_TRACE_LIST,
                                                        "Preferences"},
                                           SystemDialog{ID_SYSMENU_ABOUT, IDC_ABOUT_VERSION, "About"}),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace plotvane::test
