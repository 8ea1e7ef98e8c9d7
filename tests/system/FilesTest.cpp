// Which bytes the program leaves on the disk.
#include <gtest/gtest.h>

#include <set>

#include "tests/support/DegreeSign.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

std::string PrefsBytes(const std::string& width, const std::string& height) {
    return "BackColor=0\r\nGridColor=ffffff\r\nLine0Color=ff\r\nLine1Color=ff00\r\nLine2Color=ffff\r\n"
           "Line3Color=ffc0c0\r\nLine4Color=a0ff\r\nLine5Color=ffff00\r\nLine6Color=a000\r\n"
           "Line7Color=7f0000\r\nLine8Color=60a0\r\nLine9Color=c0c0ff\r\nLine10Color=ffa000\r\n"
           "Line11Color=a0a000\r\nThickness=0\r\nAutorun=1\r\nShowUnits=1\r\nShowZeros=0\r\n"
           "SaveWindowSize=1\r\nWidth=" +
           width + "\r\nHeight=" + height +
           "\r\nMaxMileage=60\r\nMaxConsumption=20\r\nFuelHistoryDepth=1\r\n";
}

std::set<std::string> Names(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.insert(entry.path().filename().string());
    }
    return names;
}

TEST(Files, TheFirstCloseWritesTheDefaultPreferences) {
    Session session;
    session.Start();
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), PrefsBytes("27a", "1b1"));
    EXPECT_EQ(Names(session.Scaling("")), std::set<std::string>{"Prefs.cfg"});
}

TEST(Files, TheWindowsSizeIsRestoredAndKept) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    WriteBytes(session.Scaling("Prefs.cfg"), PrefsBytes("300", "200"));
    session.Start();
    EXPECT_EQ(session.Main().Size().cx, 0x300);
    EXPECT_EQ(session.Main().Size().cy, 0x200);
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), PrefsBytes("300", "200"));
}

TEST(Files, AResizedWindowsSizeIsSaved) {
    Session session;
    session.Start();
    const HWND chart = session.Main().Control(IDC_CHART).Get();
    session.Main().ResizeTo(700, 500);
    ASSERT_TRUE(Becomes([&] { return session.Main().Control(IDC_CHART).Get() != chart; }, true));
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), PrefsBytes("2bc", "1f4"));
}

TEST(Files, AMinimisedWindowSavesTheSizeItHadBefore) {
    Session session;
    session.Start();
    ::ShowWindowAsync(session.Main().Get(), SW_MINIMIZE);
    ASSERT_TRUE(Becomes([&] { return ::IsIconic(session.Main().Get()) != FALSE; }, true));
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), PrefsBytes("27a", "1b1"));
}

TEST(Files, WithSavingTheSizeOffThePreferencesStayUntouched) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    const std::string mine = "BackColor=400000\nSaveWindowSize=0\nWidth=300\nHeight=200\n";
    WriteBytes(session.Scaling("Prefs.cfg"), mine);
    session.Start();
    EXPECT_EQ(session.Main().Size().cx, 0x300);
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling("Prefs.cfg")), mine);
}

TEST(Files, TheFirstRecordOfAModuleMakesItsScalingFileAndTheDefaults) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, kUntouchedRanges));
    EXPECT_EQ(BytesOf(session.Scaling("Defaults.cfg")),
              "/min,0,6000,\r\nV,0,20,\r\n" DEGREES_C
              ",-10,120,\r\nmg/str,0,1500,\r\n%,-50,150,\r\n"
              "km/h,0,250,\r\nmbar,900,2500,\r\nNm,0,400,\r\n\xB0,-50,50,\r\nms,0,30,\r\n");
}

TEST(Files, WhenTheHostStopsTheRangesInUseAreSaved) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    session.Host().StopSending();
    EXPECT_TRUE(
        Becomes([&] { return BytesOf(session.Scaling(kScalingFile)); }, ScalingBytes(3, kUnitRanges)));
}

TEST(Files, ClosingWhilePlottingSavesTheRangesToo) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, kUnitRanges));
    EXPECT_EQ(Names(session.Scaling("")),
              (std::set<std::string>{"038-906-019-FT.SCL", "Defaults.cfg", "Prefs.cfg"}));
}

TEST(Files, StoredRangesWinOverTheOnesOfTheUnits) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    const std::string mine = ScalingBytes(7, "500,5000,0,100,0,100,0,30,");
    WriteBytes(session.Scaling(kScalingFile), mine);
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(Becomes([&] { return main.Text(IDC_SCALE_MAX); }, L"5000"));
    EXPECT_EQ(main.Text(IDC_SCALE_MIN), L"500");
    EXPECT_EQ(main.Text(IDC_SHIFT_LABEL), L"PixelShift:7");
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(7, "500,5000,-10,120,0,250,0,30,"));
}

TEST(Files, ARecordThatCannotBeReadDoesNotReplaceStoredRanges) {
    Session session;
    std::filesystem::create_directory(session.Scaling(""));
    const std::string mine = ScalingBytes(3, "0,5000,0,100,0,100,0,100,");
    WriteBytes(session.Scaling(kScalingFile), mine);
    session.StartWithHost();
    session.Host().SendRecord(kMalformedRecord);
    ASSERT_TRUE(Becomes([&] { return session.Host().Unread(); }, 0u));
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), mine);
}

TEST(Files, AnIdentifierCannotNameAFileElsewhere) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(RecordOf("..\\..\\EVIL", "G001,F0,1,V,G001,F1,2,V,G001,F2,3,V,G001,F3,4,V,"));
    ASSERT_TRUE(session.Shows(3, L"4 V"));
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(Names(session.Folder()), std::set<std::string>{"Scaling"});
    for (const std::string& name : Names(session.Scaling(""))) {
        EXPECT_TRUE(name == "Prefs.cfg" || name == "Defaults.cfg" || name.ends_with(".SCL")) << name;
    }
}

TEST(Files, ClosingDeletesTheExchangeFile) {
    Session session;
    session.StartWithHost();
    ASSERT_TRUE(Becomes([&] { return session.Main().IsEnabled(IDC_PAUSE); }, true));
    EXPECT_TRUE(std::filesystem::exists(session.ExchangeFile()));
    ASSERT_TRUE(session.Closes());
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

}  // namespace
}  // namespace plotvane::test
