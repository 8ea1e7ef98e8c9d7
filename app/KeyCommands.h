#pragma once

#include <vector>

#include "app/ChartExport.h"
#include "app/LimitEdits.h"
#include "app/MeterWindows.h"
#include "app/SlotControls.h"
#include "link/Acquisition.h"

namespace plotvane {

// The keys of the main window: which message is one, and what it does. A key presses a button that the user
// could press too, with the handler of the button and its checks. What no button does is done here.
//
// The keys work in the main window and in its meters, which users look at during a drive. In the dialogs over
// the main window only F1 works.
class KeyCommands {
public:
    // All must outlive this object.
    KeyCommands(CWnd& dialog, const RunState& state, Acquisition& acquisition, SlotControls& panel,
                MeterWindows& meters, LimitEdits& limits, ChartExport& chart)
        : m_dialog(dialog),
          m_state(state),
          m_acquisition(acquisition),
          m_panel(panel),
          m_meters(meters),
          m_limits(limits),
          m_chart(chart) {}

    // Takes a message from the queue: true if it was a key of this table, whether it did something or not.
    // What the key does arrives in the dialog as WM_COMMAND with a command id, as from any key table.
    bool Take(const MSG& message);

    // Does what a command says. The caller has made sure that the program does not close and that no dialog
    // lies over the window.
    void Run(int command);

    // The page of the manual about the window in front.
    static const char* PageInFront();

private:
    int CommandOf(WPARAM key);
    bool IsOfMainWindow(HWND front) const;
    bool TakesEscOrEnter(const MSG& message);
    static bool IsKeptByEdit(HWND window, int command);
    bool CanPress(int button) const;
    void Press(int button);
    void OpenMeter();
    void Fit();

    CWnd& m_dialog;
    const RunState& m_state;
    Acquisition& m_acquisition;
    SlotControls& m_panel;
    MeterWindows& m_meters;
    LimitEdits& m_limits;
    ChartExport& m_chart;
    std::vector<ACCEL> m_table;  // from the resources, with the first key
};

}  // namespace plotvane
