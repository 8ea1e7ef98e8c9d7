#include <gtest/gtest.h>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

TEST(Live, EachSlotShowsItsValueAndUnit) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(session.Shows(1,
                              L"90 \u00B0"
                              L"C"));
    EXPECT_TRUE(session.Shows(2, L"50 km/h"));
    EXPECT_TRUE(session.Shows(3, L"4.2 l/h"));
    for (int slot = 4; slot < 12; ++slot) EXPECT_EQ(session.ValueText(slot), L"");
}

TEST(Live, AfterTheHintTheTitleNamesTheModule) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    EXPECT_TRUE(Becomes([&] { return session.Main().Text(); }, kLiveTitle));
    EXPECT_TRUE(Stays([&] { return session.Main().Text(); }, std::wstring(kLiveTitle), 500ms));
}

TEST(Live, ActiveSlotsAreTickedAndTakeTheirTraceColours) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    const RemoteWindow main = session.Main();
    const COLORREF colours[] = {0x0000FF, 0x00FF00, 0x00FFFF, 0xFFC0C0};
    for (int slot = 0; slot < 12; ++slot) {
        EXPECT_TRUE(Becomes([&] { return main.IsChecked(IDC_SHOW_FIRST + slot); }, slot < 4)) << slot;
        const COLORREF colour = slot < 4 ? colours[slot] : ::GetSysColor(COLOR_3DFACE);
        EXPECT_TRUE(Becomes([&] { return MiddleOf(main.Control(IDC_SWATCH_WINDOW_FIRST + slot)); }, colour))
            << slot;
    }
}

TEST(Live, AnUntickedSlotStaysUntickedAndLosesItsColour) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    const RemoteWindow main = session.Main();
    ASSERT_TRUE(Becomes([&] { return main.IsChecked(IDC_SHOW_FIRST + 1); }, true));
    main.SetChecked(IDC_SHOW_FIRST + 1, false);
    session.Host().SendRecord(kSecondRecord);
    ASSERT_TRUE(session.Shows(0, L"1780 /min"));
    EXPECT_TRUE(Becomes([&] { return MiddleOf(main.Control(IDC_SWATCH_WINDOW_FIRST + 1)); },
                        ::GetSysColor(COLOR_3DFACE)));
    EXPECT_FALSE(main.IsChecked(IDC_SHOW_FIRST + 1));
    EXPECT_TRUE(main.IsChecked(IDC_SHOW_FIRST));
}

TEST(Live, TheFirstRecordSelectsSlotZeroForTheScaleBox) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    const RemoteWindow main = session.Main();
    EXPECT_TRUE(Becomes([&] { return main.Text(IDC_SCALE_MAX); }, L"6000"));
    EXPECT_EQ(main.Text(IDC_SCALE_MIN), L"0");
    EXPECT_EQ(ShownFrames(main), std::vector<int>{0});
}

TEST(Live, TextThatIsNoNumberCountsAsZero) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(
        RecordOf("ABC 123 456", "G001,F0,12.5,V,G001,F1,1e3,V,G001,F2,n/a,V,G001,F3,-7,V,"));
    EXPECT_TRUE(session.Shows(0, L"12.5 V"));
    EXPECT_TRUE(session.Shows(1, L"0 V"));
    EXPECT_TRUE(session.Shows(2, L"0 V"));
    EXPECT_TRUE(session.Shows(3, L"-7 V"));
}

TEST(Live, AnEmptyFirstSlotLeavesTheRestInPlace) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(RecordOf("ABC 123 456", "G000,,,,G002,F1,3,V,G002,F2,4,V,G002,F3,5,V,"));
    EXPECT_TRUE(session.Shows(1, L"3 V"));
    EXPECT_TRUE(session.Shows(3, L"5 V"));
    EXPECT_EQ(session.ValueText(0), L"");
}

TEST(Live, GenericIdentifiersShowTheirNumberInTheBoxBelow) {
    Session session;
    session.StartWithHost();
    std::string record = "OBD,G012,F0,780,/min,G013,F0,51,km/h,";
    for (int slot = 2; slot < 12; ++slot) record += "G000,,,,";
    session.Host().SendRecord(record);
    EXPECT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(session.Shows(4, L"PID 12"));
    EXPECT_TRUE(session.Shows(1, L"51 km/h"));
    EXPECT_TRUE(session.Shows(5, L"PID 13"));
    for (const int slot : {2, 3, 6, 7, 8, 9, 10, 11}) EXPECT_EQ(session.ValueText(slot), L"") << slot;
    EXPECT_TRUE(Becomes([&] { return session.Main().Text(); }, L"Plotvane  -  Live Data  -  OBD"));

    session.Host().StopSending();
    const auto scaling = [&] { return BytesOf(session.Scaling("OBD.SCL")); };
    std::string expected = "3,\r\n";
    for (int group = 1; group <= 255; ++group) {
        const int highest = group == 12 ? 6000 : group == 13 ? 250 : 100;
        expected += std::to_string(group) + ",0," + std::to_string(highest) + ",\r\n";
    }
    EXPECT_TRUE(Becomes(scaling, expected));
}

TEST(Live, TheTraceStartsWithTheSecondRecord) {
    Session session;
    session.StartWithHost();
    const ChartOnScreen chart(session.Main());
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    // The ranges are new, so after the first record the program redraws the whole chart.
    EXPECT_TRUE(
        Stays([&] { return chart.Rows(chart.PlotRight() - 2, 0x0000FF); }, std::vector<int>{}, 300ms));

    session.Host().SendRecord(kFirstRecord);
    // The trace begins in the row of the first record and is four pixels wide: a shift of 3 and the
    // extension.
    const int row = chart.RowOf(780, 0, 6000);
    const int right = chart.PlotRight();
    for (int x = right - 4; x <= right - 1; ++x) {
        EXPECT_TRUE(Becomes([&] { return chart.Rows(x, 0x0000FF); }, std::vector<int>{row})) << x;
    }
    EXPECT_EQ(chart.Rows(right - 5, 0x0000FF), std::vector<int>{});
}

}  // namespace
}  // namespace plotvane::test
