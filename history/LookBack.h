#pragma once

#include <cstdint>
#include <optional>

#include "history/Recording.h"
#include "history/Viewport.h"

namespace plotvane {

// What the window that looks back shows, and what keys and mouse do to it: the part of the drive in view, the
// cursors, which traces are hidden and which one is in front. Columns count from the left edge of the plot.
class LookBack {
public:
    // Shows the last minute of the recording, which must outlive this. Traces that the chart does not draw
    // now are hidden.
    explicit LookBack(const Recording& recording);

    const Recording& Samples() const { return m_recording; }
    const Viewport& View() const { return m_view; }

    // Looks at what has been recorded since the last call; true if there is something new. Everything else
    // here goes by the recording as it was at that call.
    bool Refresh();

    void SetPlotWidth(int columns) { m_view.SetWidth(columns); }

    // Time. A factor below 1 zooms in, until ten samples fill the view.
    void ZoomAbout(double column, double factor);
    void ZoomAboutCursor(double factor);  // or the middle, where no cursor is in view
    void MoveBy(double columns) { m_view.MoveBy(columns); }
    void MoveToBegin() { m_view.MoveToBegin(); }
    void MoveToEnd() { m_view.MoveToEnd(); }
    void ShowAll() { m_view.ShowAll(); }

    // The pointer is the cursor while none is fixed.
    void PointAt(int column) { m_pointer = column; }
    void PointNowhere() { m_pointer.reset(); }

    // Fixes the cursor on the nearest sample at or before a column. If the cursor is fixed within three
    // pixels of that column already, lets it go, and the second cursor with it.
    void Fix(int column);
    void FixSecond(int column);

    // The same by keys: fixes the cursor where it is, or lets it go.
    void ToggleFixed();

    // Moves a cursor by this many samples and brings it into view. A cursor that is not there yet begins at
    // the pointer, or in the view.
    void StepCursor(std::int64_t samples);
    void StepSecond(std::int64_t samples);

    // The same by this many columns, but by at least one sample.
    void MoveCursor(int columns);
    void MoveSecond(int columns);

    // The samples that the cursors stand on.
    bool IsFixed() const { return m_fixed.has_value(); }
    std::optional<std::int64_t> Cursor() const;
    std::optional<std::int64_t> Second() const { return m_second; }

    // Where the line of the cursor is: under the pointer, or at its sample. May lie outside of the plot.
    std::optional<double> CursorColumn() const;

    // The sample whose values are told: the cursor's, else the last in view. Nothing while there is none.
    std::optional<std::int64_t> ToldSample() const;

    // Samples in view, or those that its edges stand between; the second one is exclusive.
    struct SampleRange {
        std::int64_t begin;
        std::int64_t end;
    };
    SampleRange InView() const;

    // Traces.
    bool IsHidden(int trace) const { return (m_hidden >> trace & 1) != 0; }
    void ToggleHidden(int trace) { m_hidden = static_cast<std::uint16_t>(m_hidden ^ 1U << trace); }
    std::optional<int> Front() const { return m_front; }
    void ToggleFront(int trace);

    // The next trace that is shown comes to the front; after the last one none. A negative step goes back.
    void StepFront(int step);

    // The trace whose scale stands at the axis: the one in front, else the preferred one, else the first; of
    // those that are not hidden.
    std::optional<int> ScaleTrace() const;
    void PreferScaleOf(int trace) { m_preferred = trace; }

private:
    bool IsShown(int trace) const;
    std::int64_t SampleAt(int column) const;
    std::optional<std::int64_t> Stepped(std::optional<std::int64_t> from, std::int64_t samples);
    std::int64_t SamplesTo(std::optional<std::int64_t> from, int columns) const;
    double TimeOfTenSamplesAbout(double seconds) const;
    void StartOver();

    const Recording& m_recording;
    Viewport m_view;
    std::uint32_t m_run = 0;  // of the recording
    std::int64_t m_end = 0;   // of the recording at the last Refresh
    bool m_wasEmpty = true;
    bool m_hadEnded = false;
    std::optional<int> m_pointer;
    std::optional<std::int64_t> m_fixed;
    std::optional<std::int64_t> m_second;
    std::uint16_t m_hidden = 0;  // a bit a trace
    std::optional<int> m_front;
    int m_preferred = 0;
};

}  // namespace plotvane
