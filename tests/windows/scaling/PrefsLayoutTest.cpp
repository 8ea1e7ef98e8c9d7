#include <string>
#include <vector>

#include "framework/Dc.h"
#include "tests/windows/scaling/PrefsDlgFixture.h"

namespace plotvane::test {
namespace {

struct Placed {
    HWND window;
    CRect rect;  // screen pixels
};

class PrefsDlgLayout : public PrefsDlgFixture {
protected:
    static std::wstring ClassOf(HWND window) {
        wchar_t name[32]{};
        ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
        return name;
    }

    static bool IsGroupBox(HWND window) {
        const LONG_PTR type = ::GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK;
        return ClassOf(window) == L"Button" && type == BS_GROUPBOX;
    }

    // Pixels that a control needs beside its text: edges, a check mark, the button of a list.
    static int BesideTextOf(HWND window) {
        const std::wstring name = ClassOf(window);
        if (name == L"Static") return 0;
        return name == L"Edit" ? 8 : 20;
    }

    // All visible controls except the group boxes and the swatches, which cover their placeholders.
    static std::vector<Placed> ShownControls(HWND dialog) {
        std::vector<Placed> controls;
        for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
            if (::GetDlgCtrlID(child) >= IDC_PREFS_SWATCH_WINDOW_FIRST || IsGroupBox(child)) continue;
            Placed placed{child, {}};
            ::GetWindowRect(child, &placed.rect);
            controls.push_back(placed);
        }
        return controls;
    }
};

TEST_F(PrefsDlgLayout, TabGoesThroughTheRowsAsTheEyeDoes) {
    Use([](DialogUser& user) {
        const int order[] = {1216, 1218,    1220, 1226,              // background
                             1217, 1219,    1221, 1227,              // grid
                             1225, 1222,    1223, 1224, 1228,        // trace
                             1229, 1230,    1231, 1233, 1234,        // options
                             1235, 1236,    1237,                    // fuel
                             1098, 1097,    1200, 1232, 1054, 1055,  // default scaling
                             IDOK, IDCANCEL};
        HWND control = user.Focus();
        for (const int id : order) {
            EXPECT_EQ(::GetDlgCtrlID(control), id);
            control = ::GetNextDlgTabItem(user.Dialog(), control, FALSE);
        }
        EXPECT_EQ(::GetDlgCtrlID(control), order[0]);
    });
}

TEST_F(PrefsDlgLayout, NoControlReachesIntoAnotherOrOutOfTheDialog) {
    Use([](DialogUser& user) {
        RECT client{};
        ::GetClientRect(user.Dialog(), &client);
        ::MapWindowPoints(user.Dialog(), nullptr, reinterpret_cast<POINT*>(&client), 2);
        const auto controls = ShownControls(user.Dialog());
        ASSERT_GT(controls.size(), 40u);
        for (const Placed& one : controls) {
            RECT common{};
            ::IntersectRect(&common, &client, &one.rect);
            EXPECT_TRUE(::EqualRect(&common, &one.rect)) << ::GetDlgCtrlID(one.window);
            for (const Placed& other : controls) {
                if (one.window == other.window) continue;
                EXPECT_FALSE(::IntersectRect(&common, &one.rect, &other.rect))
                    << ::GetDlgCtrlID(one.window) << " and " << ::GetDlgCtrlID(other.window);
            }
        }
    });
}

TEST_F(PrefsDlgLayout, TextsFitIntoTheirControls) {
    std::string file;
    for (int row = 0; row < 256; ++row) file += "V,0,20,\r\n";
    WriteBytes(TableFile(), file);
    Use([](DialogUser& user) {
        for (int i = 1; i < 256; ++i) user.Click(1097);
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(1212), "Field#: 256/256");  // the longest there is
        user.Choose(1225, 11);
        for (const int preset : {1226, 1227, 1228}) user.Choose(preset, 6);  // DkGreen
        const auto font = reinterpret_cast<HFONT>(::SendMessageW(user.Dialog(), WM_GETFONT, 0, 0));
        for (const Placed& control : ShownControls(user.Dialog())) {
            wchar_t text[64]{};
            ::SendMessageW(control.window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
            const HDC dc = ::GetDC(control.window);
            const HGDIOBJ before = ::SelectObject(dc, font);
            RECT needed{};
            ::DrawTextW(dc, text, -1, &needed, DT_CALCRECT | DT_SINGLELINE);
            ::SelectObject(dc, before);
            ::ReleaseDC(control.window, dc);
            EXPECT_LE(needed.right + BesideTextOf(control.window), control.rect.Width())
                << ::GetDlgCtrlID(control.window) << ' ' << ToBytes(text);
        }
    });
}

}  // namespace
}  // namespace plotvane::test
