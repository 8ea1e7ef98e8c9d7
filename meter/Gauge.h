#pragma once

#include <string>
#include <string_view>

#include "base/Colour.h"

namespace plotvane {

// What must be repainted after a change.
enum class GaugeChange {
    None,
    Moving,  // needle, markers and texts
    Whole,   // the dial behind them too
};

// What a meter shows: numbers, texts and colours. Texts are Windows-1252 bytes.
class Gauge {
public:
    // Moves the needle. Also moves each marker that is shown if the value lies beyond it; a hidden marker
    // stays where it is. Ignores a value that is not finite: it would stick to the markers for ever.
    GaugeChange SetValue(double value);

    // A new range restarts both markers: each moves to the far end of the scale, so that the next value moves
    // it.
    GaugeChange SetRange(double minimum, double maximum);

    GaugeChange SetValueDecimals(int decimals);
    GaugeChange SetRangeDecimalsZero();  // whole numbers at the ends of the scale
    GaugeChange SetUnits(std::string_view units);

    GaugeChange SetNeedleColor(Colour colour);  // its shaded half follows
    GaugeChange SetBackColor(Colour colour);
    GaugeChange SetFaceColor(Colour colour);
    GaugeChange SetTicksColor(Colour colour);

    // The switches of the context menu. They request no repaint: the change shows with the next value.
    void ToggleMaxMarker() { m_showMaxMarker = !m_showMaxMarker; }
    void ToggleMinMarker() { m_showMinMarker = !m_showMinMarker; }
    void TogglePeak() { m_showPeak = !m_showPeak; }
    void ResetPeak() { m_maxSeen = m_value; }  // the lowest value stays where it was

    // Switches between a white face with black ticks and a black face with white ticks. Colours chosen for
    // the two before are lost.
    GaugeChange ToggleSwappedColors();

    double Value() const { return m_value; }
    double MinValue() const { return m_minValue; }
    double MaxValue() const { return m_maxValue; }
    double MinSeen() const { return m_minSeen; }
    double MaxSeen() const { return m_maxSeen; }

    bool ShowsMaxMarker() const { return m_showMaxMarker; }
    bool ShowsMinMarker() const { return m_showMinMarker; }
    bool ShowsPeak() const { return m_showPeak; }
    bool HasSwappedColors() const { return m_swappedColors; }

    Colour FaceColor() const { return m_faceColor; }
    Colour TextColor() const { return m_textColor; }
    Colour MarkerColor() const { return m_markerColor; }
    Colour NeedleColor() const { return m_needleColor; }
    Colour NeedleShadeColor() const { return m_needleShadeColor; }
    Colour BackgroundColor() const { return m_backgroundColor; }
    Colour TicksColor() const { return m_ticksColor; }

    // Each appends its text to `out`. Value and peak have a blank before the unit, even before an empty one.
    void AppendValueText(std::string& out) const;
    void AppendPeakText(std::string& out, std::string_view label) const;
    void AppendMinLabel(std::string& out) const;
    void AppendMaxLabel(std::string& out) const;

private:
    void AppendWithUnits(std::string& out, double number) const;

    int m_rangeDecimals = 1;
    int m_valueDecimals = 3;

    double m_value = 0.0;
    double m_maxValue = 100.0;  // the ends of the scale
    double m_minValue = 0.0;
    double m_maxSeen = 0.0;
    double m_minSeen = 100.0;

    bool m_showMaxMarker = true;
    bool m_showMinMarker = true;
    bool m_showPeak = true;
    bool m_swappedColors = false;

    Colour m_faceColor = kBlack;
    const Colour m_textColor = MakeColour(200, 200, 200);
    const Colour m_markerColor = MakeColour(255, 255, 0);
    Colour m_needleColor = MakeColour(255, 0, 0);
    Colour m_needleShadeColor = MakeColour(165, 0, 0);
    Colour m_backgroundColor = MakeColour(0, 0, 128);
    Colour m_ticksColor = kWhite;

    std::string m_units;
};

}  // namespace plotvane
