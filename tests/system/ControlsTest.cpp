// The controls of the slots while data flows: the A/F switches, the ten channels of generic OBD data, the
// fuel buttons.
#include <gtest/gtest.h>

#include "tests/support/DegreeSign.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

constexpr COLORREF kFirstTraceColour = 0x0000FF;

class LiveControls : public ::testing::Test {
protected:
    void SetUp() override {
        session.StartWithHost();
        main = session.Main();
    }
    // The width of a value box in pixels.
    int WidthOf(int slot) const { return main.Control(IDC_VALUE_FIRST + slot).Size().cx; }

    Session session;
    RemoteWindow main;
};

TEST_F(LiveControls, ALimitThatIsBeingTypedWhenTheWindowClosesIsKept) {
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    main.Type(IDC_SCALE_MAX, L"5000");
    ASSERT_TRUE(session.Closes());
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, "0,5000,-10,120,0,250,0,100,"));
}

// Lambda in the first slot, in one of the groups that measure it.
std::string LambdaRecord(const std::string& lambda, const std::string& unit = "") {
    return RecordOf("038 906 019 FT", "G031,F0," + lambda + "," + unit +
                                          ",G031,F1,90.0," DEGREES_C ",G031,F2,50,km/h,G031,F3,4.2,l/h,");
}

class AirFuel : public LiveControls {
protected:
    // The button and the room it takes from its value box.
    ::testing::AssertionResult IsOffered(bool offered) {
        return Becomes([this] { return std::pair(main.IsShown(IDC_AIR_FUEL_FIRST), WidthOf(0)); },
                       std::pair(offered, offered ? 43 : 74));
    }
    void PressTheSwitch() { main.Control(IDC_AIR_FUEL_FIRST).Send(BM_CLICK); }
};

TEST_F(AirFuel, TheSwitchComesWithALambdaAndGoesWithIt) {
    EXPECT_TRUE(IsOffered(false));
    session.Host().SendRecord(LambdaRecord("1.00"));
    EXPECT_TRUE(session.Shows(0, L"1 "));
    EXPECT_TRUE(IsOffered(true));
    session.Host().SendRecord(LambdaRecord("1.31"));
    EXPECT_TRUE(session.Shows(0, L"1.31 "));
    EXPECT_TRUE(IsOffered(false));
    session.Host().SendRecord(LambdaRecord("0.60"));
    EXPECT_TRUE(session.Shows(0, L"0.6 "));
    EXPECT_TRUE(IsOffered(true));
    session.Host().SendRecord(LambdaRecord("0.80", "V"));
    EXPECT_TRUE(session.Shows(0, L"0.8 V"));
    EXPECT_TRUE(IsOffered(false));
}

TEST_F(AirFuel, TheOtherSlotsOfTheGroupKeepTheirWidth) {
    session.Host().SendRecord(LambdaRecord("1.00"));
    EXPECT_TRUE(IsOffered(true));
    for (int slot = 1; slot < 12; ++slot) EXPECT_EQ(WidthOf(slot), 74) << slot;
    for (int id = IDC_AIR_FUEL_FIRST + 1; id <= IDC_AIR_FUEL_LAST; ++id) EXPECT_FALSE(main.IsShown(id)) << id;
}

TEST_F(AirFuel, PressedItShowsTheRatioFromTheNextRecordOn) {
    session.Host().SendRecord(LambdaRecord("1.00"));
    ASSERT_TRUE(IsOffered(true));
    PressTheSwitch();
    EXPECT_TRUE(main.IsChecked(IDC_AIR_FUEL_FIRST));
    EXPECT_EQ(session.ValueText(0), L"1 ");
    session.Host().SendRecord(LambdaRecord("1.00"));
    EXPECT_TRUE(session.Shows(0, L"14.7"));
    session.Host().SendRecord(LambdaRecord("0.85"));
    EXPECT_TRUE(session.Shows(0, L"12.5"));
    EXPECT_TRUE(IsOffered(true));
    PressTheSwitch();
    session.Host().SendRecord(LambdaRecord("0.85"));
    EXPECT_TRUE(session.Shows(0, L"0.85 "));
}

