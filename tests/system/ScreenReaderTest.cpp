// What a screen reader is told of every control.
#include "tests/support/system/ScreenReader.h"

#include <oleacc.h>

#include <map>
#include <set>

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

// Labels and frames only stand around the other controls. A label has the name of the control beside it.
bool IsLabelOrFrame(HWND control) {
    const long role = RoleOnWindows(control);
    return role == ROLE_SYSTEM_STATICTEXT || role == ROLE_SYSTEM_GRAPHIC || role == ROLE_SYSTEM_GROUPING;
}

class ScreenReaderTest : public Replay {
protected:
    // With a module whose labels are known.
    void StartLive() {
        std::filesystem::create_directory(session.Folder() / "labels");
        WriteBytes(session.Folder() / "labels" / "038-906-019-FT.LBL",
                   "001,0,Engine\r\n001,1,Engine speed,actual\r\n");
        session.StartWithHost();
        main = session.Main();
    }
    RemoteWindow OpenPreferences() {
        main.Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
        return session.DialogWith(IDC_PREFS_ROW_NEXT);
    }
    Spoken Read(int id) const { return reader.Read(main.Control(id).Get()); }
    std::wstring NameOf(const RemoteWindow& dialog, int id) const {
        return reader.Read(dialog.Control(id).Get()).name;
    }
    std::wstring NameOf(int id) const { return NameOf(main, id); }

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
    // Every control that can have the focus or shows a value has a name of its own, hidden ones too. `texts`
    // are labels that show a value. Returns how many controls these are.
    std::size_t ExpectEachNamed(const RemoteWindow& dialog, const std::set<int>& texts) const {
        std::map<std::wstring, int> names;
        for (const auto& [control, spoken] : ReadAll(dialog)) {
            const int id = ::GetDlgCtrlID(control);
            if (IsLabelOrFrame(control) && !texts.contains(id)) continue;
            EXPECT_GT(spoken.name.size(), 2u) << id;
            const auto [other, isFirst] = names.emplace(spoken.name, id);
            EXPECT_TRUE(isFirst) << id << " and " << other->second << ": "
                                 << ::testing::PrintToString(spoken.name);
        }
        return names.size();
    }
    std::size_t ExpectEachNamed() const { return ExpectEachNamed(main, {IDC_REPLAY_SPEED, IDC_SHIFT_LABEL}); }

    const ScreenReader reader;
};

// Slots have a value box, a check box, a swatch and an A/F button each, channels the first three. The others
// are eleven buttons, Max, Min, the chart, the pixel shift, and speed and time of the replay.
constexpr std::size_t kMainControls = 12 * 4 + 10 * 3 + 11 + 6;

TEST_F(ScreenReaderTest, HearsOfEveryControlOfTheMainDialogWhatItIs) {
    Start();
    const auto controls = ReadAll(main);
    EXPECT_GT(controls.size(), 110u);
    ExpectEachAsItIs(controls);
}

TEST_F(ScreenReaderTest, HearsAnotherNameForEachControlOfTheMainDialog) {
    Start();
    EXPECT_EQ(ExpectEachNamed(), kMainControls);
    EXPECT_EQ(NameOf(IDC_SCALE_NEXT), L"Next value");
    EXPECT_EQ(NameOf(IDC_REPLAY_SLOWER), L"Slower");
    EXPECT_EQ(NameOf(IDC_SHOW_FIRST + 5), L"Draw this value, B2");
    EXPECT_EQ(NameOf(IDC_VALUE_FIRST + 5), L"Value, B2");
    EXPECT_EQ(NameOf(IDC_SWATCH_WINDOW_FIRST + 5), L"Color, B2");
    EXPECT_EQ(NameOf(IDC_AIR_FUEL_FIRST + 5), L"A/F, B1") << "buttons are not numbered as slots are";
    EXPECT_EQ(NameOf(IDC_CHART), L"Chart");
    EXPECT_EQ(NameOf(IDC_ELAPSED), L"Replay time");
    EXPECT_EQ(NameOf(IDC_REPLAY_SPEED), L"Replay speed, 1x");
    EXPECT_EQ(NameOf(IDC_SHIFT_LABEL), L"PixelShift:3");
}

TEST_F(ScreenReaderTest, LeavesTheTextsOfTheWindowsAsTheyWere) {
    Start();
    ReadAll(main);
    EXPECT_EQ(main.Text(IDC_SCALE_NEXT), L"+");
    EXPECT_EQ(main.Text(IDC_AIR_FUEL_FIRST + 5), L"A/F");
    EXPECT_EQ(main.Text(IDC_REPLAY_SPEED), L"1x");
    for (const int id : {IDC_SHOW_FIRST, IDC_VALUE_FIRST, IDC_SWATCH_WINDOW_FIRST, IDC_CHART, IDC_SCALE_MAX})
        EXPECT_EQ(main.Text(id), L"") << id;
}

