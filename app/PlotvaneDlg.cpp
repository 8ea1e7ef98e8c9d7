#include "app/PlotvaneDlg.h"

#include <array>

#include "app/AboutDlg.h"
#include "app/DialogLayout.h"
#include "app/TitleHint.h"
#include "app/Version.h"
#include "base/FileOperations.h"
#include "base/Numbers.h"
#include "framework/Dc.h"
#include "framework/Text.h"
#include "link/ExchangeFile.h"
#include "link/HostDetection.h"
#include "res/resource.h"
#include "scaling/PrefsDlg.h"
#include "scaling/PrefsFile.h"

namespace plotvane {
namespace {

// Window timers; each is one-shot.
constexpr UINT_PTR kModeTimer = 1;
constexpr UINT_PTR kLayoutTimer = 2;
constexpr UINT_PTR kHintTimer = 3;
constexpr UINT kTimerMs = 100;

constexpr int kLeastClientHeight = 200;  // smaller resizes are ignored
constexpr GridCounts kGridCounts{9, 9};
constexpr int kLabelMargin = 1;  // characters

// What the template leaves hidden because it serves replay only.
constexpr std::array kLogControls = {IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED,
                                     IDC_LOAD_LOG,      IDC_REPLAY_GROUP,  IDC_STOP,         IDC_PAUSE};

// "Scaling" under the current directory; relative where its path is too long for one that is.
std::filesystem::path ScalingFolder() {
    constexpr DWORD kMaxDirectory = 512;
    std::array<wchar_t, kMaxDirectory> directory;
    const DWORD length = ::GetCurrentDirectoryW(kMaxDirectory, directory.data());
    const bool fits = length > 0 && length < kMaxDirectory;
    return (fits ? std::filesystem::path(directory.data()) : std::filesystem::path(".")) / "Scaling";
}

MeterTexts LoadMeterTexts() {
    return {LoadText(IDS_METER),
            LoadText(IDS_FIELD_NUMBER),
            LoadText(IDS_MILEAGE_CAPTION),
            LoadText(IDS_CONSUMPTION_CAPTION),
            LoadText(IDS_MPG),
            LoadText(IDS_LITRES_PER_100KM)};
}

// Asks the windows that belong to a window to close, the topmost first: meters, and dialogs and messages that
// are open over it. Each of these may have a loop of its own on the stack, in which the program would go on
// for ever.
void CloseOwnedWindows(HWND owner) {
    const auto closeOne = [](HWND window, LPARAM its) -> BOOL {
        if (::GetWindow(window, GW_OWNER) != reinterpret_cast<HWND>(its)) return TRUE;
        CloseOwnedWindows(window);
        ::SendMessageW(window, WM_CLOSE, 0, 0);
        return TRUE;
    };
    ::EnumThreadWindows(::GetCurrentThreadId(), closeOne, reinterpret_cast<LPARAM>(owner));
}

AcquisitionTexts LoadAcquisitionTexts() {
    return {LoadText(IDS_LIVE_TITLE),
            {LoadText(IDS_MPG), LoadText(IDS_LITRES_PER_100KM), LoadText(IDS_GALLONS_PER_HOUR)}};
}

}  // namespace

BEGIN_MESSAGE_MAP(CPlotvaneDlg, CDialog)
    // The window itself.
    ON_WM_CLOSE()
    ON_WM_CONTEXTMENU()
    ON_WM_ENDSESSION()
    ON_WM_PAINT()
    ON_WM_QUERYDRAGICON()
    ON_WM_SIZE()
    ON_WM_SYSCOMMAND()
    ON_WM_TIMER()
    // Run buttons.
    ON_BN_CLICKED(IDC_STOP, OnStop)
    ON_BN_CLICKED(IDC_PAUSE, OnPause)
    ON_BN_CLICKED(IDC_LOAD_LOG, OnLoadLog)
    ON_BN_CLICKED(IDC_REPLAY_FASTER, OnReplayFaster)
    ON_BN_CLICKED(IDC_REPLAY_SLOWER, OnReplaySlower)
    // Scale boxes.
    ON_BN_CLICKED(IDC_SCALE_NEXT, OnScaleNext)
    ON_BN_CLICKED(IDC_SCALE_PREVIOUS, OnScalePrevious)
    ON_EN_KILLFOCUS(IDC_SCALE_MIN, OnScaleMinLeft)
    ON_EN_KILLFOCUS(IDC_SCALE_MAX, OnScaleMaxLeft)
    ON_BN_CLICKED(IDC_SHIFT_DOWN, OnShiftDown)
    ON_BN_CLICKED(IDC_SHIFT_UP, OnShiftUp)
    // Twelve value boxes, check boxes in both layouts, twelve A/F buttons, two fuel buttons.
    ON_CONTROL_RANGE(EN_SETFOCUS, IDC_VALUE_FIRST, IDC_VALUE_LAST, OnValueFocus)
    ON_CONTROL_RANGE(BN_SETFOCUS, IDC_SHOW_FIRST, IDC_OBD_SHOW_LAST, OnShowFocus)
    ON_CONTROL_RANGE(BN_KILLFOCUS, IDC_SHOW_FIRST, IDC_OBD_SHOW_LAST, OnShowFocusLost)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_AIR_FUEL_FIRST, IDC_AIR_FUEL_LAST, OnAirFuel)
    ON_BN_CLICKED(IDC_MILEAGE, OnMileage)
    ON_BN_CLICKED(IDC_CONSUMPTION, OnConsumption)
