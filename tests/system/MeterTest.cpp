// The user opens meters of fields by a right click, and the drive moves them.
#include <gtest/gtest.h>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

using Titles = std::multiset<std::wstring>;

constexpr COLORREF kFirstTraceColour = 0x0000FF;

// One field in the first slot, with 0..6000 as its range.
std::string SpeedRecord(int speed) {
    return RecordOf("038 906 019 FT", "G001,F0," + std::to_string(speed) + ",/min,G000,,,,G000,,,,G000,,,,");
}

class Meters : public ::testing::Test {
protected:
    void Start() {
        session.StartWithHost();
        session.Host().SendRecord(kFirstRecord);
        main = session.Main();
        ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
        ASSERT_TRUE(Becomes([this] { return main.IsChecked(IDC_SHOW_FIRST + 3); }, true));
    }
    static std::pair<LONG, LONG> CornerOf(const RemoteWindow& meter) {
        const RECT place = meter.ScreenRect();
        return {place.left, place.top};
    }

    Session session;
    RemoteWindow main;
};

TEST_F(Meters, ARightClickOnASwatchOpensTheMeterOfItsField) {
    Start();
    for (int slot = 0; slot < 4; ++slot) RightClick(main, IDC_SWATCH_FIRST + slot);
    EXPECT_EQ(MeterTitles(main), (Titles{L"Plotvane Meter - /min",
                                         L"Plotvane Meter - \u00B0"
                                         L"C",
                                         L"Plotvane Meter - km/h", L"Plotvane Meter - l/h"}));
    std::set<std::pair<LONG, LONG>> corners;
    for (const RemoteWindow& meter : OpenMeters(main)) {
        corners.insert(CornerOf(meter));
        EXPECT_EQ(meter.Size().cx, 200);
        EXPECT_EQ(meter.Size().cy, 200);
    }
    EXPECT_EQ(corners, (std::set<std::pair<LONG, LONG>>{{0, 0}, {0, 32}, {0, 64}, {0, 96}}));
}

// With real mouse messages: the swatch does not handle the button and passes it on.
TEST_F(Meters, TheRightMouseButtonOverASwatchIsTheRightClick) {
    Start();
    main.Control(IDC_SWATCH_WINDOW_FIRST + 1).Send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
    main.Control(IDC_SWATCH_WINDOW_FIRST + 1).Send(WM_RBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(MeterTitles(main), (Titles{L"Plotvane Meter - \u00B0"
                                         L"C"}));
}

TEST_F(Meters, TheLabelOfTheFieldIsTheTitle) {
    std::filesystem::create_directory(session.Folder() / "labels");
    WriteBytes(session.Folder() / "labels" / "038-906-019-FT.LBL",
               "; labels\r\n001,0,Idle\r\n001,1,Engine speed,actual\r\n001,3,Speed\r\n");
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    RightClick(main, IDC_SWATCH_FIRST + 1);
    RightClick(main, IDC_SWATCH_FIRST + 2);
    EXPECT_EQ(MeterTitles(main), (Titles{L" Engine speed actual",
                                         L"Plotvane Meter - \u00B0"
                                         L"C",
                                         L" Speed "}));
}

TEST_F(Meters, AnUntickedFieldOpensNone) {
    Start();
    main.SetChecked(IDC_SHOW_FIRST + 2, false);
    RightClick(main, IDC_SWATCH_FIRST + 2);
    RightClick(main, IDC_SWATCH_FIRST + 7);  // not in use, and therefore not ticked
    EXPECT_EQ(MeterTitles(main), Titles{});
}

TEST_F(Meters, AFieldHasOneMeter) {
    Start();
    for (int click = 0; click < 3; ++click) RightClick(main, IDC_SWATCH_FIRST);
    EXPECT_EQ(OpenMeters(main).size(), 1u);
}

TEST_F(Meters, AClickBesideTheSwatchesAndTheMenuKeyOpenNone) {
    Start();
    RightClick(main, IDC_CHART);
    RightClick(main, IDC_SHOW_FIRST);
    RightClick(main, IDC_CHANNEL_SWATCH_FIRST);  // hidden, and not in this layout
    main.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(main.Get()), MAKELPARAM(-1, -1));
    EXPECT_EQ(MeterTitles(main), Titles{});
}

