// Measures what one sample costs on the chart: AppendPoints for twelve traces, then dispatching the paint
// message. Compares it with the same drawing in bare calls, in the same process and on the same window
// system. Prints microseconds and ratios; only the ratios can be compared between machines.
//
// chart_bench yardstick: prints only the microseconds of bare calls through WM_PAINT with a kept bitmap.
#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "plot/chart/MultiPlotCtrl.h"
#include "tests/support/BareChart.h"

namespace plotvane {
namespace {

constexpr int kRounds = 15;  // the contenders take turns, so that a busy moment affects all of them
constexpr int kSamplesPerRound = 100;
constexpr int kShift = 3;
constexpr int kFirstWidth = 602;  // of the chart in a new window
constexpr int kFirstHeight = 262;
constexpr std::size_t kYardstick = 1;  // which of the contenders it is

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
    for (int k = 0; k < kTraceCount; ++k) {
        values[k] = 50.0 + 45.0 * std::sin(i * 0.01 * (k + 1) + k);
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

constexpr DWORD kChildStyle = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
enum ChildId { kChart = 1, kDirect, kPainted, kPaintedAgain, kBlueChart };

// A window with what is compared in it, one above the other.
class Ring {
public:
    Ring(int width, int height) : m_bare(LookOf(width, height)) {
        const CRect withFrame{0, 0, width + kFramePx, height + kFramePx};
        m_parent.CreateEx(0, L"ChartBench", "", WS_POPUP | WS_VISIBLE, withFrame, nullptr, 0);
        MakeChart(m_chart, withFrame, kChart);
        m_blueChart.SetBackgroundColor(0x281400);
        MakeChart(m_blueChart, withFrame, kBlueChart);
        const CRect client{0, 0, width, height};
        m_direct.CreateEx(0, L"ChartBench", "", kChildStyle, client, m_parent.m_hWnd, kDirect);
        m_directDc.emplace(m_direct.m_hWnd);
        m_painted.CreateEx(0, L"ChartBench", "", kChildStyle, client, m_parent.m_hWnd, kPainted);
        m_paintedAgain.CreateEx(0, L"ChartBench", "", kChildStyle, client, m_parent.m_hWnd, kPaintedAgain);
    }

    std::vector<Contender> Contenders() {
        return {{"bare calls, no messages", m_direct.m_hWnd,
                 [this](const TraceValues& values) {
                     m_bare.Append(values, kShift);
                     m_bare.Show(*m_directDc);
                 }},
                {"bare calls through WM_PAINT, kept bitmap", m_painted.m_hWnd,
                 [this](const TraceValues& values) { AppendAndPaint(values, m_painted); }},
                {"bare calls through WM_PAINT, new bitmap", m_paintedAgain.m_hWnd,
                 [this](const TraceValues& values) { AppendAndPaint(values, m_paintedAgain); }},
                {"CMultiPlotCtrl", m_chart.m_hWnd,
                 [this](const TraceValues& values) {
                     m_chart.AppendPoints(values);
                     DispatchAll();
                 }},
                // If the background is not black, every pixel of the chart counts as grid.
                {"CMultiPlotCtrl on dark blue", m_blueChart.m_hWnd, [this](const TraceValues& values) {
                     m_blueChart.AppendPoints(values);
                     DispatchAll();
                 }}};
    }

    double RedrawUs() {
        constexpr int kRedraws = 50;
        const double start = NowUs();
        for (int i = 0; i < kRedraws; ++i) m_chart.InvalidateCtrl();
        return (NowUs() - start) / kRedraws;
    }

private:
    static constexpr int kFramePx = 6;

    test::BareChart::Look LookOf(int width, int height) const {
        test::BareChart::Look look{.width = width,
                                   .height = height,
                                   .plotLeft = 54,
                                   .gridLines = 9,
                                   .penWidth = 0,
                                   .background = kBlack,
                                   .grid = kWhite,
                                   .traces = m_prefs.lineColor,
                                   .lower = {},
                                   .upper = {}};
        look.upper.fill(100.0);
        return look;
    }

    void MakeChart(CMultiPlotCtrl& chart, const CRect& rect, UINT id) {
        chart.SetGridCounts({.vertical = 9, .horizontal = 9});
        chart.SetLabelMargin(1);
        chart.Create(kChildStyle, rect, m_parent.m_hWnd, id);
    }

    void AppendAndPaint(const TraceValues& values, CWnd& window) {
        m_bare.Append(values, kShift);
        window.Invalidate();
        DispatchAll();
    }

    const Prefs m_prefs;
    const RunState m_state;
    const SlotTable m_slots;
    test::BareChart m_bare;
    CWnd m_parent;
    CMultiPlotCtrl m_chart{m_prefs, m_state, m_slots};
    CMultiPlotCtrl m_blueChart{m_prefs, m_state, m_slots};
    CWnd m_direct;
    std::optional<CClientDC> m_directDc;
    BareWindow m_painted{m_bare, &test::BareChart::Show};
    BareWindow m_paintedAgain{m_bare, &test::BareChart::ShowByNewBitmap};
};

void Compare(int width, int height) {
    Ring ring(width, height);
    auto contenders = ring.Contenders();
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
    std::printf("  %-42s %8.1f us\n", "a full redraw, without painting", ring.RedrawUs());
    std::fflush(stdout);
}

// One number for scripts.
void PrintYardstick() {
    Ring ring(kFirstWidth, kFirstHeight);
    Contender bare = ring.Contenders()[kYardstick];
    for (std::size_t round = 0; round < kRounds; ++round) Measure(bare, round);
    std::printf("%.1f\n", bare.MedianUs());
}

}  // namespace
}  // namespace plotvane

int main(int argc, char** argv) {
    if (!RegisterWindowClass(L"ChartBench", 0)) return 1;
    if (argc == 2 && std::string_view(argv[1]) == "yardstick") {
        plotvane::PrintYardstick();
        return 0;
    }
    plotvane::Compare(plotvane::kFirstWidth, plotvane::kFirstHeight);
    plotvane::Compare(1600, 800);
    return 0;
}
