#pragma once

#include "history/ChartColumns.h"
#include "plot/chart/MultiPlotCtrl.h"

namespace plotvane {

// The chart, whose gaps and full redraws are noted with the samples in its columns.
class CDriveChart : public CMultiPlotCtrl {
public:
    // All must outlive the chart.
    CDriveChart(const Prefs& prefs, const RunState& state, const SlotTable& slots, ChartColumns& columns)
        : CMultiPlotCtrl(prefs, state, slots), m_columns(columns) {}

    void AppendGap(const TraceValues& values) override {
        CMultiPlotCtrl::AppendGap(values);
        m_columns.AddGap(kGapPx);
    }
    // Every full redraw comes through this.
    void InvalidateCtrl() override {
        m_columns.Clear();
        CMultiPlotCtrl::InvalidateCtrl();
    }

private:
    ChartColumns& m_columns;
};

}  // namespace plotvane
