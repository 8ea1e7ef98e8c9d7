#include "framework/Wnd.h"

#include <exception>
#include <unordered_map>
#include <utility>

#include "framework/Text.h"

namespace {

std::unordered_map<HWND, CWnd*>& Windows() {
    static std::unordered_map<HWND, CWnd*> windows;
    return windows;
}

std::string TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return ToBytes(text);
}

// The answer to a message whose handler threw.
LRESULT AnswerAfterException(HWND window, UINT message) {
    // Windows sends WM_PAINT again and again until the update region is empty.
    if (message == WM_PAINT) ::ValidateRect(window, nullptr);
    return message == WM_CREATE ? -1 : 0;  // -1: create no window that is half set up
}

}  // namespace

// One running dispatch. The dispatches on the stack form a chain, whatever their windows. The destructor of
// CWnd clears the window pointer of every dispatch still running for it.
struct CWnd::Visit {
    Visit(CWnd& wnd, const CMessage& what) : window(&wnd), message(what), outer(s_innermost) {
        s_innermost = this;
    }
    ~Visit() { s_innermost = outer; }
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

    CWnd* window;  // null once it is gone
    const CMessage message;
    Visit* const outer;

    static inline Visit* s_innermost = nullptr;
};

void TraceLine(std::string_view line) noexcept {
    ::OutputDebugStringW(WideText{line.substr(0, 250)}.c_str());  // short: needs no memory
    ::OutputDebugStringW(L"\r\n");
}

bool RegisterWindowClass(const wchar_t* name, UINT classStyle, HCURSOR cursor, HBRUSH background,
                         HICON icon) {
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    const HINSTANCE instance = ::GetModuleHandleW(nullptr);
    if (::GetClassInfoExW(instance, name, &known)) return known.lpfnWndProc == &CWnd::WindowProc;

    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = classStyle;
    windowClass.lpfnWndProc = &CWnd::WindowProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = cursor;
    windowClass.hbrBackground = background;
    windowClass.hIcon = icon;
    windowClass.lpszClassName = name;
    return ::RegisterClassExW(&windowClass) != 0;
}

CWnd::~CWnd() {
    for (Visit* visit = Visit::s_innermost; visit; visit = visit->outer) {
        if (visit->window == this) visit->window = nullptr;
    }
    if (!m_hWnd) return;
    const HWND window = m_hWnd;
    const bool isBeingDestroyed = m_windowIsBeingDestroyed;
    Unmap();  // first: the handlers of the derived class are gone already
    if (!isBeingDestroyed) ::DestroyWindow(window);
}

bool CWnd::CreateEx(DWORD exStyle, const wchar_t* className, std::string_view title, DWORD style,
                    const RECT& rect, HWND parent, UINT id) {
    if (m_hWnd) return false;
    const HMENU childId = (style & WS_CHILD) ? reinterpret_cast<HMENU>(UINT_PTR{id}) : nullptr;
    const HWND window = ::CreateWindowExW(exStyle, className, WideText{title}.c_str(), style, rect.left,
                                          rect.top, rect.right - rect.left, rect.bottom - rect.top, parent,
                                          childId, ::GetModuleHandleW(nullptr), this);
    if (!window) return false;
    if (m_hWnd == window || Attach(window)) return true;
    ::DestroyWindow(window);
    return false;
}

bool CWnd::DestroyWindow() {
    return m_hWnd && ::DestroyWindow(m_hWnd);
}

bool CWnd::Attach(HWND window) {
    if (!Map(window)) return false;
    m_superProc = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowProc)));
    return true;
}

CWnd* CWnd::FromHandle(HWND window) {
    const auto found = Windows().find(window);
    return found == Windows().end() ? nullptr : found->second;
}

void CWnd::SetWindowText(std::string_view text) {
    ::SetWindowTextW(m_hWnd, WideText{text}.c_str());
}

std::string CWnd::GetWindowText() const {
    return TextOf(m_hWnd);
}

