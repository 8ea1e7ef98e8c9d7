#include "app/MeterWindows.h"

#include "base/Numbers.h"

namespace plotvane {
namespace {

constexpr int kSize = 200;    // pixels, when it opens
constexpr int kCascade = 32;  // pixels from one slot's meter to the next
constexpr int kFuelLeft = 96;
constexpr DWORD kFieldStyle = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr DWORD kFuelStyle = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU;

constexpr int kMileageTrace = 1;  // the fuel needles have its colours
constexpr int kConsumptionTrace = 2;
constexpr double kChannelMaximum = 255.0;

}  // namespace

MeterWindows::MeterWindows(CWnd& owner, const ProgramData& data, const TraceChart& chart, MeterTexts texts)
    : m_owner(owner), m_data(data), m_chart(chart), m_texts(std::move(texts)) {}

void MeterWindows::OpenSlotMeter(int slot, const LabelTable& labels) {
    CMeterWnd* const meter =
        Open(m_slots[slot], RowOf(slot) * kCascade, ColumnOf(slot) * kCascade, kFieldStyle);
    const FieldSlot& field = m_data.slots[slot];
    if (!meter || !field.IsActive()) return;
    Paint(*meter, slot);
    meter->SetUnits(field.unit);
    meter->SetTitle(TitleOf(field, labels));
    const ScaleRange range = m_data.ranges.RangeOf(field.group, field.field);
    meter->SetRange(range.min, range.max);
    meter->SetValueDecimals(1);
    meter->SetRangeDecimalsZero();
}

void MeterWindows::OpenChannelMeter(int channel) {
    CMeterWnd* const meter = Open(m_channels[channel], channel * kCascade, 0, kFieldStyle);
    if (!meter) return;
    Paint(*meter, channel);
    std::string title = m_texts.field;
    AppendDecimal(title, channel + 1);
    meter->SetTitle(title);
    meter->SetRange(0.0, kChannelMaximum);
    meter->SetValueDecimals(0);
    meter->SetRangeDecimalsZero();
}

void MeterWindows::OpenFuelMeter(Fuel which) {
    const bool isMileage = which == Fuel::Mileage;
    CMeterWnd* const meter = Open(PlaceOf(which), kFuelLeft, isMileage ? 0 : kCascade, kFuelStyle);
    if (!meter) return;
    meter->SetTitle(isMileage ? m_texts.mileage : m_texts.consumption);
    Paint(*meter, isMileage ? kMileageTrace : kConsumptionTrace);
    meter->SetUnits(isMileage ? m_texts.milesPerGallon : m_texts.litresPer100Km);
    meter->SetRange(0.0, isMileage ? m_data.prefs.maxMileage : m_data.prefs.maxConsumption);
    meter->SetValueDecimals(1);
    meter->SetRangeDecimalsZero();
}

// The meter deletes itself when its window is destroyed. If it never got a window, the pointer to it stays.
CMeterWnd* MeterWindows::Open(CMeterWnd*& place, int left, int top, DWORD style) {
    if (place) return nullptr;
    place = new CMeterWnd(&place);
    place->Create(CMeterWnd::WindowClass(), style, CRect(left, top, left + kSize, top + kSize),
                  m_owner.m_hWnd);
    return place;
}

void MeterWindows::Paint(CMeterWnd& meter, int trace) const {
    meter.SetNeedleColor(DrawableColour(m_chart.GetTraceColor(trace)));
    meter.SetBackColor(DrawableColour(m_data.prefs.backColor));
}

// Fields count from 0, their labels from 1.
std::string MeterWindows::TitleOf(const FieldSlot& slot, const LabelTable& labels) const {
    const std::string_view name = labels.FieldName(slot.group, slot.field + 1);
    const std::string_view second = labels.FieldSecondText(slot.group, slot.field + 1);
    if (name.empty() && second.empty()) return m_texts.meter + " - " + slot.unit;
    return std::string(" ").append(name).append(" ").append(second);
}

void MeterWindows::ApplyPrefs() {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (CMeterWnd* const meter = m_slots[slot]) Paint(*meter, slot);
    }
    if (m_mileage) m_mileage->SetRange(0.0, m_data.prefs.maxMileage);
    if (m_consumption) m_consumption->SetRange(0.0, m_data.prefs.maxConsumption);
}

void MeterWindows::SetSlotValue(int slot, double value) {
    if (CMeterWnd* const meter = m_slots[slot]) meter->SetValue(value);
}

void MeterWindows::SetSlotRange(int slot, double minimum, double maximum) {
    if (CMeterWnd* const meter = m_slots[slot]) meter->SetRange(minimum, maximum);
}

void MeterWindows::SetSlotUnits(int slot, std::string_view units) {
    if (CMeterWnd* const meter = m_slots[slot]) meter->SetUnits(units);
}

void MeterWindows::SetChannelValue(int channel, double value) {
    if (CMeterWnd* const meter = m_channels[channel]) meter->SetValue(value);
}

void MeterWindows::SetFuelValue(Fuel which, double value) {
    if (CMeterWnd* const meter = PlaceOf(which)) meter->SetValue(value);
}

void MeterWindows::SetFuelScale(Fuel which, std::string_view units, double maximum, int valueDecimals) {
    CMeterWnd* const meter = PlaceOf(which);
    if (!meter) return;
    meter->SetUnits(units);
    meter->SetRange(0.0, maximum);
    meter->SetValueDecimals(valueDecimals);
}

// Each window clears its pointer here itself.
void MeterWindows::CloseFuelMeters() {
    if (m_mileage) m_mileage->DestroyWindow();
    if (m_consumption) m_consumption->DestroyWindow();
}

}  // namespace plotvane
