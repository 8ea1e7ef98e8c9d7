#pragma once

#include <windows.h>

#include <array>
#include <cmath>
#include <cstdlib>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "plot/chart/TraceChart.h"

namespace plotvane::test {

// The chart's drawing rules as bare calls of the drawing system, on bitmaps compatible with the screen: one
// block transfer for the scroll, the dots pixel by pixel, three block transfers to show it. It has no window
// and no labels. The real chart must show the same pixels, and the benches compare its speed with this one.
class BareChart {
public:
    struct Look {
        int width;
        int height;
        int plotLeft;
        int gridLines;  // in each direction
        int penWidth;
        Colour background;
        Colour grid;
        IndexedArray<Colour, kTraceCount> traces;
        IndexedArray<double, kTraceCount> lower;
        IndexedArray<double, kTraceCount> upper;
    };

    explicit BareChart(const Look& look)
        : m_look(look),
          m_plot(look.plotLeft, 10, look.width - 10, look.height - 10),
          m_background(::CreateSolidBrush(look.background)),
          m_grid(look.width, look.height),
          m_traces(look.width, look.height),
          m_shown(look.width, look.height) {
        m_previousY.fill(-1);
        for (int i = 0; i < kTraceCount; ++i)
            m_pens[i] = CPen{::CreatePen(PS_SOLID, look.penWidth, look.traces[i])};
        FillTraces({0, 0, look.width, look.height});
        DrawGrid();
    }

    void Append(const TraceValues& values, int shift) {
        Scroll(shift);
        for (int i = 0; i < kTraceCount; ++i) DrawPoint(i, values[i], shift);
    }

    void Gap(const TraceValues& values) {
        Scroll(30);
        for (int i = 0; i < kTraceCount; ++i) {
            m_previousY[i] = RowOf(i, values[i]);
            m_previous[i] = values[i];
        }
    }

    void Show(HDC target) const { ShowBy(m_shown, target); }

    // The same through a bitmap that is created for this one call.
    void ShowByNewBitmap(HDC target) const { ShowBy(Sheet(m_look.width, m_look.height), target); }

private:
    // A bitmap compatible with the screen, in its own device context.
    class Sheet {
    public:
        Sheet(int width, int height)
            : m_dc(::CreateCompatibleDC(nullptr)),
              m_bitmap(Like(width, height)),
              m_bitmapInDc(m_dc.Get(), m_bitmap) {}
        HDC Dc() const { return m_dc.Get(); }

    private:
        static HBITMAP Like(int width, int height) {
            const CClientDC screen(nullptr);
            return ::CreateCompatibleBitmap(screen, width, height);
        }
        MemoryDc m_dc;
        CBitmap m_bitmap;
        Selected m_bitmapInDc;
    };

    void ShowBy(const Sheet& shown, HDC target) const {
        ::BitBlt(shown.Dc(), 0, 0, m_look.width, m_look.height, m_grid.Dc(), 0, 0, SRCCOPY);
        ::BitBlt(shown.Dc(), 0, 0, m_look.width, m_look.height, m_traces.Dc(), 0, 0, SRCPAINT);
        ::BitBlt(target, 0, 0, m_look.width, m_look.height, shown.Dc(), 0, 0, SRCCOPY);
    }

    void FillTraces(RECT area) { ::FillRect(m_traces.Dc(), &area, m_background.Get()); }

    void DrawGrid() {
        const HDC dc = m_grid.Dc();
        const RECT client{0, 0, m_look.width, m_look.height};
        ::FillRect(dc, &client, m_background.Get());
        const CPen pen{::CreatePen(PS_SOLID, 1, m_look.grid)};
        const Selected penInDc(dc, pen);
        ::MoveToEx(dc, m_plot.left, m_plot.top, nullptr);
        ::LineTo(dc, m_plot.right + 1, m_plot.top);
        ::LineTo(dc, m_plot.right + 1, m_plot.bottom + 1);
        ::LineTo(dc, m_plot.left, m_plot.bottom + 1);
        ::LineTo(dc, m_plot.left, m_plot.top);
        for (int i = 1; i <= m_look.gridLines; ++i) {
            const int y = m_plot.top + m_plot.Height() * i / (m_look.gridLines + 1);
            for (int x = m_plot.left; x < m_plot.right; x += 4) ::SetPixel(dc, x, y, m_look.grid);
        }
        for (int i = 1; i <= m_look.gridLines; ++i) {
            const int x = m_plot.left + m_plot.Width() * i / (m_look.gridLines + 1);
            for (int y = m_plot.top; y < m_plot.bottom; y += 4) ::SetPixel(dc, x, y, m_look.grid);
        }
    }

    void Scroll(int shift) {
        if (shift <= 0) return;
        const HDC dc = m_traces.Dc();
        ::BitBlt(dc, m_plot.left, m_plot.top, m_plot.Width() + 1 - shift, m_plot.Height(), dc,
                 m_plot.left + shift, m_plot.top, SRCCOPY);
        FillTraces({m_plot.right - shift + 1, m_plot.top, m_plot.right + 1, m_plot.bottom});
    }

    int RowOf(int trace, double value) const {
        const double factor = m_plot.Height() / (m_look.upper[trace] - m_look.lower[trace]);
        return m_plot.bottom - static_cast<int>(std::trunc((value - m_look.lower[trace]) * factor));
    }

    void DrawPoint(int trace, double value, int shift) {
        const HDC dc = m_traces.Dc();
        const Selected penInDc(dc, m_pens[trace]);
        const int x0 = m_plot.right - shift;
        int y0 = m_previousY[trace];
        if (y0 < 1) y0 = RowOf(trace, m_previous[trace]);
        ::MoveToEx(dc, x0 - 1, y0, nullptr);
        int x1 = m_plot.right;
        int y1 = RowOf(trace, value);
        m_previousY[trace] = y1;
        const int dx = x0 - m_plot.right;
        const int dy = y0 - y1;
        if (std::abs(dy) < std::abs(dx)) {
            x1 = m_plot.right + (dx > 0 ? -1 : +1);
        } else {
            y1 += dy > 0 ? -1 : +1;
        }
        ::LineTo(dc, x1 - 1, y1);
        if (y0 <= m_plot.top || y1 <= m_plot.top) FillTraces({x0, 0, x1 + 1, m_plot.top + 1});
        if (y0 >= m_plot.bottom || y1 >= m_plot.bottom)
            FillTraces({x0, m_plot.bottom + 1, x1 + 1, m_look.height + 1});
        m_previous[trace] = value;
    }

    const Look m_look;
    const CRect m_plot;
    const CBrush m_background;
    IndexedArray<CPen, kTraceCount> m_pens{};
    IndexedArray<double, kTraceCount> m_previous{};
    IndexedArray<int, kTraceCount> m_previousY{};
    Sheet m_grid;
    Sheet m_traces;
    Sheet m_shown;
};

}  // namespace plotvane::test