END_MESSAGE_MAP()

CPlotvaneDlg::CPlotvaneDlg()
    : CDialog(IDD_MAIN),
      m_data(ScalingFolder()),
      m_chart(m_data.prefs, m_data.state, m_data.slots),
      m_panel(*this, LoadText(IDS_PIXEL_SHIFT)),
      m_meters(*this, m_data, m_chart, LoadMeterTexts()),
      m_buttons(*this),
      m_pump(m_data.state),
      m_acquisition(m_data, {m_chart, m_panel, m_meters, m_buttons, *this, *this, *this}, m_pipe, m_pump,
                    LoadAcquisitionTexts()),
      m_title(ToWide(std::string("Plotvane v") + kVersion)),
      m_hintText(LoadText(IDS_TITLE_HINT)) {}

BOOL CPlotvaneDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    AppendSystemMenu();
    m_arePrefsKnown = LoadPrefs(m_data.PrefsFile(), m_data.prefs);
    m_chart.SetRedraw(false);  // its picture is drawn once, at its final size
    CreateChart();
    SetIcons();
    m_panel.SetUp();
    m_buttons.SetUp();
    m_panel.ShowPixelShift(m_data.state.pixelShift);
    m_pump.SetDialog(m_hWnd);

    const CRect natural = GetWindowRect();
    m_lastWidth = natural.Width();
    m_lastHeight = natural.Height();
    m_data.state.width = m_lastWidth;
    m_data.state.height = m_lastHeight;
    ResizeOnTop(*this, m_data.prefs.width, m_data.prefs.height);
    Relayout();
    m_chart.SetRedraw(true);
    SetTimer(kModeTimer, kTimerMs);
    return TRUE;
}

void CPlotvaneDlg::AppendSystemMenu() {
    const HMENU menu = ::GetSystemMenu(m_hWnd, FALSE);
    const std::string preferences = LoadText(IDS_MENU_PREFERENCES);
    if (!menu || preferences.empty()) return;
    ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(menu, MF_STRING, ID_SYSMENU_PREFERENCES, ToWide(preferences).c_str());
    ::AppendMenuW(menu, MF_STRING, ID_SYSMENU_ABOUT, ToWide(LoadText(IDS_MENU_ABOUT)).c_str());
}

void CPlotvaneDlg::CreateChart() {
    m_chart.Create(WS_CHILD | WS_VISIBLE, PlaceOfControl(*this, IDC_CHART_FRAME), m_hWnd, IDC_CHART);
    m_chart.SetGridCounts(kGridCounts);
    m_chart.SetLabelMargin(kLabelMargin);
    m_chart.SetSamplesPerScreen(0);
    m_chart.SetXUnits("", "", "");
    m_chart.SetYUnits("", "", "");
    ApplyColours();
}

void CPlotvaneDlg::ApplyColours() {
    for (int trace = 0; trace < kTraceCount; ++trace) {
        m_chart.SetTraceColor(m_data.prefs.lineColor[static_cast<std::size_t>(trace)], trace);
    }
    m_chart.SetBackgroundColor(m_data.prefs.backColor);
    m_chart.SetGridColor(m_data.prefs.gridColor);
}

void CPlotvaneDlg::SetIcons() {
    m_icon = static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_PLOTVANE),
                                             IMAGE_ICON, 0, 0, LR_SHARED | LR_DEFAULTSIZE));
    const HANDLE small =
        ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_PLOTVANE), IMAGE_ICON,
                     ::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON), LR_SHARED);
    SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_icon));
    SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small));
}

void CPlotvaneDlg::OnTimer(UINT_PTR timer) {
    KillTimer(timer);
    switch (timer) {
        case kModeTimer:
            ShowOrDecideMode();
            break;
        case kLayoutTimer:
            Relayout();
            break;
        case kHintTimer:
            StepTitleHint();
            break;
    }
}

// Windows shows a dialog when its message queue is first empty. If the start took long, this timer is due
// before that, and a run that begins here would leave the window hidden for as long as data flows. The timer
// comes once more, so that Windows can note that the dialog is shown: it would show it again behind the run,
// and that undoes what the user has done to its size meanwhile.
void CPlotvaneDlg::ShowOrDecideMode() {
    if (::IsWindowVisible(m_hWnd)) return DecideMode();
    ShowWindow(SW_SHOWNORMAL);
    SetTimer(kModeTimer, USER_TIMER_MINIMUM);
}

