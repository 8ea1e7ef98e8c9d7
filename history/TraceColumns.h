#pragma once

#include <cstdint>
#include <vector>

#include "history/Recording.h"
#include "history/Viewport.h"

namespace plotvane {

// What a trace covers of one pixel column: from its lowest to its highest value there. Empty where `lowest`
// is above `highest`.
struct ColumnSpan {
    double lowest = 1.0;
    double highest = 0.0;

    bool IsEmpty() const { return lowest > highest; }
    void Include(double value);
    bool operator==(const ColumnSpan&) const = default;
};

// The traces as they stand in a view, a span for each pixel column. A trace is the line that joins its
// samples; at a break it ends and begins again, and a sample between two breaks is a point. All of the line
// that lies in a column is in its span: a peak of one sample is seen at any zoom, and the spans of
// neighbouring columns meet where the line goes on.
class TraceColumns {
public:
    // The columns from `first` on; 0 for all. The recording must live as long as this, and not change
    // meanwhile.
    TraceColumns(const Recording& recording, const Viewport& view, int first = 0);

    // The line through the samples from `begin` to before `end`: gives a span for each column from the one
    // returned on, and none for the columns that the line does not reach.
    int LineThrough(int trace, std::int64_t begin, std::int64_t end, std::vector<ColumnSpan>& spans) const;

private:
    // Between two columns, or at either end of the view: the first sample at or after it, and how far it lies
    // on the way from the sample before to that one, 0..1.
    struct Edge {
        std::int64_t next;
        double share;
        bool isCrossed;  // by the line between the two, if a trace has it
    };

    Edge EdgeAt(double seconds, std::int64_t from) const;
    double ValueAt(const Edge& edge, int trace) const;

    const Recording& m_recording;
    int m_first;
    std::vector<Edge> m_edges;  // one more than columns
};

}  // namespace plotvane
