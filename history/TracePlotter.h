#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "history/HistoryLook.h"
#include "history/LookBack.h"
#include "history/PlotRaster.h"
#include "history/TraceColumns.h"

namespace plotvane {

// Puts the traces of the recording on a plot. While the view stands still, only the columns are found out
// that new samples have come to: the others are remembered.
class TracePlotter {
public:
    // Adds the traces to a plot that has its place, at least one row high, and tells it how many of their
    // columns are as in the plot before. Hidden traces are left out; the one in front comes last, over the
    // others. Each has a span for every column of the view. The state must have been refreshed.
    void Plot(const LookBack& state, const HistoryLook& look, TracePlot& plot);

private:
    // What the columns that are remembered depend on, apart from the samples that were there.
    struct Basis {
        double begin = 0.0;
        double length = 0.0;
        int width = 0;
        int rows = 0;
        std::uint32_t run = 0;
        std::int64_t lastStretch = 0;
        std::array<bool, kSlotCount> isHidden{};

        bool operator==(const Basis&) const = default;
    };

    static Basis BasisOf(const LookBack& state, int rows);
    int ColumnsKept(const LookBack& state, const Basis& basis) const;
    void PlotFrom(int column, const LookBack& state, int rows, int trace, const TraceColumns& columns);

    Basis m_basis;
    std::int64_t m_end = 0;  // of the samples that the columns are made of
    std::array<std::vector<RowSpan>, kSlotCount> m_columns;
};

}  // namespace plotvane
