// A log that is dropped on the main window, dragged by the mouse from a window of another process.
#include <ole2.h>

#include "tests/support/system/FileDrag.h"
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

class DroppedLog : public AnyState {
protected:
    // What the pointer shows over the chart, and what comes of letting go there. The two agree.
    DWORD DropOnChart(const std::vector<std::filesystem::path>& files) {
        FileDrag drag(files);
        EXPECT_TRUE(drag.MoveOver(main.Control(IDC_CHART)));
        const DWORD shown = drag.Effect();
        EXPECT_EQ(drag.Drop(), shown);
        return shown;
    }
    std::filesystem::path WriteLogAt(const wchar_t* name) { return WriteLog(name, LogThatLingersAt(kOther)); }
    bool NamesTheLog(const std::wstring& name) const { return main.Text().ends_with(name); }
};

TEST_F(DroppedLog, IsPlayedUnderAnyName) {
    Enter(ProgramState::Idle);
    const std::wstring name = L"Pr\u00FCfung \u2013 \u041F\u043E\u0435\u0437\u0434\u043A\u0430 \u8ECA.csv";
    EXPECT_EQ(DropOnChart({WriteLogAt(name.c_str())}), DWORD{DROPEFFECT_COPY});
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(Becomes([&] { return NamesTheLog(name); }, true));
    EXPECT_TRUE(ClosesPromptly(session));
}

// Its source need not wait for the answer.
TEST_F(DroppedLog, ThatIsNoneGetsTheMessageOfTheFileDialog) {
    Enter(ProgramState::Idle);
    EXPECT_EQ(DropOnChart({WriteLog("x.csv", "no log\r\n")}), DWORD{DROPEFFECT_COPY});
    ConfirmMessage(L"This is not an original Diagnel log file!", L"Doh! ;-)");
    EXPECT_EQ(DropOnChart({WriteLogAt(L"y.csv")}), DWORD{DROPEFFECT_COPY});
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(DroppedLog, IsRefusedInCompanyAndSoIsAFolder) {
    Enter(ProgramState::Idle);
    const std::filesystem::path log = WriteLogAt(L"x.csv");
    EXPECT_EQ(DropOnChart({log, WriteLogAt(L"y.csv")}), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(DropOnChart({log.parent_path()}), DWORD{DROPEFFECT_NONE});
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, L"", 300ms));
    EXPECT_EQ(DropOnChart({log}), DWORD{DROPEFFECT_COPY});
    EXPECT_TRUE(session.Shows(0, L"900 /min"));
    EXPECT_TRUE(ClosesPromptly(session));
}

TEST_F(DroppedLog, IsRefusedWhileADialogIsOpen) {
    Enter(ProgramState::Idle);
    const std::filesystem::path log = WriteLogAt(L"x.csv");
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_ABOUT);
    const RemoteWindow dialog = session.DialogWith(IDC_ABOUT_VERSION);
    const RECT place = main.ScreenRect();  // below it, the dialog does not cover the chart
    ::SetWindowPos(dialog.Get(), nullptr, place.left, place.bottom, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(DropOnChart({log}), DWORD{DROPEFFECT_NONE});
    dialog.PostClick(IDOK);
    ASSERT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
    EXPECT_TRUE(Stays([this] { return session.ValueText(0); }, L"", 300ms));
    EXPECT_TRUE(ClosesPromptly(session));
}

class DroppedLogIn : public DroppedLog, public ::testing::WithParamInterface<ProgramState> {};

TEST_P(DroppedLogIn, IsTakenWhereALogMayBeLoaded) {
    Enter(GetParam());
    ASSERT_FALSE(HasFatalFailure());
    const bool mayLoad = GetParam() == ProgramState::Idle || GetParam() == ProgramState::ReplayEnded;
    const DWORD effect = DropOnChart({WriteLogAt(L"dropped.csv")});
    EXPECT_EQ(effect, mayLoad ? DWORD{DROPEFFECT_COPY} : DWORD{DROPEFFECT_NONE});
    if (mayLoad) {
        EXPECT_TRUE(session.Shows(0, L"900 /min"));
        EXPECT_TRUE(Becomes([this] { return NamesTheLog(L"dropped.csv"); }, true));
    } else {
        EXPECT_TRUE(Stays([this] { return NamesTheLog(L"dropped.csv"); }, false, 300ms));
        EXPECT_TRUE(ComesBackToLife());
    }
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(States, DroppedLogIn, ::testing::ValuesIn(kProgramStates),
                         [](const auto& instance) { return NameOf(instance.param); });

}  // namespace
}  // namespace plotvane::test
