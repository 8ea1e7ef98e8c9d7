// Dialogs that begin with the first of their controls and make the others later.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <stdexcept>
#include <vector>

#include "framework/Dialog.h"
#include "framework/DialogTemplate.h"
#include "res/resource.h"
#include "tests/windows/support/test_dialogs.h"

namespace {

// Everything that tells one control from another; the handles apart.
struct Child {
    int id;
    std::wstring windowClass;
    std::wstring text;
    LONG_PTR style;
    LONG_PTR exStyle;
    LONG left, top, right, bottom;
    LRESULT font;

    bool operator==(const Child&) const = default;
};

[[maybe_unused]] void PrintTo(const Child& child, std::ostream* out) {
    *out << "control " << child.id << " at " << child.left << ',' << child.top << " style " << std::hex
         << child.style << ' ' << child.exStyle << std::dec;
}

// From the topmost downwards. `lower` is taken from their places, and the dialog's own font is 1.
std::vector<Child> ChildrenOf(HWND dialog, int lower = 0) {
    std::vector<Child> children;
    const LRESULT dialogFont = ::SendMessageW(dialog, WM_GETFONT, 0, 0);
    for (HWND window = ::GetTopWindow(dialog); window; window = ::GetWindow(window, GW_HWNDNEXT)) {
        wchar_t windowClass[64] = L"";
        wchar_t text[64] = L"";
        ::GetClassNameW(window, windowClass, 64);
        ::GetWindowTextW(window, text, 64);
        RECT place;
        ::GetWindowRect(window, &place);
        ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        children.push_back({::GetDlgCtrlID(window), windowClass, text, ::GetWindowLongPtrW(window, GWL_STYLE),
                            ::GetWindowLongPtrW(window, GWL_EXSTYLE), place.left, place.top - lower,
                            place.right, place.bottom - lower,
                            ::SendMessageW(window, WM_GETFONT, 0, 0) == dialogFont});
    }
    return children;
}

int DefaultButtonOf(HWND dialog) {
    return LOWORD(::SendMessageW(dialog, DM_GETDEFID, 0, 0));
}

// As Windows makes it by itself.
class WindowsOwnDialog {
public:
    explicit WindowsOwnDialog(UINT id)
        : m_window(::CreateDialogParamW(
              ::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), nullptr,
              [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0)) {}
    ~WindowsOwnDialog() { ::DestroyWindow(m_window); }
    HWND Get() const { return m_window; }

private:
    HWND m_window;
};

// Begins with some of the controls of the template; `script` runs as its start and has to end it.
class LateDialog : public CDialog {
public:
    LateDialog(UINT id, std::size_t firstControls, std::function<void(LateDialog&)> toRun)
        : CDialog(id, nullptr, firstControls), script(std::move(toRun)) {}

    using CDialog::CreateOtherControls;

    std::function<void(LateDialog&)> script;

protected:
    BOOL OnInitDialog() override {
        script(*this);
        EndDialog(1);
        return TRUE;
    }
};

TEST(LateControls, TheDialogBeginsWithTheFirstOnes) {
    std::vector<int> ids;
    LateDialog dialog(IDD_TEST_EXCHANGE, 2, [&](LateDialog& self) {
        for (const Child& child : ChildrenOf(self.m_hWnd)) ids.push_back(child.id);
    });

    EXPECT_EQ(dialog.DoModal(), 1);

    EXPECT_EQ(ids, (std::vector<int>{IDC_TEST_TEXT, IDC_TEST_CHECK}));
}

TEST(LateControls, AreTheSameThatWindowsMakes) {
    for (const UINT id : {UINT{IDD_TEST_EXCHANGE}, UINT{IDD_MAIN}, UINT{IDD_PREFS}}) {
        const WindowsOwnDialog expected(id);
        LateDialog dialog(id, 1, [&](LateDialog& self) {
            self.CreateOtherControls(0);
            EXPECT_THAT(ChildrenOf(self.m_hWnd), testing::ElementsAreArray(ChildrenOf(expected.Get())))
                << "dialog " << id;
            EXPECT_EQ(DefaultButtonOf(self.m_hWnd), DefaultButtonOf(expected.Get())) << "dialog " << id;
        });
        EXPECT_EQ(dialog.DoModal(), 1);
    }
}

TEST(LateControls, StandAsMuchLowerAsAskedForButTheFirstOnesStay) {
    const WindowsOwnDialog natural(IDD_TEST_EXCHANGE);
    const std::vector<Child> expected = ChildrenOf(natural.Get());
    LateDialog dialog(IDD_TEST_EXCHANGE, 1, [&](LateDialog& self) {
        self.CreateOtherControls(37);
        EXPECT_EQ(ChildrenOf(self.m_hWnd).front(), expected.front());
        const std::vector<Child> moved = ChildrenOf(self.m_hWnd, 37);
        ASSERT_EQ(moved.size(), expected.size());
        for (std::size_t i = 1; i < moved.size(); ++i) EXPECT_EQ(moved[i], expected[i]);
    });
    EXPECT_EQ(dialog.DoModal(), 1);
}

TEST(LateControls, OfADialogThatHasAllOfThemAreNone) {
    LateDialog dialog(IDD_TEST_EXCHANGE, CDialog::kAllControls, [&](LateDialog& self) {
        const std::vector<Child> all = ChildrenOf(self.m_hWnd);
        self.CreateOtherControls(0);
        EXPECT_EQ(ChildrenOf(self.m_hWnd), all);
    });
    EXPECT_EQ(dialog.DoModal(), 1);
}

TEST(DialogTemplate, ThatDoesNotExistIsEmpty) {
    DialogTemplate missing(64000);
    missing.KeepFirst(1);
    EXPECT_EQ(missing.Get(), nullptr);
    EXPECT_THROW(missing.Controls(), std::runtime_error);
}

TEST(DialogTemplate, ReadsClassesByNumberAndByNamePicturesAndWhatFollowsCreationData) {
    const std::vector<TemplateControl> controls = DialogTemplate(IDD_TEST_FORMS).Controls();
    ASSERT_EQ(controls.size(), 3u);
    EXPECT_EQ(controls[0].windowClass, L"Static");
    EXPECT_EQ(controls[0].text, L"\xFFFF\x138C") << "the picture 5004";
    EXPECT_EQ(controls[1].windowClass, L"MSCTLS_PROGRESS32");
    EXPECT_EQ(controls[1].text, L"odd") << "what follows it stands at the next multiple of four";
    EXPECT_EQ(controls[2].windowClass, L"COMBOBOX");
    EXPECT_EQ(controls[2].id, IDC_TEST_CHECK);
    EXPECT_EQ(controls[2].x, -3);
    EXPECT_EQ(controls[2].y, 20);
    EXPECT_EQ(controls[2].width, 60);
    EXPECT_EQ(controls[2].height, 100);
}

TEST(DialogTemplate, ThatEndsTooEarlyIsNotRead) {
    EXPECT_THROW(DialogTemplate(IDD_TEST_CUT_OFF).Controls(), std::runtime_error);
}

TEST(DialogTemplate, WithAnUnknownClassNumberIsNotRead) {
    EXPECT_THROW(DialogTemplate(IDD_TEST_NO_CLASS).Controls(), std::runtime_error);
}

}  // namespace
