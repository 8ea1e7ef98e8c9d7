#include "meter/Gauge.h"

#include <cmath>

#include "base/Numbers.h"

namespace plotvane {
namespace {

std::uint8_t Shade(std::uint8_t part) {
    return static_cast<std::uint8_t>(part * 0.65);
}

}  // namespace

GaugeChange Gauge::SetValue(double value) {
    if (!std::isfinite(value)) return GaugeChange::None;
    m_value = value;
    if (m_showMinMarker && !(value >= m_minSeen)) m_minSeen = value;
    if (m_showMaxMarker && value > m_maxSeen) m_maxSeen = value;
    return GaugeChange::Moving;
}

GaugeChange Gauge::SetRange(double minimum, double maximum) {
    if (maximum == m_maxValue && minimum == m_minValue) return GaugeChange::None;
    m_maxValue = maximum;
    m_minValue = minimum;
    m_minSeen = maximum;
    m_maxSeen = minimum;
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetValueDecimals(int decimals) {
    if (decimals == m_valueDecimals) return GaugeChange::None;
    m_valueDecimals = decimals;
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetRangeDecimalsZero() {
    m_rangeDecimals = 0;
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetUnits(std::string_view units) {
    if (units == m_units) return GaugeChange::None;
    m_units = units;
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetNeedleColor(Colour colour) {
    m_needleColor = DrawableColour(colour);
    m_needleShadeColor = MakeColour(Shade(RedOf(colour)), Shade(GreenOf(colour)), Shade(BlueOf(colour)));
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetBackColor(Colour colour) {
    m_backgroundColor = DrawableColour(colour);
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetFaceColor(Colour colour) {
    m_faceColor = DrawableColour(colour);
    return GaugeChange::Whole;
}

GaugeChange Gauge::SetTicksColor(Colour colour) {
    m_ticksColor = DrawableColour(colour);
    return GaugeChange::Whole;
}

GaugeChange Gauge::ToggleSwappedColors() {
    m_swappedColors = !m_swappedColors;
    SetFaceColor(m_swappedColors ? kWhite : kBlack);
    return SetTicksColor(m_swappedColors ? kBlack : kWhite);
}

void Gauge::AppendValueText(std::string& out) const {
    AppendWithUnits(out, m_value);
}

void Gauge::AppendPeakText(std::string& out, std::string_view label) const {
    out += label;
    out += ' ';
    AppendWithUnits(out, m_maxSeen);
}

void Gauge::AppendMinLabel(std::string& out) const {
    AppendFixed(out, m_minValue, m_rangeDecimals);
}

void Gauge::AppendMaxLabel(std::string& out) const {
    AppendFixed(out, m_maxValue, m_rangeDecimals);
}

void Gauge::AppendWithUnits(std::string& out, double number) const {
    AppendFixed(out, number, m_valueDecimals);
    out += ' ';
    out += m_units;
}

}  // namespace plotvane
