#include "plot/ChartPictures.h"

namespace plotvane {

ChartPixels PixelsOf(const Picture& picture) {
    return {picture.Pixels().data(), picture.Width(), picture.Height()};
}

bool ChartPictures::Create(int width, int height) {
    if (*this) return true;
    m_grid.emplace(width, height);
    m_traces.emplace(width, height);
    m_combined.emplace(width, height);
    m_staleFrom = 0;
    const bool complete = *m_grid && *m_traces && *m_combined;
    if (!complete) Release();
    return complete;
}

void ChartPictures::Release() {
    m_grid.reset();
    m_traces.reset();
    m_combined.reset();
}

void ChartPictures::ScrollTraces(const PixelRect& area, int shift, bool keepCombined) {
    const ChartPixels traces = PixelsOf(*m_traces);
    if (keepCombined || m_staleFrom <= area.left) {
        traces.ScrollLeft(area, shift);
        ChangedFrom(area.left);
        return;
    }
    // Only what is drawn at the right edge from now on has to be combined later.
    PixelsOf(*m_combined).ScrollAndCombine(PixelsOf(*m_grid), traces, area, shift);
}

const Picture& ChartPictures::Combined() {
    const ChartPixels combined = PixelsOf(*m_combined);
    if (m_staleFrom < combined.width) {
        combined.Combine(PixelsOf(*m_grid), PixelsOf(*m_traces),
                         {m_staleFrom, 0, combined.width, combined.height});
        m_staleFrom = combined.width;
    }
    return *m_combined;
}

}  // namespace plotvane
