#pragma once

#include <windows.h>

#include <span>
#include <string_view>

#include "framework/Rect.h"
#include "framework/Text.h"

// Draws on a device context that it does not own. Texts are Windows-1252 bytes.
class CDC {
public:
    explicit CDC(HDC dc) : m_hDC(dc) {}
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }

    // Lines, with the selected pen. A line does not include its last pixel.
    void MoveTo(int x, int y) { ::MoveToEx(m_hDC, x, y, nullptr); }
    void LineTo(int x, int y) { ::LineTo(m_hDC, x, y); }

    // Areas. Rectangle and Polygon draw their outline with the selected pen and fill it with the selected
    // brush.
    void FillRect(const RECT& rect, HBRUSH brush) { ::FillRect(m_hDC, &rect, brush); }
    void FrameRect(const RECT& rect, HBRUSH brush) { ::FrameRect(m_hDC, &rect, brush); }
    void Rectangle(const RECT& rect) { ::Rectangle(m_hDC, rect.left, rect.top, rect.right, rect.bottom); }
    void Polygon(std::span<const POINT> points) {
        ::Polygon(m_hDC, points.data(), static_cast<int>(points.size()));
    }

    // Needs no brush. Afterwards the background colour is `colour`.
    void FillSolidRect(const RECT& rect, COLORREF colour) {
        ::SetBkColor(m_hDC, colour);
        ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    }

    // Text, with the selected font.
    COLORREF SetTextColor(COLORREF colour) { return ::SetTextColor(m_hDC, colour); }
    COLORREF SetBkColor(COLORREF colour) { return ::SetBkColor(m_hDC, colour); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hDC); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    UINT SetTextAlign(UINT flags) { return ::SetTextAlign(m_hDC, flags); }
    void TextOut(int x, int y, std::string_view text) {
        const WideText wide{text};
        ::TextOutW(m_hDC, x, y, wide.c_str(), wide.Length());
    }
    // Draws only what lies inside the rectangle.
    void TextOutClipped(int x, int y, const RECT& rect, std::string_view text) {
        const WideText wide{text};
        ::ExtTextOutW(m_hDC, x, y, ETO_CLIPPED, &rect, wide.c_str(), static_cast<UINT>(wide.Length()),
                      nullptr);
    }
    // Fills the rectangle with the background colour and draws what lies inside it.
    void TextOutOpaque(int x, int y, const RECT& rect, std::string_view text) {
        const WideText wide{text};
        ::ExtTextOutW(m_hDC, x, y, ETO_CLIPPED | ETO_OPAQUE, &rect, wide.c_str(),
                      static_cast<UINT>(wide.Length()), nullptr);
    }
    SIZE GetTextExtent(std::string_view text) const {
        const WideText wide{text};
        SIZE size{};
        ::GetTextExtentPoint32W(m_hDC, wide.c_str(), wide.Length(), &size);
        return size;
    }
    TEXTMETRICW GetTextMetrics() const {
        TEXTMETRICW metrics{};
        ::GetTextMetricsW(m_hDC, &metrics);
        return metrics;
    }

    // Clipping. A null region removes it.
    void SelectClipRgn(HRGN region) { ::SelectClipRgn(m_hDC, region); }
    CRect GetClipBox() const {
        CRect box;
        ::GetClipBox(m_hDC, &box);
        return box;
    }

    // Pictures.
    bool BitBlt(int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop) {
        return ::BitBlt(m_hDC, x, y, width, height, source, sourceX, sourceY, rop) != 0;
    }
    void DrawIcon(int x, int y, HICON icon) { ::DrawIcon(m_hDC, x, y, icon); }

protected:
    HDC m_hDC;
};

// For the handler of WM_PAINT and nowhere else. Even if the handler throws, the window's update region is
// empty afterwards; otherwise Windows would send WM_PAINT again and again.
class CPaintDC : public CDC {
public:
    explicit CPaintDC(HWND window) : CDC(nullptr), m_window(window) { m_hDC = ::BeginPaint(window, &m_ps); }
    ~CPaintDC() { ::EndPaint(m_window, &m_ps); }

    const PAINTSTRUCT& Paint() const { return m_ps; }

private:
    HWND m_window;
    PAINTSTRUCT m_ps{};
};

// The client area of a window with its child windows, which drawing covers.
class CDialogDC : public CDC {
public:
    explicit CDialogDC(HWND window) : CDC(::GetDCEx(window, nullptr, DCX_CACHE)), m_window(window) {}
    ~CDialogDC() { ::ReleaseDC(m_window, m_hDC); }

private:
    HWND m_window;
};

// The client area, outside WM_PAINT. A null window means the whole screen.
class CClientDC : public CDC {
public:
    explicit CClientDC(HWND window) : CDC(::GetDC(window)), m_window(window) {}
    ~CClientDC() { ::ReleaseDC(m_window, m_hDC); }

private:
    HWND m_window;
};
