#include "history/HistoryLayout.h"

#include <algorithm>

namespace plotvane {
namespace {

constexpr int kMarginPx = 8;
constexpr int kScalePx = 64;  // for the numbers left of the plot
constexpr int kListPx = 250;
constexpr int kMarkPx = 13;
constexpr int kSwatchPx = 11;
constexpr int kSpacePx = 6;
constexpr int kMostLines = 3;

bool IsIn(const PixelRect& rect, int x, int y) {
    return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
}

PixelRect Square(const PixelRect& line, int left, int size) {
    const int top = line.top + (line.Height() - size) / 2;
    return {left, top, left + size, top + size};
}

}  // namespace

HistoryLayout::HistoryLayout(int clientWidth, int clientHeight, int lineHeight, int traces)
    : m_client{0, 0, clientWidth, clientHeight}, m_lineHeight(lineHeight), m_traces(traces) {
    // In a narrow window the plot keeps two thirds.
    const int listLeft = clientWidth - std::min(kListPx, clientWidth / 3);
    m_status = {kMarginPx, clientHeight - lineHeight - kMarginPx / 2, clientWidth - kMarginPx,
                clientHeight - kMarginPx / 2};
    m_times = {kScalePx, m_status.top - lineHeight - kMarginPx / 2, listLeft - kMarginPx,
               m_status.top - kMarginPx / 2};
    m_plot = {kScalePx, kMarginPx, listLeft - kMarginPx, m_times.top - kMarginPx / 2};
    m_list = {listLeft, kMarginPx, clientWidth - kMarginPx, m_times.bottom};
    if (traces > 0) {
        const int room = (m_list.Height() - traces * kSpacePx) / (traces * lineHeight);
        m_lines = std::clamp(room, 1, kMostLines);
    }
}

PixelRect HistoryLayout::EntryOf(int entry) const {
    const int height = m_lines * m_lineHeight + kSpacePx;
    const int top = m_list.top + entry * height;
    return {m_list.left, top, m_list.right, top + height};
}

PixelRect HistoryLayout::LineOf(int entry, int line) const {
    const PixelRect whole = EntryOf(entry);
    const int top = whole.top + std::min(line, m_lines - 1) * m_lineHeight;
    return {SwatchOf(entry).right + kSpacePx, top, whole.right, top + m_lineHeight};
}

PixelRect HistoryLayout::MarkOf(int entry) const {
    PixelRect line = EntryOf(entry);
    line.bottom = line.top + m_lineHeight;
    return Square(line, line.left, kMarkPx);
}

PixelRect HistoryLayout::SwatchOf(int entry) const {
    PixelRect line = EntryOf(entry);
    line.bottom = line.top + m_lineHeight;
    return Square(line, line.left + kMarkPx + kSpacePx, kSwatchPx);
}

std::optional<int> HistoryLayout::EntryAt(int x, int y) const {
    for (int entry = 0; entry < m_traces; ++entry) {
        if (IsIn(EntryOf(entry), x, y)) return entry;
    }
    return std::nullopt;
}

// A little more than the mark itself is easier to hit.
bool HistoryLayout::IsOnMark(int entry, int x, int y) const {
    return EntryAt(x, y) == entry && x < MarkOf(entry).right + kSpacePx / 2;
}

}  // namespace plotvane
