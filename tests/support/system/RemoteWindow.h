#pragma once

#include <windows.h>

#include <chrono>
#include <string>
#include <vector>

namespace plotvane::test {

// A window of another process. A test uses it as a person does: it reads, clicks and types. If the window
// does not answer, each call gives up after some seconds.
class RemoteWindow {
public:
    RemoteWindow() = default;
    explicit RemoteWindow(HWND window) : m_window(window) {}

    HWND Get() const { return m_window; }
    bool Exists() const { return ::IsWindow(m_window) != FALSE; }
    DWORD ProcessId() const;
    RemoteWindow Control(int id) const { return RemoteWindow(::GetDlgItem(m_window, id)); }

    std::wstring Text() const;  // by WM_GETTEXT, which crosses processes
    std::wstring Text(int id) const { return Control(id).Text(); }
    bool IsShown() const { return ::IsWindowVisible(m_window) != FALSE; }
    bool IsShown(int id) const { return Control(id).IsShown(); }
    bool IsEnabled(int id) const { return ::IsWindowEnabled(Control(id).Get()) != FALSE; }
    bool IsChecked(int id) const { return Control(id).Send(BM_GETCHECK) == BST_CHECKED; }

    // Click returns after the handler has run. If the handler takes long (a restart of the acquisition, a
    // modal dialog), use PostClick, which does not wait for it.
    void Click(int id) const { Send(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), ControlParameter(id)); }
    void PostClick(int id) const { Post(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), ControlParameter(id)); }
    void SetChecked(int id, bool checked) const {
        Control(id).Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
    }
    void Focus(int id) const { Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(id).Get()), TRUE); }
    int FocusedId() const;                              // 0 if no control of the window has the focus
    void Type(int id, const std::wstring& text) const;  // into the focused control, in place of its text
    void Close() const { Post(WM_CLOSE); }
    void ResizeTo(int width, int height) const;

    // Whether the window's thread handles messages; if not, the program looks frozen.
    bool Answers(std::chrono::milliseconds within) const;

    RECT ScreenRect() const;
    RECT ClientScreenRect() const;  // the client area, in screen coordinates
    SIZE Size() const;

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Post(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        ::PostMessageW(m_window, message, wParam, lParam);
    }

private:
    LPARAM ControlParameter(int id) const { return reinterpret_cast<LPARAM>(Control(id).Get()); }

    HWND m_window = nullptr;
};

// All visible top-level windows but tips of a process, or of every process if `processId` is 0.
std::vector<RemoteWindow> WindowsOf(DWORD processId);

// The colours on the screen, 0x00BBGGRR, row by row.
struct ScreenPicture {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;

    COLORREF At(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    int Count(COLORREF colour) const;
};
ScreenPicture PictureOf(const RECT& screenRect);

}  // namespace plotvane::test
