#include "meter/MeterWnd.h"

#include <algorithm>

#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {
namespace {

// A menu of the program's resources, for as long as this object lives.
class LoadedMenu {
public:
    explicit LoadedMenu(UINT id) : m_menu(::LoadMenuW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id))) {}
    ~LoadedMenu() { ::DestroyMenu(m_menu); }
    LoadedMenu(const LoadedMenu&) = delete;
    LoadedMenu& operator=(const LoadedMenu&) = delete;

    HMENU Popup() const { return ::GetSubMenu(m_menu, 0); }

private:
    HMENU m_menu;
};

void CheckItem(HMENU menu, UINT position, bool checked) {
    ::CheckMenuItem(menu, position, static_cast<UINT>(MF_BYPOSITION) | (checked ? MF_CHECKED : MF_UNCHECKED));
}

}  // namespace

BEGIN_MESSAGE_MAP(CMeterWnd, CWnd)
    // The window itself.
    ON_WM_CONTEXTMENU()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_DISPLAYCHANGE, OnDisplayChange)
    ON_MESSAGE(WM_MOVE, OnMove)
    ON_WM_PAINT()
    ON_WM_SIZE()
    // Context menu, in its order.
    ON_COMMAND(ID_METER_MAX_MARKER, OnEnableMaxMarker)
    ON_COMMAND(ID_METER_MIN_MARKER, OnEnableMinMarker)
    ON_COMMAND(ID_METER_SHOW_PEAK, OnDisplayPeak)
    ON_COMMAND(ID_METER_SWAP_COLOURS, OnSwapColors)
    ON_COMMAND(ID_METER_NEEDLE_COLOUR, OnSelectNeedleColor)
    ON_COMMAND(ID_METER_BACK_COLOUR, OnSelectBackColor)
    ON_COMMAND(ID_METER_FACE_COLOUR, OnSelectFaceColor)
    ON_COMMAND(ID_METER_TICKS_COLOUR, OnSelectTicksColor)
    ON_COMMAND(ID_METER_RESET_PEAK, OnResetPeak)
END_MESSAGE_MAP()

CMeterWnd::CMeterWnd(CMeterWnd** ownerSlot) : m_painter(LoadText(IDS_PEAK)), m_ownerSlot(ownerSlot) {}

const wchar_t* CMeterWnd::WindowClass() {
    constexpr const wchar_t* kName = L"PlotvaneMeter";
    // No brush: the paint covers everything.
    RegisterWindowClass(kName, 0, ::LoadCursorW(nullptr, IDC_ARROW));
    return kName;
}

bool CMeterWnd::Create(const wchar_t* className, DWORD style, const RECT& rect, HWND parent) {
    // No id: for a window that is not a child, Windows would take it for a menu.
    if (!CreateEx(WS_EX_TOOLWINDOW, className, LoadText(IDS_METER), style, rect, parent, 0)) return false;
    UpdateWindow();
    return true;
}

void CMeterWnd::SetValue(double value) {
    Apply(m_gauge.SetValue(value));
}

void CMeterWnd::SetRange(double minimum, double maximum) {
    Apply(m_gauge.SetRange(minimum, maximum));
}

void CMeterWnd::SetValueDecimals(int decimals) {
    Apply(m_gauge.SetValueDecimals(decimals));
}

void CMeterWnd::SetRangeDecimalsZero() {
    Apply(m_gauge.SetRangeDecimalsZero());
}

void CMeterWnd::SetUnits(std::string_view units) {
    Apply(m_gauge.SetUnits(units));
}

void CMeterWnd::SetTitle(std::string_view title) {
    SetWindowText(title);
}

void CMeterWnd::SetNeedleColor(COLORREF colour) {
    Apply(m_gauge.SetNeedleColor(colour));
}

void CMeterWnd::SetBackColor(COLORREF colour) {
    Apply(m_gauge.SetBackColor(colour));
}

void CMeterWnd::SetFaceColor(COLORREF colour) {
    Apply(m_gauge.SetFaceColor(colour));
}

void CMeterWnd::SetTicksColor(COLORREF colour) {
    Apply(m_gauge.SetTicksColor(colour));
}