// Live with the host, else logs. Live, this handler returns when the run is over.
void CPlotvaneDlg::DecideMode() {
    if (m_closing) return;
    CRect load;
    ::GetWindowRect(GetDlgItem(IDC_LOAD_LOG), &load);
    ::SetCursorPos((load.left + load.right) / 2, (load.top + load.bottom) / 2);
    m_data.state.hostRunning = IsHostRunning();
    SetTimer(kHintTimer, kTimerMs);
    if (m_data.state.hostRunning) {
        m_buttons.EnablePause(true);
        m_buttons.ShowPause(PauseImage::Pause);
        m_acquisition.loop.Start();
    } else {
        for (const int id : kLogControls) ::ShowWindow(GetDlgItem(id), SW_SHOWNORMAL);
    }
}

void CPlotvaneDlg::StepTitleHint() {
    int& countdown = m_data.state.titleHintCountdown;
    if (countdown > 0) {
        --countdown;
        SetWindowText(TitleHint(countdown, m_hintText));
        SetTimer(kHintTimer, kTimerMs);
    } else {
        m_hintShown = false;
        ::SetWindowTextW(m_hWnd, m_title.c_str());
    }
}

// A module's name that arrives during the hint waits for its end.
void CPlotvaneDlg::SetModuleTitle(std::u16string_view title) {
    m_title.assign(title.begin(), title.end());
    if (!m_hintShown) ::SetWindowTextW(m_hWnd, m_title.c_str());
}

void CPlotvaneDlg::OnSize(UINT type, int width, int height) {
    if (type == SIZE_MINIMIZED || height < kLeastClientHeight) return;
    CDialog::OnSize(type, width, height);
    m_data.state.relayoutPending = true;
    SetTimer(kLayoutTimer, kTimerMs);
}

// The control rows keep their distance to the bottom edge, at their columns; only the chart stretches.
void CPlotvaneDlg::Relayout() {
    m_data.state.relayoutPending = false;
    const CRect window = GetWindowRect();
    if (IsIconic() || window.Height() < kLeastHeight) return;
    m_data.state.width = window.Width();
    m_data.state.height = window.Height();
    const int wider = window.Width() - m_lastWidth;
    const int higher = window.Height() - m_lastHeight;
    if (wider == 0 && higher == 0) return;

    MoveControlsDown(*this, IDC_MOVED_FIRST, IDC_MOVED_LAST, higher);
    m_panel.PlaceSwatches();
    m_chart.ReleasePictures();
    m_chart.DestroyWindow();
    GrowControl(*this, IDC_CHART_FRAME, wider, higher);
    m_chart.Create(WS_CHILD | WS_VISIBLE, PlaceOfControl(*this, IDC_CHART_FRAME), m_hWnd, IDC_CHART);
    ::RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);

    m_lastWidth = window.Width();
    m_lastHeight = window.Height();
    m_data.state.redrawRequest = true;
}

void CPlotvaneDlg::OnPaint() {
    if (!IsIconic()) {
        Default();
        // The chart comes to the screen ahead of the hundred controls below it, and need not wait for them.
        ::UpdateWindow(m_chart.m_hWnd);
        ::GdiFlush();
        return;
    }
    CPaintDC dc(m_hWnd);
    SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()));
    const CRect client = GetClientRect();
    const int x = (client.Width() - ::GetSystemMetrics(SM_CXICON) + 1) / 2;
    const int y = (client.Height() - ::GetSystemMetrics(SM_CYICON) + 1) / 2;
    ::DrawIcon(dc.GetSafeHdc(), x, y, m_icon);
}

// While a dialog or a message is over the window, nobody can press anything in it; what is posted nonetheless
// would open one over another until the stack is full. And once the window closes, nothing begins any more
// that would keep the program running without it.
bool CPlotvaneDlg::MayBegin() const {
    return !m_closing && ::IsWindowEnabled(m_hWnd);
}

void CPlotvaneDlg::OnPause() {
    if (MayBegin()) Pause();
}

void CPlotvaneDlg::OnLoadLog() {
    if (MayBegin()) m_acquisition.control.LoadLog();
}

void CPlotvaneDlg::OnSysCommand(UINT id, LPARAM lParam) {
    switch (id & 0xFFF0) {
        case ID_SYSMENU_PREFERENCES:
            if (MayBegin()) ShowPreferences();
            break;
        case ID_SYSMENU_ABOUT:
            if (MayBegin()) CAboutDlg(m_hWnd).DoModal();
            return;
    }
    CDialog::OnSysCommand(id, lParam);
}

