#include "plot/chart/ChartPicture.h"

namespace plotvane {

ChartPixels PixelsOf(const Picture& picture) {
    return {picture.Pixels().data(), picture.Width(), picture.Height()};
}

bool ChartPicture::Create(int width, int height) {
    if (m_picture) return true;
    m_picture.emplace(width, height);
    if (!*m_picture) m_picture.reset();
    return m_picture.has_value();
}

void ChartPicture::TakeGrid() {
    m_grid.TakeFrom(PixelsOf(*m_picture));
}

void ChartPicture::LiftGrid() {
    m_grid.LiftOff(PixelsOf(*m_picture));
}

void ChartPicture::LayGrid() {
    m_grid.LayOn(PixelsOf(*m_picture));
}

void ChartPicture::ScrollLeft(const PixelRect& area, int shift) {
    PixelsOf(*m_picture).ScrollLeft(area, shift);
}

}  // namespace plotvane