TEST_F(AirFuel, TheTraceShowsTheRatioToo) {
    session.Host().SendRecord(LambdaRecord("1.00"));
    ASSERT_TRUE(IsOffered(true));
    PressTheSwitch();
    for (int i = 0; i < 3; ++i) session.Host().SendRecord(LambdaRecord("1.00"));
    const ChartOnScreen chart(main);
    EXPECT_TRUE(Becomes([&] { return chart.Rows(chart.PlotRight() - 2, kFirstTraceColour); },
                        std::vector<int>{chart.RowOf(14.7, 0, 100)}));
}

TEST_F(AirFuel, TheMeterShowsTheRatioToo) {
    session.Host().SendRecord(LambdaRecord("1.00"));
    ASSERT_TRUE(IsOffered(true));
    main.Type(IDC_SCALE_MAX, L"20");
    main.Focus(IDC_SCALE_MIN);
    session.Host().SendRecord(LambdaRecord("1.01"));
    ASSERT_TRUE(session.Shows(0, L"1.01 "));
    RightClick(main, IDC_SWATCH_FIRST);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    const RemoteWindow meter = OpenMeters(main).front();
    session.Host().SendRecord(LambdaRecord("1.02"));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, -1));  // 1.02 of 20
    PressTheSwitch();
    session.Host().SendRecord(LambdaRecord("1.02"));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kFirstTraceColour); }, 1));  // 15 of 20
}

// Generic OBD data: ten channels in place of the first four slots.

std::string TenChannelRecord(int first, int second) {
    std::string record =
        "038 906 019 FT,GZER,F0," + std::to_string(first) + ",,GZER,F1," + std::to_string(second) + ",,";
    for (int channel = 2; channel < 10; ++channel) record += "GZER,F" + std::to_string(channel) + ",0,,";
    for (int slot = 4; slot < 12; ++slot) record += "G000,,,,";
    return record;
}

class TenChannels : public LiveControls {
protected:
    ::testing::AssertionResult ShowsChannel(int channel, const std::wstring& text) {
        return Becomes([&] { return main.Text(IDC_CHANNEL_VALUE_FIRST + channel); }, text);
    }
    // Row A or the ten channels, never both.
    void ExpectTenChannels(bool ten) {
        for (int slot = 0; slot < 4; ++slot) {
            for (const int first :
                 {IDC_VALUE_FIRST, IDC_SHOW_FIRST, IDC_SWATCH_FIRST, IDC_SWATCH_WINDOW_FIRST})
                EXPECT_EQ(main.IsShown(first + slot), !ten) << first + slot;
        }
        for (int channel = 0; channel < 10; ++channel) {
            for (const int first : {IDC_CHANNEL_VALUE_FIRST, IDC_CHANNEL_SHOW_FIRST, IDC_CHANNEL_SWATCH_FIRST,
                                    IDC_CHANNEL_SWATCH_WINDOW_FIRST})
                EXPECT_EQ(main.IsShown(first + channel), ten) << first + channel;
        }
        for (int slot = 4; slot < 12; ++slot) EXPECT_TRUE(main.IsShown(IDC_VALUE_FIRST + slot)) << slot;
        EXPECT_EQ(main.IsEnabled(IDC_SCALE_MIN), !ten);
        EXPECT_EQ(main.IsEnabled(IDC_SCALE_MAX), !ten);
    }
};

TEST_F(TenChannels, TakeThePlaceOfTheFirstRow) {
    session.Host().SendRecord(TenChannelRecord(12, 128));
    EXPECT_TRUE(ShowsChannel(0, L"12"));
    EXPECT_TRUE(ShowsChannel(1, L"128"));
    for (int channel = 2; channel < 10; ++channel) EXPECT_TRUE(ShowsChannel(channel, L"0"));
    EXPECT_TRUE(session.Shows(11, L"0 "));
    ExpectTenChannels(true);
    for (int slot = 4; slot < 12; ++slot) EXPECT_EQ(session.ValueText(slot), L"0 ") << slot;
    for (int slot = 0; slot < 12; ++slot) EXPECT_FALSE(main.IsChecked(IDC_SHOW_FIRST + slot)) << slot;
    for (int channel = 0; channel < 10; ++channel)
        EXPECT_TRUE(main.IsChecked(IDC_CHANNEL_SHOW_FIRST + channel)) << channel;
    session.Host().SendRecord(TenChannelRecord(13, 128));
    EXPECT_TRUE(ShowsChannel(0, L"13"));
    EXPECT_TRUE(Becomes([this] { return ShownFrames(main); }, std::vector<int>{}));
}

