#include "fuzz/SampleCheck.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "tests/support/Promise.h"

namespace plotvane::fuzz {

using test::Require;

namespace {

std::string Printed(const char* format, double value) {
    std::array<char, 512> text;
    const int length = std::snprintf(text.data(), text.size(), format, value);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string BoxOf(const FieldSlot& slot) {
    return Printed("%g", slot.value) + " " + slot.unit;
}

}  // namespace

void SampleCheck::operator()(const TraceValues& values) {
    RequireFuel();
    if (m_data.state.tenChannels) {
        RequireChannels(values);
    } else {
        RequireSlots(values);
    }
}

void SampleCheck::RequireSlots(const TraceValues& values) const {
    for (int k = 0; k < kSlotCount; ++k) {
        const FieldSlot& slot = m_data.slots[k];
        if (m_panel.shown[k])
            Require(slot.IsActive() && values[k] == slot.value, "a shown trace gets its slot's value");
        if (m_data.state.obdFile) continue;
        const std::string& box = m_panel.values[k];
        if (!slot.IsActive()) {
            Require(box.empty(), "the box of an empty slot is empty");
        } else if (m_panel.airFuelOn[k] && slot.unit.empty()) {
            Require(box == BoxOf(slot) || box == Printed("%1.1f", slot.value),
                    "a box shows the value or the ratio");
        } else {
            Require(box == BoxOf(slot), "a box shows value and unit");
        }
    }
}

void SampleCheck::RequireChannels(const TraceValues& values) const {
    constexpr double kNotDrawn = -1.0;
    for (int channel = 0; channel < kChannelCount; ++channel) {
        const double value = m_data.slots.channelValues[channel];
        Require(m_panel.channelValues[channel] == Printed("%g", value), "a small box shows its value");
        Require(values[channel] == (m_panel.channelsShown[channel] ? value : kNotDrawn),
                "a shown channel gets its value");
    }
    Require(values[10] == kNotDrawn && values[11] == kNotDrawn, "there are ten channels");
    for (int k = kSlotColumns; k < kSlotCount; ++k)
        Require(m_panel.values[k] == BoxOf(m_data.slots[k]), "the other rows keep their boxes");
}

void SampleCheck::RequireFuel() {
    const FieldSlot* flow = nullptr;
    const FieldSlot* speed = nullptr;
    for (const FieldSlot& slot : m_data.slots.slots) {
        if (slot.unit.find("l/h") != std::string::npos) flow = &slot;
        if (slot.unit.find("km/h") != std::string::npos) speed = &slot;
    }
    Require(m_panel.fuelButtons == (flow && speed), "fuel figures need a flow and a speed");
    if (flow && speed) {
        if (speed->value == 0.0) {
            m_consumption = flow->value;
            m_mileage = flow->value * 0.26417205263729593;
        } else {
            std::shift_right(m_history.begin(), m_history.end(), 1);
            m_history[0] = m_consumption = flow->value / speed->value * 100.0;
            if (const int depth = m_data.prefs.fuelHistoryDepth; depth > 0) {
                double sum = 0.0;
                const auto entries = std::min(static_cast<std::size_t>(depth), m_history.size());
                for (std::size_t i = 0; i < entries; ++i)
                    if (m_history[i] < 1000.0) sum += m_history[i];
                m_consumption = sum / depth;
            }
            m_mileage = m_consumption == 0.0 ? 999.9 : std::min(235.2145 / m_consumption, 999.9);
        }
    }
    Require(m_fuel.Consumption() == m_consumption, "the consumption is that of the last two slots");
    Require(m_fuel.Mileage() == m_mileage, "the mileage is that of the consumption");
}

}  // namespace plotvane::fuzz