TEST_F(ScreenReaderTest, HearsTheFieldOfABoxAndItsValue) {
    StartLive();
    EXPECT_EQ(NameOf(IDC_VALUE_FIRST), L"Value, A1");
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    const Spoken spoken = Read(IDC_VALUE_FIRST);
    EXPECT_EQ(spoken.name, L"Engine - Engine speed actual, A1");
    EXPECT_EQ(spoken.role, ROLE_SYSTEM_TEXT);
    EXPECT_EQ(spoken.value, L"780 /min");
    EXPECT_TRUE(spoken.state & STATE_SYSTEM_READONLY);
    EXPECT_EQ(NameOf(IDC_VALUE_FIRST + 3), L"Engine, A4");
    EXPECT_EQ(NameOf(IDC_VALUE_FIRST + 4), L"Value, B1");
    EXPECT_EQ(ExpectEachNamed(), kMainControls);
    session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(session.Shows(0, L"1780 /min"));
    EXPECT_EQ(Read(IDC_VALUE_FIRST).value, L"1780 /min");
}

TEST_F(ScreenReaderTest, HearsWhichValueTheLimitsAreFor) {
    StartLive();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(Becomes([this] { return NameOf(IDC_SCALE_MAX); }, std::wstring(L"Max, A1")));
    main.Focus(IDC_VALUE_FIRST + 2);
    EXPECT_TRUE(Becomes([this] { return NameOf(IDC_SCALE_MAX); }, std::wstring(L"Max, A3")));
    EXPECT_EQ(NameOf(IDC_SCALE_MIN), L"Min, A3");
    EXPECT_EQ(Read(IDC_SCALE_MAX).value, L"250");
}

TEST_F(ScreenReaderTest, HearsTheTenChannelsOfGenericObdData) {
    StartLive();
    std::string record = "038 906 019 FT,";
    for (int channel = 0; channel < 10; ++channel)
        record += "GZER,F" + std::to_string(channel) + "," + std::to_string(120 + channel) + ",,";
    for (int slot = 4; slot < 12; ++slot) record += "G000,,,,";
    session.Host().SendRecord(record);
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_CHANNEL_VALUE_FIRST + 9); }, std::wstring(L"129")));
    for (int channel = 0; channel < 10; ++channel) {
        const Spoken spoken = Read(IDC_CHANNEL_VALUE_FIRST + channel);
        EXPECT_EQ(spoken.name, L"Value, " + std::to_wstring(channel + 1));
        EXPECT_EQ(spoken.value, std::to_wstring(120 + channel));
    }
    EXPECT_EQ(ExpectEachNamed(), kMainControls);
}

TEST_F(ScreenReaderTest, HearsOfEveryControlOfThePreferencesWhatItIs) {
    Start();
    const auto controls = ReadAll(OpenPreferences());
    EXPECT_GT(controls.size(), 50u);
    ExpectEachAsItIs(controls);
}

// Nine sliders with their numbers, four lists, four check boxes, seven edits, five buttons, three swatches
// and the number of the unit.
TEST_F(ScreenReaderTest, HearsAnotherNameForEachControlOfThePreferences) {
    Start();
    const RemoteWindow dialog = OpenPreferences();
    EXPECT_EQ(ExpectEachNamed(dialog, {IDC_PREFS_ROW_LABEL}), 9u * 2 + 4 + 4 + 7 + 5 + 3 + 1);
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_GRID_GREEN), L"Green, Grid");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_BACK_RED_TEXT + 2), L"Value, Blue, Background");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_SWATCH_WINDOW_FIRST + 1), L"Color, Grid");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_TRACE_LIST), L"Line");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_ROW_PREVIOUS), L"Previous unit");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_ROW_NEXT), L"Next unit");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_NEW_ROW), L"New");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_THICKNESS), L"Plot thickness:");
    EXPECT_EQ(dialog.Text(IDC_PREFS_ROW_NEXT), L"+");
}

TEST_F(ScreenReaderTest, HearsTheChosenLineInTheNamesOfItsRow) {
    Start();
    const RemoteWindow dialog = OpenPreferences();
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_TRACE_RED), L"Red, Line 1");
    dialog.Control(IDC_PREFS_TRACE_LIST).Send(CB_SETCURSEL, 11);
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_TRACE_RED), L"Red, Line 12");
    EXPECT_EQ(NameOf(dialog, IDC_PREFS_TRACE_PRESET), L"Color presets, Line 12");
    const HWND edit = ::GetWindow(dialog.Control(IDC_PREFS_TRACE_PRESET).Get(), GW_CHILD);
    EXPECT_EQ(reader.Read(edit).name, L"Color presets, Line 12") << "the edit gets the focus";
}

}  // namespace
}  // namespace plotvane::test