void CPlotvaneDlg::ShowPreferences() {
    CPrefsDlg(m_hWnd, m_data.prefs, m_data.PrefsFile(), m_data.defaults, m_data.state).DoModal();
    m_arePrefsKnown = LoadPrefs(m_data.PrefsFile(), m_data.prefs);
    ApplyColours();
    m_meters.ApplyPrefs();
    m_data.state.redrawRequest = true;
}

// The window ends only once: a message box or the default handling may bring a second close.
void CPlotvaneDlg::OnClose() {
    if (!m_closing) SaveAndEnd();
}

// Of the session: of Windows, when the user logs off or shuts the machine down. Windows may end the process
// as soon as this handler returns, so all that a close saves is saved in it, and nothing waits for the user.
// The question beforehand, whether the session may end, gets the usual yes.
void CPlotvaneDlg::OnEndSession(bool isEnding) {
    if (!isEnding) return;
    m_sessionEnding = true;
    SaveAndEnd();  // also where a close has begun, which waits for the answer to a message
}

// All of it can be done twice.
void CPlotvaneDlg::SaveAndEnd() {
    m_closing = true;
    ::EndMenu();                // an open one has a loop on the stack too
    CloseOwnedWindows(m_hWnd);  // first: edits that are not saved go with the Preferences dialog
    ::SetFocus(nullptr);        // a limit that was typed and not left yet counts: its edit is left now
    Stop();
    // Only the user may write over a file that could not be read.
    if (m_data.prefs.saveWindowSize && m_arePrefsKnown) {
        // A run without the host has made no folder yet; what the user set must not be lost for that.
        MakeFolders(m_data.PrefsFile().parent_path());
        static_cast<void>(
            SavePrefs(m_data.PrefsFile(), m_data.prefs, m_data.state.width, m_data.state.height));
    }
    RemoveFile(kExchangeFileName);
    EndDialog(IDCANCEL);
}

void CPlotvaneDlg::ShowMessage(int textId, int captionId) {
    if (m_sessionEnding) return;
    MessageBoxText(m_hWnd, static_cast<UINT>(textId), static_cast<UINT>(captionId));
}

void CPlotvaneDlg::OnContextMenu(HWND window, POINT screen) {
    if (m_data.state.obdNow) {
        const int field = m_panel.ObdFieldAt(screen);
        if (field < 0) return CDialog::OnContextMenu(window, screen);
        if (m_panel.IsObdTraceShown(field)) m_meters.OpenObdMeter(field);
    } else {
        const int slot = m_panel.SlotAt(screen);
        if (slot < 0) return CDialog::OnContextMenu(window, screen);
        if (m_panel.IsTraceShown(slot)) m_meters.OpenSlotMeter(slot, m_acquisition.module.Labels());
    }
}

void CPlotvaneDlg::OnReplayFaster() {
    if (m_data.state.replayPeriodMs > kReplayPeriodMinMs) m_data.state.replayPeriodMs /= 2;
    ShowReplaySpeed();
}

void CPlotvaneDlg::OnReplaySlower() {
    if (m_data.state.replayPeriodMs < kReplayPeriodMaxMs) m_data.state.replayPeriodMs *= 2;
    ShowReplaySpeed();
}

void CPlotvaneDlg::ShowReplaySpeed() {
    std::string text;
    AppendNumber(text, 1000.0 / m_data.state.replayPeriodMs);
    SetDlgItemText(IDC_REPLAY_SPEED, text + "x");
}

void CPlotvaneDlg::OnScaleMinLeft() {
    m_acquisition.selection.SetMinimum(GetDlgItemText(IDC_SCALE_MIN));
}

void CPlotvaneDlg::OnScaleMaxLeft() {
    m_acquisition.selection.SetMaximum(GetDlgItemText(IDC_SCALE_MAX));
}

void CPlotvaneDlg::OnShiftDown() {
    if (m_data.state.pixelShift > kPixelShiftMin) --m_data.state.pixelShift;
    m_panel.ShowPixelShift(m_data.state.pixelShift);
}

void CPlotvaneDlg::OnShiftUp() {
    if (m_data.state.pixelShift < kPixelShiftMax) ++m_data.state.pixelShift;
    m_panel.ShowPixelShift(m_data.state.pixelShift);
}

// The caret never stays in a value box; where the limits are locked, the button beside them takes it.
void CPlotvaneDlg::OnValueFocus(UINT id) {
    const int slot = static_cast<int>(id) - IDC_VALUE_FIRST;
    m_acquisition.selection.SelectSlot(RowOf(slot), ColumnOf(slot));
    const HWND maximum = GetDlgItem(IDC_SCALE_MAX);
    ::SetFocus(::IsWindowEnabled(maximum) ? maximum : GetDlgItem(IDC_SCALE_NEXT));
}

}  // namespace plotvane
