#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <unordered_map>

#include "framework/MessageMap.h"
#include "framework/Rect.h"

// Writes a line to the debugger's output, cut after 250 characters. Users never see it.
void TraceLine(std::string_view line) noexcept;

// Registers a window class for windows of CWnd once per process; asking again for the same name is harmless.
// The class has no cursor, brush or icon of its own unless given. False if Windows refuses.
bool RegisterWindowClass(const wchar_t* name, UINT classStyle, HCURSOR cursor = nullptr,
                         HBRUSH background = nullptr, HICON icon = nullptr);

// A window and the handlers of its messages. Either may go first: when the window goes, m_hWnd becomes null;
// when the object goes, its destructor destroys the window. All calls come on one thread.
//
// A handler may delete its own object, or dispatch messages and so let another handler delete it. The class
// allows for that; the handler only has to leave its members alone afterwards. If a handler throws, the
// exception is traced and the message counts as handled, so no exception crosses a window procedure.
class CWnd {
public:
    CWnd() = default;
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // Creates the window of a class from RegisterWindowClass, or subclasses one of the system's. `id` is the
    // child id; of a window that is not a child it is ignored. False, and no window, if that fails.
    bool CreateEx(DWORD exStyle, const wchar_t* className, std::string_view title, DWORD style,
                  const RECT& rect, HWND parent, UINT id);
    bool DestroyWindow();

    // Takes over the messages of a window that exists, until the window is destroyed. A window has one object
    // at most, an object one window: false otherwise.
    bool Attach(HWND window);

    // The object of a window; null for none.
    static CWnd* FromHandle(HWND window);

    // Takes a message from the queue before it goes to this window, to one of its children or to a window
    // that this one owns: true if it is dealt with. See HandleQueued.
    virtual bool PreTranslateMessage(MSG&) { return false; }

    // What screen readers call one of the controls in this window, in Windows-1252; if it is empty, the
    // control keeps the system's name. Only a CNamedControl asks, and only when somebody asks it.
    virtual std::string AccessibleNameOf(int /*control*/) const { return {}; }

    HWND m_hWnd = nullptr;  // null while the object has no window

    // The window's text, as Windows-1252 bytes.
    void SetWindowText(std::string_view text);
    std::string GetWindowText() const;

    // Controls by id. A control that does not exist gives null, an empty text or 0.
    HWND GetDlgItem(int id) const;
    void SetDlgItemText(int id, std::string_view text);
    std::string GetDlgItemText(int id) const;
    void CheckDlgButton(int id, bool checked);
    bool IsDlgButtonChecked(int id) const;
    void ShowDlgItem(int id, bool shown) { ::ShowWindow(GetDlgItem(id), shown ? SW_SHOWNA : SW_HIDE); }
    void EnableDlgItem(int id, bool enabled) { ::EnableWindow(GetDlgItem(id), enabled); }
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(GetDlgItem(id), message, wParam, lParam);
    }

    // Messages and timers.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageW(m_hWnd, message, wParam, lParam);
    }
    bool SetTimer(UINT_PTR id, UINT periodMs) { return ::SetTimer(m_hWnd, id, periodMs, nullptr) != 0; }
    void KillTimer(UINT_PTR id) { ::KillTimer(m_hWnd, id); }

    // Place and size. Window rectangles are in screen pixels, MoveWindow takes the parent's client pixels.
    CRect GetClientRect() const;
    CRect GetWindowRect() const;
    CRect ScreenToClient(const RECT& rect) const;
    void MoveWindow(const RECT& rect, bool repaint = true);
    void ShowWindow(int command) { ::ShowWindow(m_hWnd, command); }
    bool IsIconic() const { return ::IsIconic(m_hWnd) != 0; }

    // Painting.
    void Invalidate(bool erase = true) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void SetRedraw(bool on) { SendMessage(WM_SETREDRAW, on); }

protected:
    // The last map of the chain; it has no rows.
    static const CMessageMap& ThisMessageMap();
    virtual const CMessageMap& GetMessageMap() const { return ThisMessageMap(); }

    // Does what the window's class does with the message that is being handled. For handlers only.
    LRESULT Default();

    // A handler calls these for the default processing on top of its own.
    void OnClose() { Default(); }
    void OnContextMenu(HWND, POINT) { Default(); }
    void OnDestroy() { Default(); }
    void OnPaint() { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnSysCommand(UINT, LPARAM) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }

private:
    struct Visit;

    friend bool RegisterWindowClass(const wchar_t*, UINT, HCURSOR, HBRUSH, HICON);
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Dispatch(const CMessage& message);
    bool Map(HWND window);
    void Unmap();

    // The controls by id, as of the last search; of controls that share an id, the first. Windows searches
    // the controls of a dialog one by one, which with a hundred of them costs more than most calls that
    // follow.
    mutable std::unordered_map<int, HWND> m_controls;
    WNDPROC m_superProc = nullptr;  // of an attached window: its own window procedure
    bool m_windowIsBeingDestroyed = false;
};
