#include <gtest/gtest.h>

#include <string>

#include "framework/Text.h"
#include "framework/Wnd.h"
#include "tests/windows/framework/TestWnd.h"
#include "tests/windows/support/test_dialogs.h"

namespace {

using plotvane::test::CreateHidden;

std::string TextOf(HWND window) {
    wchar_t text[200]{};
    return ToBytes({text, static_cast<std::size_t>(::GetWindowTextW(window, text, 200))});
}

// A timer, which works while the box is shown, looks for the box, reads it and presses OK.
class BoxReader : public CWnd {
public:
    std::string text;
    std::string caption;
    int buttons = 0;
    bool ownerWasEnabled = true;

private:
    void OnTimer(UINT_PTR id) {
        const HWND box = ::FindWindowExW(nullptr, nullptr, L"#32770", L"Caption");
        if (!box) return;
        KillTimer(id);
        caption = TextOf(box);
        text = TextOf(::GetDlgItem(box, 0xFFFF));
        for (const int button : {IDOK, IDCANCEL, IDYES, IDNO, IDRETRY})
            buttons += ::GetDlgItem(box, button) != nullptr;
        ownerWasEnabled = ::IsWindowEnabled(m_hWnd) != 0;
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BoxReader, CWnd)
    ON_WM_TIMER()
END_MESSAGE_MAP()

TEST(MessageBoxText, ShowsTwoTextsOfTheTableAndAnOkButton) {
    BoxReader owner;
    ASSERT_TRUE(CreateHidden(owner));
    ASSERT_TRUE(owner.SetTimer(1, 10));

    MessageBoxText(owner.m_hWnd, IDS_TEST_TEXT, IDS_TEST_CAPTION);

    EXPECT_EQ(owner.caption, "Caption");
    EXPECT_EQ(owner.text, "Text of the \xB0 table");
    EXPECT_EQ(owner.buttons, 1);
    EXPECT_FALSE(owner.ownerWasEnabled);
    EXPECT_TRUE(::IsWindowEnabled(owner.m_hWnd));
}

}  // namespace
