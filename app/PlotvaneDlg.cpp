#include "app/PlotvaneDlg.h"

#include <array>
#include <utility>

#include "app/AboutDlg.h"
#include "app/Manual.h"
#include "app/OwnedWindows.h"
#include "app/ProgramTexts.h"
#include "app/Version.h"
#include "base/FileOperations.h"
#include "base/Numbers.h"
#include "framework/Dc.h"
#include "framework/Text.h"
#include "link/ExchangeFile.h"
#include "link/HostDetection.h"
#include "plot/binding/AirFuelRule.h"
#include "res/resource.h"
#include "scaling/PrefsDlg.h"
#include "scaling/PrefsFile.h"

namespace plotvane {
namespace {

// Window timers; each is one-shot. ChartReadOut has another.
constexpr UINT_PTR kModeTimer = 1;
constexpr UINT_PTR kLayoutTimer = 2;
constexpr UINT_PTR kHintTimer = 3;
constexpr UINT kTimerMs = 100;

constexpr UINT kLogDropped = WM_APP;
constexpr UINT kOpenHistory = WM_APP + 1;

// The template hides these, because only a replay needs them.
constexpr std::array kLogControls = {IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED, IDC_ELAPSED,
                                     IDC_LOAD_LOG,      IDC_REPLAY_GROUP,  IDC_STOP,         IDC_PAUSE};

// "Scaling" under the current directory; a relative path if the full one would be too long.
std::filesystem::path ScalingFolder() {
    constexpr DWORD kMaxDirectory = 512;
    std::array<wchar_t, kMaxDirectory> directory;
    const DWORD length = ::GetCurrentDirectoryW(kMaxDirectory, directory.data());
    const bool fits = length > 0 && length < kMaxDirectory;
    return (fits ? std::filesystem::path(directory.data()) : std::filesystem::path(".")) / "Scaling";
}

}  // namespace

BEGIN_MESSAGE_MAP(CPlotvaneDlg, CDialog)
    // The window itself.
    ON_WM_CLOSE()
    ON_WM_CONTEXTMENU()
    ON_WM_ENDSESSION()
    ON_WM_PAINT()
    ON_MESSAGE(WM_PARENTNOTIFY, OnParentNotify)
    ON_WM_QUERYDRAGICON()
    ON_MESSAGE(WM_SETCURSOR, OnSetCursor)
    ON_WM_SIZE()
    ON_WM_SYSCOMMAND()
    ON_WM_TIMER()
    ON_MESSAGE(kOpenHistory, OnOpenHistory)
    // Run buttons.
    ON_BN_CLICKED(IDC_STOP, OnStop)
    ON_BN_CLICKED(IDC_PAUSE, OnPause)
    ON_BN_CLICKED(IDC_LOAD_LOG, OnLoadLog)
    ON_MESSAGE(kLogDropped, OnLogDropped)
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
    ON_CONTROL_RANGE(BN_SETFOCUS, IDC_SHOW_FIRST, IDC_CHANNEL_SHOW_LAST, OnShowFocus)
    ON_CONTROL_RANGE(BN_KILLFOCUS, IDC_SHOW_FIRST, IDC_CHANNEL_SHOW_LAST, OnShowFocusLost)
    ON_CONTROL_RANGE(BN_CLICKED, IDC_AIR_FUEL_FIRST, IDC_AIR_FUEL_LAST, OnAirFuel)
    ON_BN_CLICKED(IDC_MILEAGE, OnMileage)
    ON_BN_CLICKED(IDC_CONSUMPTION, OnConsumption)
    // Keys.
    ON_KEY_RANGE(ID_KEY_FIRST, ID_KEY_LAST, OnKey)
END_MESSAGE_MAP()

CPlotvaneDlg::CPlotvaneDlg()
    : CDialog(IDD_MAIN),
      m_data(ScalingFolder()),
      m_history(m_data.prefs, LoadText(IDS_FIELD_NUMBER)),
      m_chart(m_data.prefs, m_data.state, m_data.slots, m_history.Columns()),
      m_readOut(*this, m_chart, m_history.Samples(), m_history.Columns(), m_data.prefs),
      m_panel(*this, LoadText(IDS_PIXEL_SHIFT)),
      m_meters(*this, m_data, m_chart, LoadMeterTexts()),
      m_buttons(*this),
      m_layout(*this, m_chart, m_panel, m_data.state),
      m_titleBar(*this, ToWide(std::string("Plotvane v") + kVersion), LoadText(IDS_TITLE_HINT)),
      m_logDrop([this] { return MayLoadLog(); },
                [this](std::filesystem::path log) { TakeDrop(std::move(log)); }),
      m_pump(m_data.state),
      m_acquisition(m_data, {{m_chart, m_panel, m_meters}, m_buttons, *this, &m_history.Recorder()}, m_pipe,
                    m_pump, LoadAcquisitionTexts()),
      m_tipTexts(m_data, m_acquisition.module.Labels(), LoadText),
      m_tips(*this, [this](int control) { return m_tipTexts.Of(control); }),
      m_controlNames(m_tipTexts, m_acquisition.loop.Selection(), LoadText,
                     [this](int control) { return GetDlgItemText(control); }),
      m_limits(*this, m_acquisition.loop.Selection()),
      m_export(*this, m_chart, *this),
      m_keys(*this, m_data.state, m_acquisition, m_panel, m_meters, m_limits, m_export) {}

BOOL CPlotvaneDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    AppendSystemMenu();
    m_arePrefsKnown = LoadPrefs(m_data.PrefsFile(), m_data.prefs);
    m_chart.SetRedraw(false);  // its picture is drawn once, at its final size
    m_layout.CreateChart();
    ApplyColours();
    SetIcons();
    m_panel.SetUp();
    m_buttons.SetUp();
    m_panel.ShowPixelShift(m_data.state.pixelShift);
    m_names.Give(*this, NamelessControls());
    m_layout.SetUp(m_data.prefs.width, m_data.prefs.height);
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

void CPlotvaneDlg::ApplyColours() {
    for (int trace = 0; trace < kTraceCount; ++trace) {
        m_chart.SetTraceColor(m_data.prefs.lineColor[trace], trace);
    }
    m_chart.SetBackgroundColor(m_data.prefs.backColor);
    m_chart.SetGridColor(m_data.prefs.gridColor);
}

void CPlotvaneDlg::SetIcons() {
    m_icon = LoadIconOf(IDI_PLOTVANE, ::GetSystemMetrics(SM_CXICON), ::GetSystemMetrics(SM_CYICON));
    m_smallIcon = LoadIconOf(IDI_PLOTVANE, ::GetSystemMetrics(SM_CXSMICON), ::GetSystemMetrics(SM_CYSMICON));
    SendMessage(WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(m_icon.Get()));
    SendMessage(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(m_smallIcon.Get()));
}

void CPlotvaneDlg::OnTimer(UINT_PTR timer) {
    KillTimer(timer);
    switch (timer) {
        case kModeTimer:
            DecideMode();
            break;
        case kLayoutTimer:
            m_layout.Relayout();
            break;
        case kHintTimer:
            if (m_titleBar.StepHint()) SetTimer(kHintTimer, kTimerMs);
            break;
        case ChartReadOut::kTimer:
            m_readOut.OnTimer();
            break;
    }
}

// Live with the host, else logs. Live, this handler returns when the run is over. A dialog is shown when its
// message queue is first empty. After a slow start this timer comes before that, and a run that begins here
// would leave the window hidden for as long as data flows.
void CPlotvaneDlg::DecideMode() {
    if (m_closing) return;
    if (!::IsWindowVisible(m_hWnd)) ShowWindow(SW_SHOWNORMAL);
    CRect load;
    ::GetWindowRect(GetDlgItem(IDC_LOAD_LOG), &load);
    ::SetCursorPos((load.left + load.right) / 2, (load.top + load.bottom) / 2);
    m_data.state.hostRunning = IsHostRunning();
    SetTimer(kHintTimer, kTimerMs);
    if (m_data.state.hostRunning) {
        m_acquisition.control.StartLive();
    } else {
        for (const int id : kLogControls) ::ShowWindow(GetDlgItem(id), SW_SHOWNORMAL);
        m_logDrop.Open(m_hWnd);
    }
}

LRESULT CPlotvaneDlg::OnSetCursor(WPARAM window, LPARAM mouse) {
    m_tips.TakeMouseMessage(HIWORD(mouse));
    m_readOut.TakeMouse(reinterpret_cast<HWND>(window), HIWORD(mouse));
    return Default();
}

void CPlotvaneDlg::OnSize(UINT type, int width, int height) {
    if (type == SIZE_MINIMIZED || height < MainLayout::kLeastClientHeight) return;
    CDialog::OnSize(type, width, height);
    SetTimer(kLayoutTimer, kTimerMs);
}

void CPlotvaneDlg::OnPaint() {
    if (!IsIconic()) {
        Default();
        // Paints the chart first: it need not wait for the hundred controls below it.
        ::UpdateWindow(m_chart.m_hWnd);
        ::GdiFlush();
        return;
    }
    CPaintDC dc(m_hWnd);
    SendMessage(WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(dc.GetSafeHdc()));
    const CRect client = GetClientRect();
    const int x = (client.Width() - ::GetSystemMetrics(SM_CXICON) + 1) / 2;
    const int y = (client.Height() - ::GetSystemMetrics(SM_CYICON) + 1) / 2;
    ::DrawIcon(dc.GetSafeHdc(), x, y, m_icon.Get());
}

// While a dialog or a message box is open, the user cannot press anything in this window, but other programs
// can still post messages to it. They must not open one dialog over another until the stack is full. And once
// the window closes, nothing may begin that would keep the program running without it.
bool CPlotvaneDlg::MayBegin() const {
    return !m_closing && ::IsWindowEnabled(m_hWnd);
}

void CPlotvaneDlg::OnPause() {
    if (MayBegin()) m_acquisition.control.Pause();
}

void CPlotvaneDlg::OnLoadLog() {
    if (MayBegin()) m_acquisition.control.LoadLog();
}

bool CPlotvaneDlg::MayLoadLog() const {
    return MayBegin() && m_acquisition.control.MayLoadLog();
}

// The program from which the user drops a log waits until this returns, but a replay lasts as long as the
// log. So this only posts a message, and its handler loads the log.
void CPlotvaneDlg::TakeDrop(std::filesystem::path log) {
    m_droppedLog = std::move(log);
    ::PostMessageW(m_hWnd, kLogDropped, 0, 0);
}

LRESULT CPlotvaneDlg::OnLogDropped(WPARAM, LPARAM) {
    if (!MayLoadLog()) m_droppedLog.reset();
    if (m_droppedLog) m_acquisition.control.LoadLog();
    return 0;
}

std::optional<std::filesystem::path> CPlotvaneDlg::ChooseLog() {
    if (m_droppedLog) return std::exchange(m_droppedLog, std::nullopt);
    return AskForLogFile(m_hWnd);
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

// The window opens when the press is done. Opened here, it would lose the focus to this one.
LRESULT CPlotvaneDlg::OnParentNotify(WPARAM what, LPARAM place) {
    POINT point{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    ::ClientToScreen(m_hWnd, &point);
    if (LOWORD(what) == WM_LBUTTONDOWN && m_history.IsDoubleClickOn(m_chart, point))
        ::PostMessageW(m_hWnd, kOpenHistory, 0, 0);
    return Default();
}

void CPlotvaneDlg::OpenHistory() {
    if (!m_closing) m_history.Open(m_hWnd, m_acquisition.loop.Selection().Slot());
}

// Closes only once: a message box or the default handling may send a second WM_CLOSE.
void CPlotvaneDlg::OnClose() {
    if (!m_closing) SaveAndEnd();
}

// The user logs off or shuts the machine down. Windows may end the process as soon as this handler returns,
// so it saves all that a close saves and does not wait for the user. Windows has asked before whether the
// session may end, and got the usual yes.
void CPlotvaneDlg::OnEndSession(bool isEnding) {
    if (!isEnding) return;
    m_sessionEnding = true;
    SaveAndEnd();  // even if a close has begun, which waits for the answer to a message
}

// Each step may run twice: once for a close, once for the end of the session.
void CPlotvaneDlg::SaveAndEnd() {
    m_closing = true;
    m_logDrop.Close();
    ::EndMenu();                // an open menu has a loop on the stack too
    CloseOwnedWindows(m_hWnd);  // first, because the Preferences dialog drops edits that are not saved
    ::SetFocus(nullptr);        // so that a limit still being typed counts
    OnStop();
    // Only the user may write over a file that could not be read.
    if (m_data.prefs.saveWindowSize && m_arePrefsKnown) {
        // Without a run there is no folder yet.
        MakeFolders(m_data.PrefsFile().parent_path());
        static_cast<void>(
            SavePrefs(m_data.PrefsFile(), m_data.prefs, m_data.state.width, m_data.state.height));
    }
    RemoveFile(kExchangeFileName);
    EndDialog(IDCANCEL);
}

void CPlotvaneDlg::ShowBox(HWND owner, int textId, int captionId) {
    if (m_sessionEnding) return;
    MessageBoxText(owner, static_cast<UINT>(textId), static_cast<UINT>(captionId));
}

void CPlotvaneDlg::OnContextMenu(HWND window, POINT screen) {
    if (m_data.state.tenChannels) {
        const int channel = m_panel.ChannelAt(screen);
        if (channel < 0) return CDialog::OnContextMenu(window, screen);
        if (m_panel.IsChannelShown(channel)) m_meters.OpenChannelMeter(channel);
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

void CPlotvaneDlg::OnShiftDown() {
    if (m_data.state.pixelShift > kPixelShiftMin) --m_data.state.pixelShift;
    m_panel.ShowPixelShift(m_data.state.pixelShift);
}

void CPlotvaneDlg::OnShiftUp() {
    if (m_data.state.pixelShift < kPixelShiftMax) ++m_data.state.pixelShift;
    m_panel.ShowPixelShift(m_data.state.pixelShift);
}

void CPlotvaneDlg::OnAirFuel(UINT id) {
    m_data.state.redrawRequest = true;
    // Slots and their buttons are swapped in pairs, so the function also gives the slot of a button.
    m_acquisition.loop.Seen().Forget(AirFuelButtonOf(static_cast<int>(id) - IDC_AIR_FUEL_FIRST));
}

void CPlotvaneDlg::OnKey(UINT command) {
    if (command == ID_KEY_MANUAL) return OnManualKey();
    if (!MayBegin()) return;
    if (command == ID_KEY_HISTORY) return OpenHistory();
    m_keys.Run(static_cast<int>(command));
}

// F1 works in a dialog too. If there is no manual, the message belongs to that dialog.
void CPlotvaneDlg::OnManualKey() {
    if (m_closing || ShowManual(KeyCommands::PageInFront())) return;
    const HWND front = ::IsWindowEnabled(m_hWnd) ? m_hWnd : ::GetActiveWindow();
    ShowBox(front, IDS_NO_MANUAL, IDS_ERROR);
}

// The caret never stays in a value box. If the limits are disabled, the button beside them gets the focus.
void CPlotvaneDlg::OnValueFocus(UINT id) {
    const int slot = static_cast<int>(id) - IDC_VALUE_FIRST;
    m_acquisition.loop.Selection().SelectSlot(RowOf(slot), ColumnOf(slot));
    const HWND maximum = GetDlgItem(IDC_SCALE_MAX);
    ::SetFocus(::IsWindowEnabled(maximum) ? maximum : GetDlgItem(IDC_SCALE_NEXT));
}

}  // namespace plotvane
