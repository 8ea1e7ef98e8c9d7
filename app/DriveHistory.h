#pragma once

#include <string>

#include "app/DoubleClick.h"
#include "app/DriveRecorder.h"
#include "framework/Wnd.h"
#include "history/HistoryWnd.h"

namespace plotvane {

// The drive so far, and the window that looks back at it.
class DriveHistory {
public:
    // `channelText` goes before the number of a channel. The preferences must outlive this.
    DriveHistory(const Prefs& prefs, std::string channelText)
        : m_recorder(m_recording, m_columns, std::move(channelText)), m_window(m_recording, prefs) {}
    DriveHistory(const DriveHistory&) = delete;
    DriveHistory& operator=(const DriveHistory&) = delete;

    const Recording& Samples() const { return m_recording; }
    ChartColumns& Columns() { return m_columns; }
    DriveRecorder& Recorder() { return m_recorder; }

    // Shows the window, or brings it to the front. The scale at its axis is that of the trace, if it is
    // shown.
    void Open(HWND owner, int trace) { m_window.Open(owner, trace); }

    // The left button was pressed at a point of the screen, as the chart's parent is told. True if the press
    // completes a double click on the chart.
    bool IsDoubleClickOn(const CWnd& chart, POINT screen);

private:
    Recording m_recording;
    ChartColumns m_columns;
    DriveRecorder m_recorder;
    CHistoryWnd m_window;
    DoubleClick m_click;
};

}  // namespace plotvane