// Checks the handle that was found earlier: the control may be gone and the handle in use for something else.
HWND CWnd::GetDlgItem(int id) const {
    const auto found = m_controls.find(id);
    if (found != m_controls.end() && ::GetDlgCtrlID(found->second) == id &&
        ::GetParent(found->second) == m_hWnd)
        return found->second;
    m_controls.clear();
    const auto note = [](HWND child, LPARAM parameter) -> BOOL {
        const auto& self = *reinterpret_cast<const CWnd*>(parameter);
        if (::GetParent(child) == self.m_hWnd) self.m_controls.emplace(::GetDlgCtrlID(child), child);
        return TRUE;
    };
    ::EnumChildWindows(m_hWnd, note, reinterpret_cast<LPARAM>(this));
    return m_controls[id];
}

void CWnd::SetDlgItemText(int id, std::string_view text) {
    ::SetWindowTextW(GetDlgItem(id), WideText{text}.c_str());
}

std::string CWnd::GetDlgItemText(int id) const {
    return TextOf(GetDlgItem(id));
}

void CWnd::CheckDlgButton(int id, bool checked) {
    SendDlgItemMessage(id, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
}

bool CWnd::IsDlgButtonChecked(int id) const {
    return SendDlgItemMessage(id, BM_GETCHECK) == BST_CHECKED;
}

CRect CWnd::GetClientRect() const {
    CRect rect;
    ::GetClientRect(m_hWnd, &rect);
    return rect;
}

CRect CWnd::GetWindowRect() const {
    CRect rect;
    ::GetWindowRect(m_hWnd, &rect);
    return rect;
}

CRect CWnd::ScreenToClient(const RECT& rect) const {
    CRect moved{rect};
    POINT origin{0, 0};
    ::ScreenToClient(m_hWnd, &origin);
    ::OffsetRect(&moved, origin.x, origin.y);
    return moved;
}

void CWnd::MoveWindow(const RECT& rect, bool repaint) {
    ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

const CMessageMap& CWnd::ThisMessageMap() {
    static const CMessageMap map{nullptr, {}};
    return map;
}

LRESULT CWnd::Default() {
    const Visit* visit = Visit::s_innermost;
    while (visit && visit->window != this) visit = visit->outer;
    if (!visit || !m_hWnd) return 0;
    const CMessage what = visit->message;
    if (!m_superProc) return ::DefWindowProcW(m_hWnd, what.message, what.wParam, what.lParam);
    return ::CallWindowProcW(m_superProc, m_hWnd, what.message, what.wParam, what.lParam);
}

LRESULT CALLBACK CWnd::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    try {
        CWnd* wnd = FromHandle(window);
        if (!wnd && message == WM_NCCREATE) {
            // Only CreateEx makes windows of our classes, and hands itself over.
            auto* creator = static_cast<CWnd*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
            if (!creator || !creator->Map(window)) return FALSE;
            wnd = creator;
        }
        if (wnd) return wnd->Dispatch({message, wParam, lParam});
    } catch (const std::exception& e) {
        TraceLine(e.what());
        return AnswerAfterException(window, message);
    } catch (...) {
        TraceLine("A handler threw something unknown.");
        return AnswerAfterException(window, message);
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CWnd::Dispatch(const CMessage& message) {
    Visit visit{*this, message};
    if (message.message == WM_DESTROY) m_windowIsBeingDestroyed = true;
    if (message.message == WM_NCDESTROY) {
        const LRESULT result = Default();
        if (visit.window) Unmap();
        return result;
    }
    const CMessageRow* row = GetMessageMap().Find(message);
    return row ? row->run(*this, message) : Default();
}

bool CWnd::Map(HWND window) {
    if (m_hWnd || !::IsWindow(window) || !Windows().emplace(window, this).second) return false;
    m_hWnd = window;
    m_windowIsBeingDestroyed = false;
    return true;
}

void CWnd::Unmap() {
    const HWND window = std::exchange(m_hWnd, nullptr);
    Windows().erase(window);
    if (const WNDPROC superProc = std::exchange(m_superProc, nullptr)) {
        ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(superProc));
    }
}
