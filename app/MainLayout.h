#pragma once

#include "app/SlotControls.h"
#include "model/RunState.h"
#include "plot/chart/MultiPlotCtrl.h"

namespace plotvane {

// Where everything in the main dialog lies. The rows of controls keep their columns and their distance to the
// bottom edge; only the chart stretches.
class MainLayout {
public:
    // A client area lower than this, in pixels, is not laid out.
    static constexpr int kLeastClientHeight = 200;

    // The layout notes the window's size in the state and asks there for a redraw of the chart. All
    // references must outlive this object.
    MainLayout(CWnd& dialog, CMultiPlotCtrl& chart, SlotControls& panel, RunState& state)
        : m_dialog(dialog), m_chart(chart), m_panel(panel), m_state(state) {}

    // Creates the chart over its placeholder. Call it once the dialog has the controls of its template.
    void CreateChart();

    // The controls fit the present size of the window. Gives it another outer size in pixels, as far as the
    // screen holds it, and lays the controls out for that.
    void SetUp(int width, int height);

    // Follows a change of the window's size. Does nothing while the window is minimised or too low.
    void Relayout();

private:
    void PlaceChart();
    void StretchChart(int wider, int higher);

    CWnd& m_dialog;
    CMultiPlotCtrl& m_chart;
    SlotControls& m_panel;
    RunState& m_state;
    int m_width = 0;  // outer size in pixels for which the controls are placed
    int m_height = 0;
};

}  // namespace plotvane
