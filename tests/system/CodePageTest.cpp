// Systems that have other characters than Windows-1252, and a decimal comma. Each test runs once for each of
// several countries, in a folder whose name has Cyrillic and Japanese letters. On another machine, which a
// kit takes the tests to, they run for the country of that machine.
#include <cstdlib>

#include "tests/support/DegreeSign.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Replay.h"

namespace plotvane::test {
namespace {

// What the environment says about the country; empty if nothing.
std::wstring FromEnvironment(const wchar_t* what) {
    const wchar_t* const value = _wgetenv(what);
    return value ? value : L"";
}

std::wstring DecimalSeparator() {
    wchar_t separator[8]{};
    ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
    return separator;
}

class CodePage : public Replay {
protected:
    CodePage() : Replay(u"\u041C\u043E\u0438 \u043B\u043E\u0433\u0438 \u8ECA") {}

    void SetUp() override {
        if (FromEnvironment(L"PLOTVANE_CODE_PAGE").empty()) return;
        ASSERT_EQ(std::to_wstring(::GetACP()), FromEnvironment(L"PLOTVANE_CODE_PAGE"));
        ASSERT_EQ(DecimalSeparator(), FromEnvironment(L"PLOTVANE_DECIMAL_SEPARATOR"));
    }
    void StartLive() {
        session.StartWithHost();
        main = session.Main();
    }
};

TEST_F(CodePage, ALogKeepsItsNameAndItsDecimalPoints) {
    Start();
    Load(WriteLog(u"\u041F\u043E\u0435\u0437\u0434\u043A\u0430 \u8ECA.csv",
                  LogThatLingersAt("1240.5,90.25,50,4.2")));
    ASSERT_TRUE(session.Shows(0, L"1240.5 /min"));
    EXPECT_TRUE(session.Shows(1,
                              L"90.25 \u00B0"
                              L"C"));
    EXPECT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_TRUE(Becomes([this] { return main.Text(IDC_ELAPSED); }, L"0.04"));
    main.Click(IDC_REPLAY_SLOWER);
    EXPECT_EQ(main.Text(IDC_REPLAY_SPEED), L"0.5x");
    EXPECT_TRUE(Becomes([this] { return main.Text(); },
                        L"Plotvane   -   038-906-019-FT  -   "
                        L"\u041F\u043E\u0435\u0437\u0434\u043A\u0430 \u8ECA.csv"));
    Press(IDC_STOP);
    EXPECT_TRUE(
        Becomes([this] { return BytesOf(session.Scaling(kScalingFile)); }, ScalingBytes(3, kUnitRanges)));
    EXPECT_EQ(BytesOf(session.Scaling("Defaults.cfg")),
              "/min,0,6000,\r\nV,0,20,\r\n" DEGREES_C
              ",-10,120,\r\nmg/str,0,1500,\r\n%,-50,150,\r\n"
              "km/h,0,250,\r\nmbar,900,2500,\r\nNm,0,400,\r\n\xB0,-50,50,\r\nms,0,30,\r\n");
    EXPECT_TRUE(session.Closes());
}

TEST_F(CodePage, NamesUnitsAndLabelsFromTheHostAreThoseOfWindows1252) {
    std::filesystem::create_directory(session.Folder() / "labels");
    WriteBytes(session.Folder() / "labels" / L"M\u00DCL-906-\u00A9\u00B5\u0178.LBL",
               "001,1,K\xFChlmittel \x80\r\n001,2,Luft,gem\xE4\xDF\r\n");
    StartLive();
    session.Host().SendRecord(RecordOf("M\xDCL 906 \xA9\xB5\x9F",
                                       "G001,F0,90.5," DEGREES_C
                                       ",G001,F1,12.25,\xB5g/m\xB3,G001,F2,3,k\xA7,G001,F3,4.2,l/h,"));
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_EQ(session.ValueText(0),
              L"90.5 \u00B0"
              L"C");
    EXPECT_EQ(session.ValueText(1), L"12.25 \u00B5g/m\u00B3");
    EXPECT_EQ(session.ValueText(2), L"3 k\u00A7");
    EXPECT_TRUE(Becomes([this] { return main.Text(); },
                        L"Plotvane  -  Live Data  -  M\u00DCL 906 \u00A9\u00B5\u0178"));
    RightClick(main, IDC_SWATCH_FIRST);
    RightClick(main, IDC_SWATCH_FIRST + 1);
    EXPECT_EQ(MeterTitles(main),
              (std::multiset<std::wstring>{L" K\u00FChlmittel \u20AC ", L" Luft gem\u00E4\u00DF"}));
    ASSERT_TRUE(session.Closes());
    EXPECT_TRUE(std::filesystem::exists(session.Scaling(L"M\u00DCL-906-\u00A9\u00B5\u0178.SCL")));
}

TEST_F(CodePage, UnitsInThePreferencesAreThoseOfWindows1252) {
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling("Defaults.cfg"), DEGREES_C ",-10,120,\r\nm/s\xB2,0,10,\r\n");
    Start();
    main.Post(WM_SYSCOMMAND, ID_SYSMENU_PREFERENCES);
    const RemoteWindow dialog = session.DialogWith(IDC_PREFS_ROW_UNIT);
    EXPECT_TRUE(Becomes([&] { return dialog.Text(IDC_PREFS_ROW_UNIT); },
                        L"\u00B0"
                        L"C"));
    dialog.Click(IDC_PREFS_ROW_NEXT);
    EXPECT_EQ(dialog.Text(IDC_PREFS_ROW_UNIT), L"m/s\u00B2");
    dialog.Type(IDC_PREFS_ROW_UNIT, L"\u00B5\u20ACm\u00B3");
    dialog.PostClick(IDOK);
    ASSERT_TRUE(Becomes([&] { return dialog.Exists(); }, false));
    EXPECT_EQ(BytesOf(session.Scaling("Defaults.cfg")), DEGREES_C ",-10,120,\r\n\xB5\x80m\xB3,0,10,\r\n");
    EXPECT_TRUE(session.Closes());
}

// Windows measures dialogs in widths of the font and rounds to pixels.
TEST_F(CodePage, TheControlsHaveTheSizesOfTheirLayout) {
    Start();
    EXPECT_EQ(main.Control(IDC_VALUE_FIRST).Size().cx, 74);
    EXPECT_EQ(main.Size().cx, 634);
}

}  // namespace
}  // namespace plotvane::test
