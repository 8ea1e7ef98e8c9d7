// What a screen reader is told of every control.
#include "tests/support/system/ScreenReader.h"

#include <oleacc.h>

#include <map>

#include "tests/support/system/LookAlike.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

// The role that Windows gives a window of such a class and style.
long RoleOnWindows(HWND control) {
    wchar_t name[64]{};
    ::GetClassNameW(control, name, 64);
    const std::wstring kind = name;
    const LONG_PTR style = ::GetWindowLongPtrW(control, GWL_STYLE);
    if (kind == L"Edit") return ROLE_SYSTEM_TEXT;
    if (kind == L"ComboBox") return ROLE_SYSTEM_COMBOBOX;
    if (kind == L"msctls_trackbar32") return ROLE_SYSTEM_SLIDER;
    if (kind == L"Static")
        return (style & SS_TYPEMASK) == SS_ICON ? ROLE_SYSTEM_GRAPHIC : ROLE_SYSTEM_STATICTEXT;
    if (kind != L"Button") return ROLE_SYSTEM_CLIENT;
    switch (style & BS_TYPEMASK) {
        case BS_GROUPBOX:
            return ROLE_SYSTEM_GROUPING;
        case BS_AUTOCHECKBOX:
            return style & BS_PUSHLIKE ? ROLE_SYSTEM_PUSHBUTTON : ROLE_SYSTEM_CHECKBUTTON;
        default:
            return ROLE_SYSTEM_PUSHBUTTON;
    }
}

// Wine tells only edits and lists from other windows.
bool HasItsRole(HWND control, long role) {
    return role == RoleOnWindows(control) || (RunsUnderWine() && role == ROLE_SYSTEM_CLIENT);
}

class ScreenReaderTest : public Replay {
protected:
    // Every control of the dialog, by its window.
    std::map<HWND, Spoken> ReadAll(const RemoteWindow& dialog) const {
        std::map<HWND, Spoken> all;
        for (HWND control = ::GetWindow(dialog.Get(), GW_CHILD); control;
             control = ::GetWindow(control, GW_HWNDNEXT)) {
            all[control] = reader.Read(control);
        }
        return all;
    }
    // Role and state are those of the window.
    static void ExpectEachAsItIs(const std::map<HWND, Spoken>& controls) {
        for (const auto& [control, spoken] : controls) {
            const int id = ::GetDlgCtrlID(control);
            EXPECT_TRUE(spoken.isThere) << id;
            EXPECT_TRUE(HasItsRole(control, spoken.role)) << id << ": " << spoken.role;
            EXPECT_EQ((spoken.state & STATE_SYSTEM_INVISIBLE) != 0, !::IsWindowVisible(control)) << id;
            EXPECT_EQ((spoken.state & STATE_SYSTEM_UNAVAILABLE) != 0, !::IsWindowEnabled(control)) << id;
        }
    }
    std::wstring NameOf(const RemoteWindow& dialog, int id) const {
        return reader.Read(dialog.Control(id).Get()).name;
    }

    const ScreenReader reader;
};

TEST_F(ScreenReaderTest, HearsOfEveryControlOfTheMainDialogWhatItIs) {
    Start();
    const auto controls = ReadAll(main);
    EXPECT_GT(controls.size(), 110u);
    ExpectEachAsItIs(controls);
}

TEST_F(ScreenReaderTest, HearsANameForEveryButtonAndCheckBoxAndNoneTwice) {
    Start();
    std::map<std::wstring, int> names;
    std::vector<int> ids = {IDC_STOP,           IDC_PAUSE,      IDC_LOAD_LOG,   IDC_SCALE_NEXT,
                            IDC_SCALE_PREVIOUS, IDC_SHIFT_DOWN, IDC_SHIFT_UP,   IDC_REPLAY_SLOWER,
                            IDC_REPLAY_FASTER,  IDC_MILEAGE,    IDC_CONSUMPTION};
    for (int id = IDC_SHOW_FIRST; id <= IDC_CHANNEL_SHOW_LAST; ++id) ids.push_back(id);
    for (const int id : ids) {
        const std::wstring name = NameOf(main, id);
        EXPECT_GT(name.size(), 3u) << id;
        EXPECT_TRUE(names.emplace(name, id).second) << id << " and " << names[name];
    }
    EXPECT_EQ(NameOf(main, IDC_SCALE_NEXT), L"Next value");
    EXPECT_EQ(NameOf(main, IDC_REPLAY_SLOWER), L"Slower");
    EXPECT_EQ(NameOf(main, IDC_SHOW_FIRST + 5), L"Draw this value, B2");
    EXPECT_EQ(main.Text(IDC_SCALE_NEXT), L"+") << "the text of the window is as it was";
}

TEST_F(ScreenReaderTest, HearsTheValueThatABoxShows) {
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    const Spoken spoken = reader.Read(session.Main().Control(IDC_VALUE_FIRST).Get());
    EXPECT_EQ(spoken.role, ROLE_SYSTEM_TEXT);
    EXPECT_EQ(spoken.value, L"780 /min");
    EXPECT_TRUE(spoken.state & STATE_SYSTEM_READONLY);
}

TEST_F(ScreenReaderTest, HearsOfEveryControlOfThePreferencesWhatItIs) {
    Start();
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_ROW_NEXT);
    const auto controls = ReadAll(dialog);
    EXPECT_GT(controls.size(), 50u);
    ExpectEachAsItIs(controls);
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_ROW_PREVIOUS), L"Previous unit");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_ROW_NEXT), L"Next unit");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_NEW_ROW), L"New");
    EXPECT_EQ(dialog.Text(IDC_PREFS_ROW_NEXT), L"+");
}

}  // namespace
}  // namespace plotvane::test