TEST_F(TenChannels, AreDrawnBetweenMinus1And256) {
    for (int i = 0; i < 3; ++i) session.Host().SendRecord(TenChannelRecord(12, 128));
    const ChartOnScreen chart(main);
    const int x = chart.PlotRight() - 2;
    EXPECT_TRUE(Becomes([&] { return chart.Rows(x, kFirstTraceColour); },
                        std::vector<int>{chart.RowOf(12, -1, 256)}));
    EXPECT_EQ(chart.Rows(x, 0x00FF00), std::vector<int>{chart.RowOf(128, -1, 256)});
}

TEST_F(TenChannels, AnUntickedOneLosesColourAndTrace) {
    session.Host().SendRecord(TenChannelRecord(12, 128));
    ASSERT_TRUE(ShowsChannel(0, L"12"));
    EXPECT_TRUE(
        Becomes([&] { return MiddleOf(main.Control(IDC_CHANNEL_SWATCH_WINDOW_FIRST + 1)); }, 0x00FF00u));
    main.SetChecked(IDC_CHANNEL_SHOW_FIRST + 1, false);
    for (int i = 0; i < 3; ++i) session.Host().SendRecord(TenChannelRecord(13, 128));
    EXPECT_TRUE(ShowsChannel(0, L"13"));
    EXPECT_TRUE(Becomes([&] { return MiddleOf(main.Control(IDC_CHANNEL_SWATCH_WINDOW_FIRST + 1)); },
                        ::GetSysColor(COLOR_3DFACE)));
    EXPECT_EQ(main.Text(IDC_CHANNEL_VALUE_FIRST + 1), L"128");
    EXPECT_FALSE(main.IsChecked(IDC_CHANNEL_SHOW_FIRST + 1));
}

TEST_F(TenChannels, LieUnderTheirSwatchesAfterAnEarlierResize) {
    const HWND chart = main.Control(IDC_CHART).Get();
    main.ResizeTo(700, 500);
    ASSERT_TRUE(Becomes([&] { return main.Control(IDC_CHART).Get() != chart; }, true));
    session.Host().SendRecord(TenChannelRecord(12, 128));
    ASSERT_TRUE(ShowsChannel(0, L"12"));
    for (int channel = 0; channel < 10; ++channel) {
        const RECT placeholder = main.Control(IDC_CHANNEL_SWATCH_FIRST + channel).ScreenRect();
        const RECT swatch = main.Control(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel).ScreenRect();
        EXPECT_TRUE(::EqualRect(&placeholder, &swatch)) << channel;
    }
}

TEST_F(TenChannels, GiveWayToTheSlotsAgain) {
    session.Host().SendRecord(kFirstRecord);
    session.Host().SendRecord(TenChannelRecord(12, 128));
    ASSERT_TRUE(ShowsChannel(0, L"12"));
    ASSERT_TRUE(session.Shows(11, L"0 "));
    ExpectTenChannels(true);
    session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(session.Shows(0, L"1780 /min"));
    ASSERT_TRUE(session.Shows(11, L""));
    ExpectTenChannels(false);
    for (int slot = 0; slot < 12; ++slot) EXPECT_EQ(main.IsChecked(IDC_SHOW_FIRST + slot), slot < 4) << slot;
    EXPECT_EQ(ShownFrames(main), std::vector<int>{0});
    EXPECT_TRUE(Becomes([&] { return MiddleOf(main.Control(IDC_SWATCH_WINDOW_FIRST)); }, kFirstTraceColour));
}

TEST_F(TenChannels, LoadAndWriteNoRanges) {
    session.Host().SendRecord(TenChannelRecord(12, 128));
    ASSERT_TRUE(ShowsChannel(0, L"12"));
    session.Host().StopSending();
    ASSERT_TRUE(session.Closes());
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("038-906-019-FT.SCL")));
    EXPECT_FALSE(std::filesystem::exists(session.Scaling("Defaults.cfg")));
}

// The edit that usually takes the caret is locked here.
TEST_F(TenChannels, TheCaretStaysInNoValueBox) {
    session.Host().SendRecord(TenChannelRecord(12, 128));
    ASSERT_TRUE(ShowsChannel(0, L"12"));
    main.Focus(IDC_VALUE_FIRST + 5);
    EXPECT_TRUE(main.Answers(5000ms));
    EXPECT_NE(main.FocusedId(), IDC_VALUE_FIRST + 5);
}

