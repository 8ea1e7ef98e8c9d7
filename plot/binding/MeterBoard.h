#pragma once

#include <string_view>

namespace plotvane {

// The open meter windows as the portable code sees them. A call for a meter that is not open does nothing.
// Slots are 0..11, channels 0..9.
struct MeterBoard {
    enum class Fuel { Mileage, Consumption };

    virtual ~MeterBoard() = default;

    virtual void SetSlotValue(int slot, double value) = 0;
    virtual void SetSlotRange(int slot, double minimum, double maximum) = 0;
    virtual void SetSlotUnits(int slot, std::string_view units) = 0;
    virtual void SetChannelValue(int channel, double value) = 0;

    virtual void SetFuelValue(Fuel meter, double value) = 0;
    virtual void SetFuelScale(Fuel meter, std::string_view units, double maximum, int valueDecimals) = 0;
    virtual void CloseFuelMeters() = 0;
};

}  // namespace plotvane
