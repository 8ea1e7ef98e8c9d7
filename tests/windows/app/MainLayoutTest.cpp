#include "app/MainLayout.h"

#include "plot/chart/MultiPlotCtrl.h"
#include "tests/windows/app/SlotControlsFixture.h"

namespace plotvane::test {
namespace {

class MainLayoutTest : public SlotControlsFixture {
protected:
    MainLayoutTest() {
        layout.CreateChart();
        layout.SetUp(m_natural.Width(), m_natural.Height());
    }

    void Resize(int wider, int higher) {
        ::SetWindowPos(dialog.m_hWnd, nullptr, 0, 0, m_natural.Width() + wider, m_natural.Height() + higher,
                       SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        layout.Relayout();
    }

    const CRect m_natural = dialog.GetWindowRect();
    RunState state;
    Prefs prefs;
    SlotTable slots;
    CMultiPlotCtrl chart{prefs, state, slots};
    MainLayout layout{dialog, chart, panel, state};
};

TEST_F(MainLayoutTest, TheChartStretchesAndTheRowsMoveWithTheLowerEdge) {
    const CRect chartBefore = PlaceOf(IDC_CHART);
    const CRect stopBefore = PlaceOf(IDC_STOP);
    Resize(50, 40);
    const CRect chartAfter = PlaceOf(IDC_CHART);
    EXPECT_EQ(EdgesOf(chartAfter),
              (Edges{chartBefore.left, chartBefore.top, chartBefore.right + 50, chartBefore.bottom + 40}));
    EXPECT_EQ(EdgesOf(IDC_STOP),
              (Edges{stopBefore.left, stopBefore.top + 40, stopBefore.right, stopBefore.bottom + 40}));
    ExpectSwatchesOverTheirPlaceholders();
}

TEST_F(MainLayoutTest, ItNotesTheSizeAndAsksForARedraw) {
    EXPECT_EQ(state.width, m_natural.Width());
    state.redrawRequest = false;
    Resize(50, 40);
    EXPECT_EQ(state.width, m_natural.Width() + 50);
    EXPECT_EQ(state.height, m_natural.Height() + 40);
    EXPECT_TRUE(state.redrawRequest);
}

TEST_F(MainLayoutTest, AnUnchangedSizeChangesNothing) {
    const HWND before = chart.m_hWnd;
    layout.Relayout();
    EXPECT_EQ(chart.m_hWnd, before);
    EXPECT_FALSE(state.redrawRequest);
}

TEST_F(MainLayoutTest, ALowWindowStaysAsItWasAndFollowsWhenItGrows) {
    const Edges before = EdgesOf(IDC_STOP);
    Resize(0, 199 - m_natural.Height());
    EXPECT_EQ(EdgesOf(IDC_STOP), before);
    EXPECT_EQ(state.height, m_natural.Height());
    Resize(0, 10);
    EXPECT_EQ(EdgesOf(IDC_STOP)[1], before[1] + 10);
}

}  // namespace
}  // namespace plotvane::test
