#include "framework/Dialog.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <vector>

#include "tests/support/DegreeSign.h"
#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/test_dialogs.h"

namespace {

// Runs `script` once its window is shown and working; the script has to end the dialog.
class ScriptedDialog : public CDialog {
public:
    explicit ScriptedDialog(std::function<void(ScriptedDialog&)> toRun, HWND owner = nullptr)
        : CDialog(IDD_TEST_EXCHANGE, owner), script(std::move(toRun)) {}

    using CDialog::EndDialog;

    std::function<void(ScriptedDialog&)> script;
    std::string text;
    int checked = 0;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        ::PostMessageW(m_hWnd, kRunScript, 0, 0);
        return TRUE;
    }
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Text(exchange, IDC_TEST_TEXT, text);
        DDX_Check(exchange, IDC_TEST_CHECK, checked);
    }

private:
    static constexpr UINT kRunScript = WM_APP + 1;

    LRESULT OnRunScript(WPARAM, LPARAM) {
        script(*this);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ScriptedDialog, CDialog)
    ON_MESSAGE(kRunScript, OnRunScript)
END_MESSAGE_MAP()

TEST(Dialog, FillsItsControlsFromTheMembers) {
    std::string shown;
    bool ticked = false;
    ScriptedDialog dialog{[&](ScriptedDialog& self) {
        shown = self.GetDlgItemText(IDC_TEST_TEXT);
        ticked = self.IsDlgButtonChecked(IDC_TEST_CHECK);
        self.EndDialog(7);
    }};
    dialog.text = "21 " DEGREES_C;
    dialog.checked = 1;

    EXPECT_EQ(dialog.DoModal(), 7);

    EXPECT_EQ(shown, "21 " DEGREES_C);
    EXPECT_TRUE(ticked);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, OkFillsTheMembersFromTheControls) {
    ScriptedDialog dialog{[](ScriptedDialog& self) {
        self.SetDlgItemText(IDC_TEST_TEXT, "\xB5g");
        self.CheckDlgButton(IDC_TEST_CHECK, true);
        self.SendMessage(WM_COMMAND, IDOK);
    }};

    EXPECT_EQ(dialog.DoModal(), IDOK);

    EXPECT_EQ(dialog.text, "\xB5g");
    EXPECT_EQ(dialog.checked, 1);
}

TEST(Dialog, CancelLeavesTheMembersAlone) {
    ScriptedDialog dialog{[](ScriptedDialog& self) {
        self.SetDlgItemText(IDC_TEST_TEXT, "new");
        self.SendMessage(WM_COMMAND, IDCANCEL);
    }};
    dialog.text = "old";

    EXPECT_EQ(dialog.DoModal(), IDCANCEL);

    EXPECT_EQ(dialog.text, "old");
}

TEST(Dialog, CloseBoxCancels) {
    ScriptedDialog dialog{[](ScriptedDialog& self) { self.SendMessage(WM_CLOSE); }};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Dialog, TheFirstOfTwoEndsCounts) {
    ScriptedDialog dialog{[](ScriptedDialog& self) {
        self.EndDialog(5);
        self.EndDialog(6);
    }};
    EXPECT_EQ(dialog.DoModal(), 5);
}

TEST(Dialog, RunsWithinAHandlerOfAnother) {
    std::vector<std::string> order;
    ScriptedDialog outer{[&](ScriptedDialog& self) {
        ScriptedDialog inner{[&](ScriptedDialog& nested) {
                                 EXPECT_FALSE(::IsWindowEnabled(self.m_hWnd));
                                 order.push_back("inner");
                                 nested.EndDialog(2);
                             },
                             self.m_hWnd};
        EXPECT_EQ(inner.DoModal(), 2);
        EXPECT_TRUE(::IsWindowEnabled(self.m_hWnd));
        order.push_back("outer");
        self.EndDialog(1);
    }};

    EXPECT_EQ(outer.DoModal(), 1);

    EXPECT_EQ(order, (std::vector<std::string>{"inner", "outer"}));
}

