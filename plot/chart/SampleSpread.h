#pragma once

namespace plotvane {

// Spreads the width of the plot over a fixed number of samples, so that they fill it exactly although the
// width seldom divides evenly.
class SampleSpread {
public:
    // 0 or less leaves every shift as it is.
    void SetSamplesPerScreen(int samples) { m_samplesPerScreen = samples; }

    // The pixels to scroll for the next sample: `shift`, or the sample's share of the plot's width.
    int Take(int shift, int plotWidth);

private:
    int m_samplesPerScreen = -1;
    int m_remainder = 0;
    int m_pixelsLeft = 0;
    int m_samplesLeft = 0;  // 0: the next sample begins a new screen
};

}  // namespace plotvane
