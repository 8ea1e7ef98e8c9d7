#include "tests/support/system/RemoteWindow.h"

#include <algorithm>

namespace plotvane::test {

namespace {

constexpr UINT kAnswerMs = 5000;

// A tip comes and goes with the pointer, wherever that happens to be.
bool IsTip(HWND window) {
    wchar_t name[40]{};
    ::GetClassNameW(window, name, 40);
    return name == std::wstring_view(L"tooltips_class32") || name == std::wstring_view(L"PlotvaneReadOut");
}

}  // namespace

LRESULT RemoteWindow::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    DWORD_PTR result = 0;
    ::SendMessageTimeoutW(m_window, message, wParam, lParam, SMTO_NORMAL, kAnswerMs, &result);
    return static_cast<LRESULT>(result);
}

DWORD RemoteWindow::ProcessId() const {
    DWORD id = 0;
    ::GetWindowThreadProcessId(m_window, &id);
    return id;
}

std::wstring RemoteWindow::Text() const {
    std::wstring text(512, L'\0');
    const LRESULT length = Send(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(length, 0, 511)));
    return text;
}

int RemoteWindow::FocusedId() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!::GetGUIThreadInfo(::GetWindowThreadProcessId(m_window, nullptr), &info)) return 0;
    return ::GetParent(info.hwndFocus) == m_window ? ::GetDlgCtrlID(info.hwndFocus) : 0;
}

void RemoteWindow::Type(int id, const std::wstring& text) const {
    const RemoteWindow edit = Control(id);
    Focus(id);
    edit.Send(EM_SETSEL, 0, -1);
    for (const wchar_t letter : text) edit.Send(WM_CHAR, letter, 1);
}

void RemoteWindow::ResizeTo(int width, int height) const {
    ::SetWindowPos(m_window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool RemoteWindow::Answers(std::chrono::milliseconds within) const {
    DWORD_PTR ignored = 0;
    return ::SendMessageTimeoutW(m_window, WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(within.count()),
                                 &ignored) != 0;
}

RECT RemoteWindow::ScreenRect() const {
    RECT rect{};
    ::GetWindowRect(m_window, &rect);
    return rect;
}

RECT RemoteWindow::ClientScreenRect() const {
    RECT rect{};
    ::GetClientRect(m_window, &rect);
    POINT origin{};
    ::ClientToScreen(m_window, &origin);
    ::OffsetRect(&rect, origin.x, origin.y);
    return rect;
}

SIZE RemoteWindow::Size() const {
    const RECT rect = ScreenRect();
    return {rect.right - rect.left, rect.bottom - rect.top};
}

std::vector<RemoteWindow> WindowsOf(DWORD processId) {
    struct Search {
        DWORD processId;
        std::vector<RemoteWindow> found;
    } search{processId, {}};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        const RemoteWindow candidate(window);
        const bool wantedOwner = wanted.processId == 0 || candidate.ProcessId() == wanted.processId;
        if (wantedOwner && ::IsWindowVisible(window) && !IsTip(window)) wanted.found.push_back(candidate);
        return TRUE;
    };
    ::EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

int ScreenPicture::Count(COLORREF colour) const {
    return static_cast<int>(std::count(pixels.begin(), pixels.end(), colour));
}

ScreenPicture PictureOf(const RECT& screenRect) {
    ScreenPicture picture{screenRect.right - screenRect.left, screenRect.bottom - screenRect.top, {}};
    HDC const screen = ::GetDC(nullptr);
    HDC const memory = ::CreateCompatibleDC(screen);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;  // negative: top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP const bitmap = ::CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HGDIOBJ const previous = ::SelectObject(memory, bitmap);
    ::BitBlt(memory, 0, 0, picture.width, picture.height, screen, screenRect.left, screenRect.top, SRCCOPY);
    ::GdiFlush();
    const auto* const rows = static_cast<const RGBQUAD*>(bits);
    const auto count = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.pixels.reserve(count);
    std::transform(rows, rows + count, std::back_inserter(picture.pixels),
                   [](const RGBQUAD& pixel) { return RGB(pixel.rgbRed, pixel.rgbGreen, pixel.rgbBlue); });
    ::SelectObject(memory, previous);
    ::DeleteObject(bitmap);
    ::DeleteDC(memory);
    ::ReleaseDC(nullptr, screen);
    return picture;
}

}  // namespace plotvane::test