TEST(Dialog, ClosedWhileItsHandlerDispatchesMessagesIsOverWhenTheHandlerIs) {
    bool handlerWentOn = false;
    ScriptedDialog dialog{[&](ScriptedDialog& self) {
        EXPECT_TRUE(::IsWindowVisible(self.m_hWnd));
        ::PostMessageW(self.m_hWnd, WM_CLOSE, 0, 0);
        plotvane::test::DispatchAll();
        EXPECT_TRUE(::IsWindow(self.m_hWnd));
        EXPECT_FALSE(::IsWindowVisible(self.m_hWnd));
        handlerWentOn = true;
    }};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_TRUE(handlerWentOn);
}

TEST(Dialog, AnExceptionOfAHandlerStaysInside) {
    ScriptedDialog dialog{[](ScriptedDialog& self) {
        ::PostMessageW(self.m_hWnd, WM_COMMAND, IDCANCEL, 0);
        throw std::runtime_error("a handler failed");
    }};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

// What OnInitDialog does is up to the test.
class StartingDialog : public CDialog {
public:
    explicit StartingDialog(std::function<void(StartingDialog&)> toRun)
        : CDialog(IDD_TEST_EXCHANGE), start(std::move(toRun)) {}
    std::function<void(StartingDialog&)> start;

protected:
    BOOL OnInitDialog() override {
        start(*this);
        return TRUE;
    }
};

TEST(Dialog, MayEndBeforeItIsShown) {
    StartingDialog dialog{[](StartingDialog& self) { self.EndDialog(9); }};
    EXPECT_EQ(dialog.DoModal(), 9);
}

TEST(Dialog, ThatCannotBeSetUpDoesNotRun) {
    StartingDialog dialog{[](StartingDialog&) { throw std::runtime_error("in OnInitDialog"); }};
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST(Dialog, WithoutATemplateDoesNotRun) {
    class Nowhere : public CDialog {
    public:
        Nowhere() : CDialog(64000) {}
    };
    Nowhere dialog;
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(dialog.DoModal(), -1);
}

TEST(Dialog, DoesNotRunTwiceAtATime) {
    ScriptedDialog dialog{[](ScriptedDialog& self) {
        EXPECT_EQ(self.DoModal(), -1);
        self.EndDialog(4);
        EXPECT_EQ(self.DoModal(), -1);  // the first run is not over yet
    }};
    EXPECT_EQ(dialog.DoModal(), 4);
}

TEST(Dialog, KeepsItsMembersWhenThereAreNoControlsToReadFrom) {
    ScriptedDialog dialog{[](ScriptedDialog& self) { self.EndDialog(1); }};
    dialog.text = "kept";
    dialog.DoModal();
    dialog.UpdateData(true);
    EXPECT_EQ(dialog.text, "kept");
}

// An OK handler of its own takes the place of the base class's.
class StayingDialog : public ScriptedDialog {
public:
    using ScriptedDialog::ScriptedDialog;
    int oks = 0;

private:
    void OnOK() override { ++oks; }
};

TEST(Dialog, DoesWhatItsOwnOkHandlerSays) {
    StayingDialog dialog{[](ScriptedDialog& self) {
        self.SendMessage(WM_COMMAND, IDOK);
        self.SendMessage(WM_COMMAND, IDOK);
        self.SendMessage(WM_COMMAND, IDCANCEL);
    }};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.oks, 2);
}

TEST(DataExchange, LeavesAControlAloneThatShowsTheTextAlready) {
    int changes = -1;
    ScriptedDialog dialog{[&](ScriptedDialog& self) {
        self.SendDlgItemMessage(IDC_TEST_TEXT, EM_SETSEL, 1, 3);
        self.UpdateData(false);
        DWORD first = 0;
        DWORD last = 0;
        self.SendDlgItemMessage(IDC_TEST_TEXT, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                                reinterpret_cast<LPARAM>(&last));
        changes = first == 1 && last == 3 ? 0 : 1;  // setting a text would lose the selection
        self.EndDialog(1);
    }};
    dialog.text = "abcd";
    dialog.DoModal();
    EXPECT_EQ(changes, 0);
}

TEST(Dialog, CanRunAgain) {
    ScriptedDialog dialog{[](ScriptedDialog& self) { self.EndDialog(3); }};
    EXPECT_EQ(dialog.DoModal(), 3);
    EXPECT_EQ(dialog.DoModal(), 3);
}

}  // namespace