// Fuel.

class FuelButtons : public LiveControls {
protected:
    ::testing::AssertionResult AreOffered(bool offered) {
        return Becomes([this] { return std::pair(main.IsShown(IDC_MILEAGE), main.IsShown(IDC_CONSUMPTION)); },
                       std::pair(offered, offered));
    }
    // A meter of that title; an empty window if there is none.
    RemoteWindow Meter(const std::wstring& title) {
        for (const RemoteWindow& meter : OpenMeters(main)) {
            if (meter.Text() == title) return meter;
        }
        return {};
    }
    static void ExpectPlace(const RemoteWindow& meter, LONG left, LONG top) {
        const RECT place = meter.ScreenRect();
        EXPECT_EQ(place.left, left);
        EXPECT_EQ(place.top, top);
        EXPECT_EQ(place.right, left + 200);
        EXPECT_EQ(place.bottom, top + 200);
    }
};

constexpr const wchar_t* kMileage = L"Mileage in Miles/Gal(US)";
constexpr const wchar_t* kConsumption = L"Consumption in Liters/100km";

TEST_F(FuelButtons, ComeWithFlowAndSpeedAndOpenTheirMeters) {
    EXPECT_TRUE(AreOffered(false));
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(AreOffered(true));
    main.Click(IDC_MILEAGE);
    main.Click(IDC_CONSUMPTION);
    main.Click(IDC_MILEAGE);
    main.Click(IDC_CONSUMPTION);
    EXPECT_EQ(MeterTitles(main), (std::multiset<std::wstring>{kMileage, kConsumption}));
    ExpectPlace(Meter(kMileage), 96, 0);
    ExpectPlace(Meter(kConsumption), 96, 32);
}

TEST_F(FuelButtons, GoWithTheFlowAndTakeTheirMetersAlong) {
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(AreOffered(true));
    main.Click(IDC_MILEAGE);
    main.Click(IDC_CONSUMPTION);
    RightClick(main, IDC_SWATCH_FIRST);
    EXPECT_EQ(OpenMeters(main).size(), 3u);
    session.Host().SendRecord(
        RecordOf("038 906 019 FT", "G001,F0,780,/min,G001,F1,90.0,V,G001,F2,50,km/h,G000,,,,"));
    EXPECT_TRUE(AreOffered(false));
    EXPECT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 1u));
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(AreOffered(true));
    main.Click(IDC_MILEAGE);
    EXPECT_EQ(OpenMeters(main).size(), 2u);
}

TEST_F(FuelButtons, AClosedMeterCanBeOpenedAgain) {
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(AreOffered(true));
    main.Click(IDC_CONSUMPTION);
    ASSERT_EQ(OpenMeters(main).size(), 1u);
    OpenMeters(main).front().Close();
    EXPECT_TRUE(Becomes([this] { return OpenMeters(main).size(); }, 0u));
    session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(session.Shows(0, L"1780 /min"));
    main.Click(IDC_CONSUMPTION);
    EXPECT_EQ(MeterTitles(main), (std::multiset<std::wstring>{kConsumption}));
}

// 4 l/h at 50 km/h are 8 l/100km, on a scale up to 20. At a standstill the scale ends at 10 l/h, and 8 are
// near its end.
TEST_F(FuelButtons, TheConsumptionMeterFollowsTheDrive) {
    const auto record = [](const char* speed, const char* flow) {
        return RecordOf("038 906 019 FT", std::string("G001,F0,780,/min,G000,,,,G001,F2,") + speed +
                                              ",km/h,G001,F3," + flow + ",l/h,");
    };
    session.Host().SendRecord(record("50", "4"));
    ASSERT_TRUE(AreOffered(true));
    main.Click(IDC_CONSUMPTION);
    const RemoteWindow meter = Meter(kConsumption);
    constexpr COLORREF kThirdTraceColour = 0x00FFFF;
    session.Host().SendRecord(record("50", "4"));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kThirdTraceColour); }, -1));
    session.Host().SendRecord(record("0", "8"));
    EXPECT_TRUE(Becomes([&] { return SideOfNeedle(meter, kThirdTraceColour); }, 1));
}

}  // namespace
}  // namespace plotvane::test
