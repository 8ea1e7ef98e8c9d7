#pragma once

#include <string>

#include "link/ProgramData.h"
#include "logs/LabelTable.h"
#include "meter/MeterWnd.h"
#include "plot/binding/MeterBoard.h"
#include "plot/chart/TraceChart.h"

namespace plotvane {

// Texts on the meters.
struct MeterTexts {
    std::string meter;  // for a field without a label, before its unit
    std::string field;  // before the number of a channel
    std::string mileage;
    std::string consumption;
    std::string milesPerGallon;
    std::string litresPer100Km;
};

// The meter windows: one for each slot, one for each channel, two for the fuel figures. When the user closes
// a meter, it deletes itself and clears its pointer here.
class MeterWindows : public MeterBoard {
public:
    MeterWindows(CWnd& owner, const ProgramData& data, const TraceChart& chart, MeterTexts texts);

    // Each opens a meter and sets it up. A meter that is open already stays as it is.
    void OpenSlotMeter(int slot, const LabelTable& labels);
    void OpenChannelMeter(int channel);
    void OpenFuelMeter(Fuel meter);

    // New preferences: colours of the slots' meters, scales of the fuel meters.
    void ApplyPrefs();

    // MeterBoard.
    void SetSlotValue(int slot, double value) override;
    void SetSlotRange(int slot, double minimum, double maximum) override;
    void SetSlotUnits(int slot, std::string_view units) override;
    void SetChannelValue(int channel, double value) override;
    void SetFuelValue(Fuel meter, double value) override;
    void SetFuelScale(Fuel meter, std::string_view units, double maximum, int valueDecimals) override;
    void CloseFuelMeters() override;

private:
    // A new meter at that place of the screen; null if `place` holds one already.
    CMeterWnd* Open(CMeterWnd*& place, int left, int top, DWORD style);
    void Paint(CMeterWnd& meter, int trace) const;
    CMeterWnd*& PlaceOf(Fuel meter) { return meter == Fuel::Mileage ? m_mileage : m_consumption; }
    std::string TitleOf(const FieldSlot& slot, const LabelTable& labels) const;

    CWnd& m_owner;
    const ProgramData& m_data;
    const TraceChart& m_chart;
    const MeterTexts m_texts;
    IndexedArray<CMeterWnd*, kSlotCount> m_slots{};
    IndexedArray<CMeterWnd*, kChannelCount> m_channels{};
    CMeterWnd* m_mileage = nullptr;
    CMeterWnd* m_consumption = nullptr;
};

}  // namespace plotvane
