#include "app/MainLayout.h"

#include "app/DialogLayout.h"
#include "res/resource.h"

namespace plotvane {
namespace {

constexpr GridCounts kGridCounts{9, 9};
constexpr int kLabelMargin = 1;  // characters

}  // namespace

void MainLayout::CreateChart() {
    PlaceChart();
    m_chart.SetGridCounts(kGridCounts);
    m_chart.SetLabelMargin(kLabelMargin);
    m_chart.SetSamplesPerScreen(0);
    m_chart.SetXUnits("", "", "");
    m_chart.SetYUnits("", "", "");
}

void MainLayout::SetUp(int width, int height) {
    const CRect natural = m_dialog.GetWindowRect();
    m_state.width = m_width = natural.Width();
    m_state.height = m_height = natural.Height();
    ResizeOnTop(m_dialog, width, height);
    Relayout();
}

void MainLayout::Relayout() {
    const CRect window = m_dialog.GetWindowRect();
    if (m_dialog.IsIconic() || window.Height() < kLeastHeight) return;
    m_state.width = window.Width();
    m_state.height = window.Height();
    const int wider = window.Width() - m_width;
    const int higher = window.Height() - m_height;
    if (wider == 0 && higher == 0) return;

    MoveControlsDown(m_dialog, IDC_MOVED_FIRST, IDC_MOVED_LAST, higher);
    m_panel.PlaceSwatches();
    StretchChart(wider, higher);
    ::RedrawWindow(m_dialog.m_hWnd, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);

    m_width = window.Width();
    m_height = window.Height();
    m_state.redrawRequest = true;
}

void MainLayout::PlaceChart() {
    m_chart.Create(WS_CHILD | WS_VISIBLE, PlaceOfControl(m_dialog, IDC_CHART_FRAME), m_dialog.m_hWnd,
                   IDC_CHART);
}

void MainLayout::StretchChart(int wider, int higher) {
    m_chart.ReleasePictures();
    m_chart.DestroyWindow();
    GrowControl(m_dialog, IDC_CHART_FRAME, wider, higher);
    PlaceChart();
}

}  // namespace plotvane
