// Keys and mouse of the window that looks back.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "history/HistoryWnd.h"

namespace plotvane {
namespace {

constexpr int kClickPx = 3;  // further, and it is a drag
constexpr double kZoomStep = 0.5;
constexpr double kWheelStep = 0.8;  // for each notch
constexpr double kMoveShare = 0.1;  // of the view, by an arrow key
constexpr double kPageShare = 0.9;

bool IsKeyDown(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

LRESULT CHistoryWnd::OnKey(WPARAM key, LPARAM) {
    TakeWhatIsNew();
    m_saves.Forget();
    const bool isShifted = IsKeyDown(VK_SHIFT);
    const bool isHandled =
        IsKeyDown(VK_CONTROL) ? HandleControlKey(key, isShifted) : HandlePlainKey(key, isShifted);
    if (!isHandled) return Default();
    // Esc, or what came while a file was asked for, has closed the window.
    if (m_hWnd) Invalidate(false);
    return 0;
}

// Moves what the user holds: a fixed cursor by a pixel, else the view.
void CHistoryWnd::HandleArrow(int step, bool isShifted) {
    if (!m_state->IsFixed()) return m_state->MoveBy(step * m_state->View().Width() * kMoveShare);
    isShifted ? m_state->MoveSecond(step) : m_state->MoveCursor(step);
}

bool CHistoryWnd::HandlePlainKey(WPARAM key, bool isShifted) {
    const double width = m_state->View().Width();
    switch (key) {
        case VK_LEFT:
        case VK_RIGHT:
            HandleArrow(key == VK_LEFT ? -1 : 1, isShifted);
            return true;
        case VK_RETURN:
            m_state->ToggleFixed();
            return true;
        case VK_PRIOR:
            m_state->MoveBy(-width * kPageShare);
            return true;
        case VK_NEXT:
            m_state->MoveBy(width * kPageShare);
            return true;
        case VK_HOME:
            m_state->MoveToBegin();
            return true;
        case VK_END:
            m_state->MoveToEnd();
            return true;
        case VK_UP:
            m_state->StepFront(-1);
            return true;
        case VK_DOWN:
            m_state->StepFront(1);
            return true;
        case VK_SPACE:
            if (const auto front = m_state->Front()) m_state->ToggleHidden(*front);
            return true;
        case VK_ESCAPE:
            if (m_saves.IsGoing()) {
                m_saves.Cancel();
            } else {
                DestroyWindow();
            }
            return true;
        default:
            return false;
    }
}

bool CHistoryWnd::HandleControlKey(WPARAM key, bool isShifted) {
    switch (key) {
        case VK_OEM_PLUS:
        case VK_ADD:
            m_state->ZoomAboutCursor(kZoomStep);
            return true;
        case VK_OEM_MINUS:
        case VK_SUBTRACT:
            m_state->ZoomAboutCursor(1.0 / kZoomStep);
            return true;
        case '0':
        case VK_NUMPAD0:
            m_state->ShowAll();
            return true;
        case VK_LEFT:
        case VK_RIGHT: {
            const int step = key == VK_LEFT ? -1 : 1;
            isShifted ? m_state->StepSecond(step) : m_state->StepCursor(step);
            return true;
        }
        case 'C':
            if (isShifted) {
                m_saves.CopyTable(m_hWnd, *m_state);
            } else {
                CopyPicture();
            }
            return true;
        case 'S':
            Save(isShifted);
            return true;
        default:
            return false;
    }
}

bool CHistoryWnd::IsOverPlot(int x, int y) const {
    const PixelRect& plot = m_layout->Plot();
    return x >= plot.left && x < plot.right && y >= plot.top && y < plot.bottom;
}

LRESULT CHistoryWnd::OnButtonDown(WPARAM, LPARAM place) {
    TakeWhatIsNew();
    m_saves.Forget();
    const int x = GET_X_LPARAM(place);
    const int y = GET_Y_LPARAM(place);
    if (!m_layout) return 0;
    if (IsOverPlot(x, y)) {
        m_drag.emplace(Drag{x, x});
        ::SetCapture(m_hWnd);
    } else {
        ClickList(x, y);
    }
    return 0;
}

void CHistoryWnd::ClickList(int x, int y) {
    const auto entry = m_layout->EntryAt(x, y);
    if (!entry) return;
    const int trace = m_list[static_cast<std::size_t>(*entry)].trace;
    if (m_layout->IsOnMark(*entry, x, y)) {
        m_state->ToggleHidden(trace);
    } else {
        m_state->ToggleFront(trace);
    }
    Invalidate(false);
}

LRESULT CHistoryWnd::OnButtonUp(WPARAM keys, LPARAM place) {
    TakeWhatIsNew();
    if (!m_drag) return 0;
    const bool isClick = !m_drag->hasMoved;
    m_drag.reset();
    ::ReleaseCapture();
    if (isClick) {
        const int column = ColumnAt(GET_X_LPARAM(place));
        (keys & MK_SHIFT) != 0 ? m_state->FixSecond(column) : m_state->Fix(column);
        Invalidate(false);
    }
    return 0;
}

LRESULT CHistoryWnd::OnMouseMove(WPARAM, LPARAM place) {
    TakeWhatIsNew();
    const int x = GET_X_LPARAM(place);
    if (!m_layout) return 0;
    if (m_drag) {
        m_drag->hasMoved = m_drag->hasMoved || std::abs(x - m_drag->first) > kClickPx;
        if (!m_drag->hasMoved) return 0;
        m_state->MoveBy(m_drag->last - x);
        m_drag->last = x;
    }
    if (IsOverPlot(x, GET_Y_LPARAM(place))) {
        m_state->PointAt(ColumnAt(x));
    } else {
        m_state->PointNowhere();
    }
    AskForLeave();
    Invalidate(false);
    return 0;
}

// The pointer may have left before its last move arrived. Windows says so at once, and Wine never does.
void CHistoryWnd::AskForLeave() const {
    TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, m_hWnd, 0};
    ::TrackMouseEvent(&leave);
    TRACKMOUSEEVENT awaited{sizeof awaited, TME_QUERY, nullptr, 0};
    ::TrackMouseEvent(&awaited);
    if (awaited.hwndTrack != m_hWnd) ::PostMessageW(m_hWnd, WM_MOUSELEAVE, 0, 0);
}

LRESULT CHistoryWnd::OnCaptureLost(WPARAM, LPARAM) {
    m_drag.reset();
    return 0;
}

LRESULT CHistoryWnd::OnMouseLeave(WPARAM, LPARAM) {
    m_state->PointNowhere();
    Invalidate(false);
    return 0;
}

// About the pointer, wherever it is; the place comes in screen pixels.
LRESULT CHistoryWnd::OnWheel(WPARAM turn, LPARAM place) {
    TakeWhatIsNew();
    if (!m_layout) return 0;
    POINT point{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
    ::ScreenToClient(m_hWnd, &point);
    const int column = std::clamp(ColumnAt(point.x), 0, m_state->View().Width());
    const double notches = static_cast<double>(GET_WHEEL_DELTA_WPARAM(turn)) / WHEEL_DELTA;
    m_state->ZoomAbout(column, std::pow(kWheelStep, notches));
    Invalidate(false);
    return 0;
}

}  // namespace plotvane