TEST_F(Meters, AClosedMeterCanBeOpenedAgain) {
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    OpenMeters(main).front().Close();
    ASSERT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 0u));
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    RightClick(main, IDC_SWATCH_FIRST);
    EXPECT_EQ(OpenMeters(main).size(), 1u);
}

TEST_F(Meters, TheNeedleFollowsTheField) {
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    const RemoteWindow meter = OpenMeters(main).front();
    for (const auto& [speed, side] : {std::pair(300, -1), std::pair(5700, 1), std::pair(900, -1)}) {
        session.Host().SendRecord(SpeedRecord(speed));
        EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, side)) << speed;
    }
}

TEST_F(Meters, TheNeedleFollowsAlsoWhenTheTraceIsUnticked) {
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    const RemoteWindow meter = OpenMeters(main).front();
    main.SetChecked(IDC_SHOW_FIRST, false);
    for (const auto& [speed, side] : {std::pair(5700, 1), std::pair(300, -1)}) {
        session.Host().SendRecord(SpeedRecord(speed));
        EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, side)) << speed;
    }
    EXPECT_FALSE(main.IsChecked(IDC_SHOW_FIRST));
}

TEST_F(Meters, ANewLimitReachesTheMeterWithTheNextRecord) {
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    const RemoteWindow meter = OpenMeters(main).front();
    session.Host().SendRecord(SpeedRecord(1200));
    // This record uses other slots, so the program selects the first one again and shows its old limit. Wait
    // for the record before typing.
    ASSERT_TRUE(session.Shows(0, L"1200 /min"));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, -1));
    main.Type(IDC_SCALE_MAX, L"1300");
    main.Focus(IDC_SCALE_MIN);
    session.Host().SendRecord(SpeedRecord(1200));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, 1));
}

TEST_F(Meters, AnObdFieldHasItsOwn) {
    session.StartWithHost();
    main = session.Main();
    std::string record = "038 906 019 FT,";
    for (int field = 0; field < 10; ++field) record += "GZER,F" + std::to_string(field) + ",250,,";
    for (int slot = 4; slot < 12; ++slot) record += "G000,,,,";
    session.Host().SendRecord(record);
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_CHANNEL_VALUE_FIRST + 9); }, L"250"));
    ASSERT_TRUE(Becomes([this] { return main.Text(IDC_VALUE_LAST); }, L"0 "));

    RightClick(main, IDC_CHANNEL_SWATCH_FIRST + 2);
    RightClick(main, IDC_CHANNEL_SWATCH_FIRST + 2);
    ASSERT_EQ(MeterTitles(main), (Titles{L"Field#3"}));
    const RemoteWindow meter = OpenMeters(main).front();
    EXPECT_EQ(CornerOf(meter), (std::pair<LONG, LONG>(64, 0)));
    session.Host().SendRecord(record);
    constexpr COLORREF kThirdTraceColour = 0x00FFFF;
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kThirdTraceColour); }, 1));  // 250 of 255

    main.SetChecked(IDC_CHANNEL_SHOW_FIRST + 4, false);
    RightClick(main, IDC_CHANNEL_SWATCH_FIRST + 4);
    RightClick(main, IDC_SWATCH_FIRST);  // hidden in this layout
    EXPECT_EQ(MeterTitles(main), (Titles{L"Field#3"}));
}

TEST_F(Meters, CloseWithTheProgramWhileDataFlows) {
    Start();
    for (int slot = 0; slot < 4; ++slot) RightClick(main, IDC_SWATCH_FIRST + slot);
    main.Click(IDC_MILEAGE);
    ASSERT_EQ(OpenMeters(main).size(), 5u);
    for (int i = 0; i < 20; ++i) session.Host().SendRecord(i % 2 == 0 ? kFirstRecord : kSecondRecord);
    EXPECT_TRUE(session.Closes());
    EXPECT_EQ(session.Process().ExitCode(), 0u);
}

TEST_F(Meters, StayOpenWhenTheHostStopsAndGoOnWhenItSendsAgain) {
    Start();
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    const RemoteWindow meter = OpenMeters(main).front();
    session.Host().StopSending();
    ASSERT_TRUE(
        Becomes([this] { return BytesOf(session.Scaling(kScalingFile)); }, ScalingBytes(3, kUnitRanges)));
    main.PostClick(IDC_PAUSE);
    session.Host().SendRecord(SpeedRecord(5700));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, 1));
}

}  // namespace
}  // namespace plotvane::test
