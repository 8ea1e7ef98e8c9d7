// The main window in other sizes, and the ways to close it.
#include <gtest/gtest.h>

#include <map>

#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

using namespace std::chrono_literals;

bool operator==(const RECT& a, const RECT& b) {
    return ::EqualRect(&a, &b) != FALSE;
}

// Place of a control inside the main window.
RECT PlaceIn(const RemoteWindow& main, int id) {
    RECT place = main.Control(id).ScreenRect();
    ::MapWindowPoints(nullptr, main.Get(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// Of everything below the chart.
std::map<int, RECT> ControlPlacesIn(const RemoteWindow& main) {
    std::map<int, RECT> places;
    for (int id = IDC_MOVED_FIRST; id <= IDC_MOVED_LAST; ++id) {
        if (main.Control(id).Exists()) places[id] = PlaceIn(main, id);
    }
    for (int slot = 0; slot < 12; ++slot) {
        places[IDC_SWATCH_WINDOW_FIRST + slot] = PlaceIn(main, IDC_SWATCH_WINDOW_FIRST + slot);
    }
    return places;
}

class Layout : public ::testing::Test {
protected:
    void SetUp() override {
        m_session.Start();
        m_main = m_session.Main();
        // The program has chosen its mode, so it shows the controls of that mode.
        ASSERT_TRUE(Becomes([this] { return m_main.IsShown(IDC_LOAD_LOG); }, true));
        m_size = m_main.Size();
    }

    RECT Place(int id) const { return PlaceIn(m_main, id); }
    std::map<int, RECT> ControlPlaces() const { return ControlPlacesIn(m_main); }
    // Each relayout makes a new chart, so the handle tells them apart.
    HWND Chart() const { return m_main.Control(IDC_CHART).Get(); }
    ::testing::AssertionResult RelaysOut(HWND before) const {
        return Becomes(
            [&] {
                const HWND now = Chart();  // nothing for a moment, between the old chart and the new
                return now != nullptr && now != before;
            },
            true);
    }

    Session m_session;
    RemoteWindow m_main;
    SIZE m_size{};
};

TEST_F(Layout, TheChartStretchesAndTheRowsStayAtTheBottom) {
    const auto before = ControlPlaces();
    const RECT chartBefore = Place(IDC_CHART);
    const HWND chart = Chart();
    m_main.ResizeTo(m_size.cx + 120, m_size.cy + 70);
    ASSERT_TRUE(RelaysOut(chart));

    RECT expectedChart = chartBefore;
    expectedChart.right += 120;
    expectedChart.bottom += 70;
    EXPECT_TRUE(Becomes([this, expectedChart] { return Place(IDC_CHART) == expectedChart; }, true));
    EXPECT_GE(before.size(), 100u);
    for (const auto& [id, place] : before) {
        RECT expected = place;
        ::OffsetRect(&expected, 0, 70);
        EXPECT_TRUE(Place(id) == expected) << id;
    }
}

TEST_F(Layout, ManySizesInARowAreOneRelayout) {
    const HWND first = Chart();
    for (int step = 1; step <= 5; ++step) {
        m_main.ResizeTo(m_size.cx + 10 * step, m_size.cy + 10 * step);
        ASSERT_TRUE(Stays([this] { return Chart(); }, first, 60ms)) << "relaid out after step " << step;
    }
    ASSERT_TRUE(RelaysOut(first));
    const HWND second = Chart();
    EXPECT_TRUE(Stays([this] { return Chart(); }, second, 400ms));
}

TEST_F(Layout, AfterAResizeAndBackTheNextResizeIsStillLaidOut) {
    const HWND first = Chart();
    m_main.ResizeTo(m_size.cx + 1, m_size.cy + 1);
    m_main.ResizeTo(m_size.cx, m_size.cy);
    EXPECT_TRUE(Stays([this] { return Chart(); }, first, 400ms)) << "the same size needs no relayout";
    m_main.ResizeTo(m_size.cx + 50, m_size.cy + 50);
    EXPECT_TRUE(RelaysOut(first));
}

TEST_F(Layout, ALowWindowLeavesEverythingWhereItWas) {
    const auto before = ControlPlaces();
    const HWND first = Chart();
    m_main.ResizeTo(m_size.cx, 190);
    EXPECT_TRUE(Stays([this] { return Chart(); }, first, 400ms));
    for (const auto& [id, place] : ControlPlaces()) EXPECT_TRUE(place == before.at(id)) << id;

    m_main.ResizeTo(m_size.cx, m_size.cy + 30);
    ASSERT_TRUE(RelaysOut(first));
    const HWND second = Chart();
    EXPECT_TRUE(Stays([this] { return Chart(); }, second, 400ms));
    RECT expected = before.at(IDC_SCALE_MIN);
    ::OffsetRect(&expected, 0, 30);
    EXPECT_TRUE(Place(IDC_SCALE_MIN) == expected);
}

TEST_F(Layout, CancelFromElsewhereClosesAsTheCloseButtonDoes) {
    WriteBytes(m_session.ExchangeFile(), "5\n");
    m_main.PostClick(IDCANCEL);
    EXPECT_TRUE(m_session.Process().EndsWithin(kDeadline));
    EXPECT_TRUE(std::filesystem::exists(m_session.Scaling("Prefs.cfg")));
    EXPECT_FALSE(std::filesystem::exists(m_session.ExchangeFile()));
}

TEST_F(Layout, EscapeClosesNothing) {
    m_main.Control(IDC_LOAD_LOG).Post(WM_KEYDOWN, VK_ESCAPE);
    EXPECT_TRUE(Stays([this] { return m_session.Process().Running(); }, true, 300ms));
    EXPECT_FALSE(std::filesystem::exists(m_session.Scaling("Prefs.cfg")));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Layout, EnterClosesNothing) {
    m_main.Click(IDOK);
    EXPECT_TRUE(Stays([this] { return m_session.Process().Running(); }, true, 300ms));
    EXPECT_FALSE(std::filesystem::exists(m_session.Scaling("Prefs.cfg")));
    EXPECT_TRUE(m_session.Closes());
}

TEST_F(Layout, AStoredSizeFindsTheRowsAtTheBottomToo) {
    constexpr int kWidth = 900;
    constexpr int kHeight = 700;
    const std::map<int, RECT> natural = ControlPlaces();
    ASSERT_TRUE(m_session.Closes());

    Session stored;
    std::filesystem::create_directory(stored.Scaling(""));
    WriteBytes(stored.Scaling("Prefs.cfg"), "Width=384\nHeight=2bc\n");
    stored.Start();
    const RemoteWindow main = stored.Main();
    ASSERT_EQ(main.Size().cx, kWidth);
    ASSERT_EQ(main.Size().cy, kHeight);
    const LONG lower = kHeight - m_size.cy;
    for (const auto& [id, place] : ControlPlacesIn(main)) {
        RECT expected = natural.at(id);
        ::OffsetRect(&expected, 0, lower);
        EXPECT_TRUE(place == expected) << id;
    }
}

TEST(LiveLayout, AResizeWhilePlottingKeepsPlotting) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    const RemoteWindow main = session.Main();
    const HWND chart = main.Control(IDC_CHART).Get();
    main.ResizeTo(800, 500);
    ASSERT_TRUE(Becomes(
        [&] {
            const HWND now = main.Control(IDC_CHART).Get();
            return now != nullptr && now != chart;
        },
        true));
    // A relayout clears the picture again with the next sample; the one after that is drawn.
    for (const auto& record : {kSecondRecord, kFirstRecord, kFirstRecord}) session.Host().SendRecord(record);
    const ChartOnScreen grown(main);
    const int row = grown.RowOf(780, 0, 6000);
    EXPECT_TRUE(Becomes([&] { return grown.Rows(grown.PlotRight() - 2, 0x0000FF); }, std::vector<int>{row}));
    for (int slot = 0; slot < 4; ++slot)
        EXPECT_NE(MiddleOf(main.Control(IDC_SWATCH_WINDOW_FIRST + slot)), 0u);
    EXPECT_TRUE(session.Closes());
}

TEST(LiveLayout, CancelFromElsewhereWhilePlottingClosesInOrder) {
    Session session;
    session.StartWithHost();
    session.Host().SendRecord(kFirstRecord);
    ASSERT_TRUE(session.Shows(3, L"4.2 l/h"));
    session.Main().PostClick(IDCANCEL);
    EXPECT_TRUE(session.Process().EndsWithin(kDeadline));
    EXPECT_EQ(BytesOf(session.Scaling(kScalingFile)), ScalingBytes(3, kUnitRanges));
    EXPECT_TRUE(std::filesystem::exists(session.Scaling("Prefs.cfg")));
    EXPECT_FALSE(std::filesystem::exists(session.ExchangeFile()));
}

}  // namespace
}  // namespace plotvane::test
