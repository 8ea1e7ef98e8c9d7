#pragma once

#include <array>
#include <string>

#include "link/DriveData.h"
#include "logs/LabelTable.h"
#include "meter/MeterWnd.h"
#include "plot/binding/MeterBoard.h"
#include "plot/chart/TraceChart.h"

namespace plotvane {

// Texts on the meters.
struct MeterTexts {
    std::string meter;  // for a field without a label, before its unit
    std::string field;  // before the number of an OBD field
    std::string mileage;
    std::string consumption;
    std::string milesPerGallon;
    std::string litresPer100Km;
};

// The meter windows: one a slot, one an OBD field, two for the fuel figures. A meter that its user closes
// deletes itself and empties its place here.
class MeterWindows : public MeterBoard {
public:
    MeterWindows(CWnd& owner, const DriveData& data, const TraceChart& chart, MeterTexts texts);

    // Each opens a meter set up for its field; one that is open already is left as it is.
    void OpenSlotMeter(int slot, const LabelTable& labels);
    void OpenObdMeter(int field);
    void OpenFuelMeter(Fuel meter);

    // New preferences: colours of the slots' meters, scales of the fuel meters.
    void ApplyPrefs();

    // MeterBoard.
    void SetSlotValue(int slot, double value) override;
    void SetSlotRange(int slot, double minimum, double maximum) override;
    void SetSlotUnits(int slot, std::string_view units) override;
    void SetObdValue(int field, double value) override;
    void SetFuelValue(Fuel meter, double value) override;
    void SetFuelScale(Fuel meter, std::string_view units, double maximum, int valueDecimals) override;
    void CloseFuelMeters() override;

private:
    // A new meter at that place of the screen; null if there is one already.
    CMeterWnd* Open(CMeterWnd*& place, int left, int top, DWORD style);
    void Paint(CMeterWnd& meter, int trace) const;
    CMeterWnd*& PlaceOf(Fuel meter) { return meter == Fuel::Mileage ? m_mileage : m_consumption; }
    std::string TitleOf(const FieldSlot& slot, const LabelTable& labels) const;

    CWnd& m_owner;
    const DriveData& m_data;
    const TraceChart& m_chart;
    const MeterTexts m_texts;
    std::array<CMeterWnd*, kSlotCount> m_slots{};
    std::array<CMeterWnd*, kObdFieldCount> m_obdFields{};
    CMeterWnd* m_mileage = nullptr;
    CMeterWnd* m_consumption = nullptr;
};

}  // namespace plotvane