void CMeterWnd::OnContextMenu(HWND, POINT place) {
    const bool fromKeyboard = place.x == -1 && place.y == -1;
    if (fromKeyboard) {
        const CRect client = GetClientRect();
        place = {client.Width() / 2, client.Height() / 2};
        ::ClientToScreen(m_hWnd, &place);
    }
    const LoadedMenu menu{IDR_METER_MENU};
    const HMENU popup = menu.Popup();
    CheckItem(popup, 0, m_gauge.ShowsMaxMarker());
    CheckItem(popup, 1, m_gauge.ShowsMinMarker());
    CheckItem(popup, 2, m_gauge.ShowsPeak());
    CheckItem(popup, 3, m_gauge.HasSwappedColors());
    // The meter may be gone when this returns: no member may be touched after that. What was chosen arrives
    // as a command of its own.
    ::TrackPopupMenu(popup, TPM_CENTERALIGN | TPM_RIGHTBUTTON, place.x, place.y, 0, m_hWnd, nullptr);
}

void CMeterWnd::OnDestroy() {
    // Nobody is left to take the colour, and a chooser without a meter would keep the program from ending.
    for (const OpenChooser& open : m_choosers) open.chooser->Cancel();
    *m_ownerSlot = nullptr;
    delete this;  // which takes the window from this object, so that its last message finds nobody
}

LRESULT CMeterWnd::OnDisplayChange(WPARAM, LPARAM) {
    m_windowDc.reset();
    return Default();
}

LRESULT CMeterWnd::OnMove(WPARAM, LPARAM) {
    m_windowDc.reset();
    return Default();
}

void CMeterWnd::OnPaint() {
    m_isPaintDue = false;
    CPaintDC paint{m_hWnd};
    m_painter.Paint(paint, GetClientRect(), m_gauge);
}

void CMeterWnd::OnSize(UINT type, int width, int height) {
    CWnd::OnSize(type, width, height);
    m_windowDc.reset();
    InvalidateBackground();
}

// The switches ask for no painting: the next value shows them.
void CMeterWnd::OnEnableMaxMarker() {
    m_gauge.ToggleMaxMarker();
}

void CMeterWnd::OnEnableMinMarker() {
    m_gauge.ToggleMinMarker();
}

void CMeterWnd::OnDisplayPeak() {
    m_gauge.TogglePeak();
}

void CMeterWnd::OnSwapColors() {
    Apply(m_gauge.ToggleSwappedColors());
}

void CMeterWnd::OnSelectNeedleColor() {
    LetUserChoose(&CMeterWnd::SetNeedleColor);
}

void CMeterWnd::OnSelectBackColor() {
    LetUserChoose(&CMeterWnd::SetBackColor);
}

void CMeterWnd::OnSelectFaceColor() {
    LetUserChoose(&CMeterWnd::SetFaceColor);
}

void CMeterWnd::OnSelectTicksColor() {
    LetUserChoose(&CMeterWnd::SetTicksColor);
}

void CMeterWnd::OnResetPeak() {
    m_gauge.ResetPeak();
}

void CMeterWnd::Apply(GaugeChange change) {
    if (change == GaugeChange::Whole) {
        InvalidateBackground();
    } else if (change == GaugeChange::Moving) {
        ShowValue();
    }
}

void CMeterWnd::InvalidateBackground() {
    m_painter.DiscardDial();
    // Without a window it would be the whole screen that is painted anew.
    if (!m_hWnd) return;
    m_isPaintDue = true;
    Invalidate();
}

// At once: by way of WM_PAINT the same costs half as much again. Where the window is going to be painted
// anyway, the value is seen then.
void CMeterWnd::ShowValue() {
    if (!m_hWnd || m_isPaintDue) return;
    if (!m_painter.HasDial()) return InvalidateBackground();  // there was no memory for it; try again
    if (!m_painter.LooksDifferent(m_gauge)) return;
    if (!m_windowDc) m_windowDc.emplace(m_hWnd);
    m_painter.PaintDifference(*m_windowDc);
}

// A chooser for each of the colours, however often one is asked for.
void CMeterWnd::LetUserChoose(void (CMeterWnd::*set)(COLORREF)) {
    const auto isForIt = [set](const OpenChooser& open) { return open.set == set; };
    if (std::ranges::any_of(m_choosers, isForIt)) return;
    const HWND window = m_hWnd;
    ColorChooser chooser;
    m_choosers.push_back({set, &chooser});
    const std::optional<Colour> colour = chooser.Run();
    // The user could close the meter, or the whole program, while the chooser was open.
    if (FromHandle(window) != this) return;
    m_choosers.pop_back();
    if (colour) (this->*set)(*colour);
}

}  // namespace plotvane
