#include "plot/chart/SampleSpread.h"

namespace plotvane {

int SampleSpread::Take(int shift, int plotWidth) {
    if (m_samplesPerScreen <= 0) return shift;

    if (m_samplesLeft == 0) {
        // The first of n samples is at the left edge, so n - 1 shifts fill the width.
        m_remainder = 0;
        m_samplesLeft = m_samplesPerScreen - 1;
        m_pixelsLeft = plotWidth;
        if (m_samplesLeft == 0) return plotWidth;  // a single sample has no shifts to share
    }
    const int sum = m_remainder + m_pixelsLeft;
    shift = m_samplesLeft == 1 ? m_pixelsLeft : sum / m_samplesLeft;
    m_remainder = sum % m_samplesLeft;
    m_pixelsLeft -= shift;
    m_samplesLeft -= 1;
    return shift;
}

}  // namespace plotvane
