// Measures what one sample costs on the chart: AppendPoints for twelve traces, then dispatching the paint
// message. Compares it with the same drawing in bare calls, in the same process and on the same window
// system. Prints microseconds and ratios; only the ratios can be compared between machines.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "plot/chart/MultiPlotCtrl.h"
#include "tests/windows/plot/chart/BareChart.h"

namespace plotvane {
namespace {

constexpr int kRounds = 15;  // the contenders take turns, so that a busy moment affects all of them
constexpr int kSamplesPerRound = 100;
constexpr int kShift = 3;

double NowUs() {
    LARGE_INTEGER count{}, frequency{};
    ::QueryPerformanceCounter(&count);
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(frequency.QuadPart);
}

void DispatchAll() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

// Lets the window system finish its pending work before a measurement.
void Settle() {
    const double end = NowUs() + 300e3;
    while (NowUs() < end) {
        DispatchAll();
        ::Sleep(1);
    }
}

TraceValues Sample(int i) {
    TraceValues values{};
    for (std::size_t k = 0; k < values.size(); ++k) {
        values[k] = 50.0 + 45.0 * std::sin(i * 0.01 * static_cast<double>(k + 1) + static_cast<double>(k));
    }
    return values;
}

// Shows a bare chart through WM_PAINT.
class BareWindow : public CWnd {
public:
    using Show = void (test::BareChart::*)(HDC) const;

    BareWindow(const test::BareChart& chart, Show show) : m_chart(chart), m_show(show) {}

private:
    void OnPaint() {
        CPaintDC dc(m_hWnd);
        (m_chart.*m_show)(dc);
    }
    DECLARE_MESSAGE_MAP()
    const test::BareChart& m_chart;
    const Show m_show;
};

BEGIN_MESSAGE_MAP(BareWindow, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

struct Contender {
    const char* name;
    HWND window;
    std::function<void(const TraceValues&)> append;
    std::array<double, kRounds> us{};

    double MedianUs() const {
        auto sorted = us;
        std::ranges::sort(sorted);
        return sorted[kRounds / 2];
    }
};

void Measure(Contender& contender, std::size_t round) {
    // Each window is on top while it is measured: a covered window costs less to paint.
    ::SetWindowPos(contender.window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    Settle();
    static int sample = 0;
    const double start = NowUs();
    for (int i = 0; i < kSamplesPerRound; ++i) contender.append(Sample(sample++));
    contender.us[round] = (NowUs() - start) / kSamplesPerRound;
}

void Compare(int width, int height) {
    const Prefs prefs;
    const RunState state;
    const SlotTable slots;
    CWnd parent;
    parent.CreateEx(0, L"ChartBench", "", WS_POPUP | WS_VISIBLE, CRect{0, 0, width + 6, height + 6}, nullptr,
                    0);

    CMultiPlotCtrl chart(prefs, state, slots);
    chart.SetGridCounts({.vertical = 9, .horizontal = 9});
    chart.SetLabelMargin(1);
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
    chart.Create(kStyle, CRect{0, 0, width + 6, height + 6}, parent.m_hWnd, 1);
    CMultiPlotCtrl blueChart(prefs, state, slots);
    blueChart.SetGridCounts({.vertical = 9, .horizontal = 9});
    blueChart.SetLabelMargin(1);
    blueChart.SetBackgroundColor(0x281400);
    blueChart.Create(kStyle, CRect{0, 0, width + 6, height + 6}, parent.m_hWnd, 5);

    test::BareChart::Look look{.width = width,
                               .height = height,
                               .plotLeft = 54,
                               .gridLines = 9,
                               .penWidth = 0,
                               .background = kBlack,
                               .grid = kWhite,
                               .traces = prefs.lineColor,
                               .lower = {},
                               .upper = {}};
    look.upper.fill(100.0);
    test::BareChart bare(look);
    CWnd direct;
    direct.CreateEx(0, L"ChartBench", "", kStyle, CRect{0, 0, width, height}, parent.m_hWnd, 2);
    BareWindow painted(bare, &test::BareChart::Show);
    painted.CreateEx(0, L"ChartBench", "", kStyle, CRect{0, 0, width, height}, parent.m_hWnd, 3);
    BareWindow paintedAnew(bare, &test::BareChart::ShowByNewBitmap);
    paintedAnew.CreateEx(0, L"ChartBench", "", kStyle, CRect{0, 0, width, height}, parent.m_hWnd, 4);
    const CClientDC directDc(direct.m_hWnd);

    std::array contenders = {
        Contender{"bare calls, no messages", direct.m_hWnd,
                  [&](const TraceValues& values) {
                      bare.Append(values, kShift);
                      bare.Show(directDc);
                  }},
        Contender{"bare calls through WM_PAINT, kept bitmap", painted.m_hWnd,
                  [&](const TraceValues& values) {
                      bare.Append(values, kShift);
                      painted.Invalidate();
                      DispatchAll();
                  }},
        Contender{"bare calls through WM_PAINT, new bitmap", paintedAnew.m_hWnd,
                  [&](const TraceValues& values) {
                      bare.Append(values, kShift);
                      paintedAnew.Invalidate();
                      DispatchAll();
                  }},
        Contender{"CMultiPlotCtrl", chart.m_hWnd,
                  [&](const TraceValues& values) {
                      chart.AppendPoints(values);
                      DispatchAll();
                  }},
        // If the background is not black, every pixel of the chart counts as grid.
        Contender{"CMultiPlotCtrl on dark blue", blueChart.m_hWnd,
                  [&](const TraceValues& values) {
                      blueChart.AppendPoints(values);
                      DispatchAll();
                  }},
    };
    for (std::size_t round = 0; round < kRounds; ++round) {
        for (Contender& contender : contenders) Measure(contender, round);
    }
    std::printf("client %d x %d, median of %d rounds of %d samples\n", width, height, kRounds,
                kSamplesPerRound);
    for (const Contender& contender : contenders) {
        std::printf("  %-42s %8.1f us   %5.2f of the first, %5.2f of the second\n", contender.name,
                    contender.MedianUs(), contender.MedianUs() / contenders[0].MedianUs(),
                    contender.MedianUs() / contenders[1].MedianUs());
    }

    const double start = NowUs();
    constexpr int kRedraws = 50;
    for (int i = 0; i < kRedraws; ++i) chart.InvalidateCtrl();
    std::printf("  %-42s %8.1f us\n", "a full redraw, without painting", (NowUs() - start) / kRedraws);
    std::fflush(stdout);
}

}  // namespace
}  // namespace plotvane

int main() {
    if (!RegisterWindowClass(L"ChartBench", 0)) return 1;
    plotvane::Compare(602, 262);
    plotvane::Compare(1600, 800);
    return 0;
}
