#pragma once

#include <optional>
#include <string>

#include "app/ChartExport.h"
#include "app/ChartReadOut.h"
#include "app/ControlNames.h"
#include "app/DriveChart.h"
#include "app/DriveHistory.h"
#include "app/KeyCommands.h"
#include "app/LimitEdits.h"
#include "app/LogDrop.h"
#include "app/MainLayout.h"
#include "app/MeterWindows.h"
#include "app/RunButtonControls.h"
#include "app/SleepBlocker.h"
#include "app/SlotControls.h"
#include "app/TipTexts.h"
#include "app/Tips.h"
#include "app/TitleBar.h"
#include "framework/AccessibleNames.h"
#include "framework/Dialog.h"
#include "framework/Gdi.h"
#include "link/Acquisition.h"
#include "link/InheritedPipe.h"
#include "link/ProgramData.h"
#include "link/WindowPump.h"
#include "logs/LogFileDialog.h"
#include "res/resource.h"

namespace plotvane {

// The main dialog: puts the rooms together and passes on what the user does. It lives as long as the program.
// The acquisition runs inside its handlers and dispatches messages while it waits, so any handler may find a
// run below it on the stack.
class CPlotvaneDlg : public CDialog, private MainWindow {
public:
    CPlotvaneDlg();

    bool PreTranslateMessage(MSG& message) override { return m_keys.Take(message); }
    std::string AccessibleNameOf(int control) const override { return m_controlNames.Of(control); }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}  // Enter must not end the program
    void OnCancel() override { OnClose(); }

private:
    // MainWindow.
    void ShowMessage(int textId, int captionId) override { ShowBox(m_hWnd, textId, captionId); }
    std::optional<std::filesystem::path> ChooseLog() override;
    void SetModuleTitle(std::u16string_view title) override { m_titleBar.SetTitle(title); }
    void StayAwake(bool on) override { m_sleepBlocker.Set(on); }
    void Close() override { OnClose(); }

    // The window.
    void OnClose();
    void OnContextMenu(HWND window, POINT screen);
    void OnEndSession(bool isEnding);
    void OnPaint();
    LRESULT OnParentNotify(WPARAM what, LPARAM place);
    HICON OnQueryDragIcon() { return m_icon.Get(); }
    LRESULT OnSetCursor(WPARAM window, LPARAM mouse);
    void OnSize(UINT type, int width, int height);
    void OnSysCommand(UINT id, LPARAM lParam);
    void OnTimer(UINT_PTR timer);

    // Run buttons.
    void OnStop() { m_acquisition.control.Stop(); }
    void OnPause();
    void OnLoadLog();
    LRESULT OnLogDropped(WPARAM, LPARAM);
    void OnReplayFaster();
    void OnReplaySlower();

    // Scale boxes.
    void OnScaleNext() { m_acquisition.loop.Selection().SelectNext(); }
    void OnScalePrevious() { m_acquisition.loop.Selection().SelectPrevious(); }
    void OnScaleMinLeft() { m_limits.Take(IDC_SCALE_MIN); }
    void OnScaleMaxLeft() { m_limits.Take(IDC_SCALE_MAX); }
    void OnShiftDown();
    void OnShiftUp();

    // Slots and fuel.
    void OnValueFocus(UINT id);
    void OnShowFocus(UINT id) { m_panel.ShowFocus(static_cast<int>(id)); }
    void OnShowFocusLost(UINT) { m_panel.ShowFocus(0); }
    void OnAirFuel(UINT id);
    void OnMileage() { m_meters.OpenFuelMeter(MeterBoard::Fuel::Mileage); }
    void OnConsumption() { m_meters.OpenFuelMeter(MeterBoard::Fuel::Consumption); }

    // Looking back.
    void OpenHistory();
    LRESULT OnOpenHistory(WPARAM, LPARAM) { return OpenHistory(), 0; }

    // Keys.
    void OnKey(UINT command);
    void OnManualKey();

    // Setting up.
    void AppendSystemMenu();
    void ApplyColours();
    void SetIcons();

    bool MayBegin() const;
    bool MayLoadLog() const;
    void TakeDrop(std::filesystem::path log);
    void ShowBox(HWND owner, int textId, int captionId);
    void DecideMode();
    void SaveAndEnd();
    void ShowPreferences();
    void ShowReplaySpeed();
    DECLARE_MESSAGE_MAP()

    ProgramData m_data;
    DriveHistory m_history;
    CDriveChart m_chart;
    ChartReadOut m_readOut;
    SlotControls m_panel;
    MeterWindows m_meters;
    RunButtonControls m_buttons;
    MainLayout m_layout;
    TitleBar m_titleBar;
    SleepBlocker m_sleepBlocker;
    LogDrop m_logDrop;
    InheritedPipe m_pipe;
    WindowPump m_pump;
    Acquisition m_acquisition;
    TipTexts m_tipTexts;
    Tips m_tips;
    ControlNames m_controlNames;
    AccessibleNames m_names;
    LimitEdits m_limits;
    ChartExport m_export;
    KeyCommands m_keys;

    std::optional<std::filesystem::path> m_droppedLog;  // until it is loaded
    CIcon m_icon;
    CIcon m_smallIcon;
    bool m_closing = false;
    bool m_sessionEnding = false;  // nobody can answer messages any more
    bool m_arePrefsKnown = false;  // read, or there are none
};

}  // namespace plotvane
