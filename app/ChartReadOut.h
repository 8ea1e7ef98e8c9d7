#pragma once

#include "history/ChartColumns.h"
#include "history/ReadOutWnd.h"
#include "plot/chart/MultiPlotCtrl.h"

namespace plotvane {

// The values of the column under a pointer that rests over the chart, in a tip. The chart itself knows
// nothing of it: its parent passes on what it is told of the pointer.
class ChartReadOut {
public:
    // All must outlive this object.
    ChartReadOut(CWnd& dialog, const CMultiPlotCtrl& chart, const Recording& recording,
                 const ChartColumns& columns, const Prefs& prefs)
        : m_dialog(dialog), m_chart(chart), m_recording(recording), m_columns(columns), m_prefs(prefs) {}

    // WM_SETCURSOR of the dialog: the mouse did something over a window of it.
    void TakeMouse(HWND window, UINT message);

    // The dialog's timer for this, which fires once.
    static constexpr UINT_PTR kTimer = 4;
    void OnTimer();

private:
    std::optional<std::int64_t> SampleAt(POINT screen) const;

    CWnd& m_dialog;
    const CMultiPlotCtrl& m_chart;
    const Recording& m_recording;
    const ChartColumns& m_columns;
    const Prefs& m_prefs;
    CReadOutWnd m_tip;
    POINT m_pointer{-1, -1};
};

}  // namespace plotvane
