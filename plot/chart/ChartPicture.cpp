#include "plot/chart/ChartPicture.h"

#include <algorithm>

namespace plotvane {
namespace {

// How far the picture can slide, as a part of its width. At three pixels a sample and the first size of the
// window, everything is moved once in fifty samples.
constexpr int kSlidePart = 4;

}  // namespace

bool ChartPicture::Create(int width, int height) {
    if (m_sheet) return true;
    m_sheet.emplace(width + width / kSlidePart, height);
    if (!*m_sheet) m_sheet.reset();
    m_width = width;
    m_left = 0;
    return m_sheet.has_value();
}

void ChartPicture::TakeGrid() {
    m_grid.TakeFrom(Pixels());
}

void ChartPicture::LiftGrid() {
    m_grid.LiftOff(Pixels());
}

void ChartPicture::LayGrid() {
    m_grid.LayOn(Pixels());
}

void ChartPicture::ScrollLeft(const PixelRect& area, int shift) {
    if (shift <= 0) return;
    if (m_left + shift > m_sheet->Width() - m_width) MoveTo(0);
    if (m_left + shift > m_sheet->Width() - m_width) return Pixels().ScrollLeft(area, shift);
    Pixels().SlideLeft(area, shift);
    m_left += shift;
    ::SetViewportOrgEx(Dc(), m_left, 0, nullptr);
}

ChartPixels ChartPicture::PixelsAt(int left) const {
    return {m_sheet->Pixels().data() + left, m_width, m_sheet->Height(), m_sheet->Width()};
}

void ChartPicture::MoveTo(int left) {
    const ChartPixels from = Pixels();
    const ChartPixels to = PixelsAt(left);
    for (int y = 0; y < from.height; ++y) std::copy_n(from.Row(y), from.width, to.Row(y));
    m_left = left;
    ::SetViewportOrgEx(Dc(), m_left, 0, nullptr);
}

}  // namespace plotvane
