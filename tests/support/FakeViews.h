#pragma once

#include <string>
#include <vector>

#include "plot/binding/MeterBoard.h"
#include "plot/binding/SlotPanel.h"
#include "plot/chart/TraceChart.h"

// Views that remember what they were told to show.
namespace plotvane::test {

struct FakeChart : TraceChart {
    struct Range {
        double lower = 0.0;
        double upper = 100.0;
        bool operator==(const Range&) const = default;
    };

    void SetRange(double lower, double upper, int trace) override {
        ranges[trace] = {lower, upper};
        ++rangesSet;
        rangeSetWhileOn |= redraw;
    }
    Colour GetTraceColor(int trace) const override {
        return MakeColour(1, 2, static_cast<std::uint8_t>(trace));
    }
    void AppendPoints(const TraceValues& values) override {
        samples.push_back(values);
        appendedWhileOff |= !redraw;
    }
    void AppendGap(const TraceValues& values) override { gaps.push_back(values); }
    void InvalidateCtrl() override { ++redraws; }
    void SetRedraw(bool on) noexcept override { redraw = on; }

    IndexedArray<Range, kTraceCount> ranges{};
    int rangesSet = 0;
    std::vector<TraceValues> samples;
    std::vector<TraceValues> gaps;
    int redraws = 0;
    bool redraw = true;
    bool appendedWhileOff = false;
    bool rangeSetWhileOn = false;
};

struct FakePanel : SlotPanel {
    static constexpr Colour kInactive = 0xF0F0F0;

    void DrawValues() override { ++valuesDrawn; }
    void ShowValue(int slot, std::string_view text) override { values[slot] = text; }
    bool IsTraceShown(int slot) const override { return shown[slot]; }
    void SetTraceShown(int slot, bool on) override { shown[slot] = on; }
    void SetSwatch(int slot, Colour colour) override { swatches[slot] = colour; }
    void ShowAirFuelButton(int slot, bool on) override { airFuelShown[slot] = on; }
    bool IsAirFuelOn(int slot) const override { return airFuelOn[slot]; }
    void ShowSelection(int slot, int minimum, int maximum) override {
        frame = selected = slot;
        limits = {minimum, maximum};
        ++selections;
    }
    void HideFrame(int slot) override {
        if (frame == slot) frame = -1;
    }
    void ApplyLayout(bool ten) override {
        tenChannels = ten;
        ++layouts;
        swatches.fill(kInactive);
        channelSwatches.fill(kInactive);
    }
    void ShowChannelValue(int channel, std::string_view text) override { channelValues[channel] = text; }
    bool IsChannelShown(int channel) const override { return channelsShown[channel]; }
    void SetChannelShown(int channel, bool on) override { channelsShown[channel] = on; }
    void SetChannelSwatch(int channel, Colour colour) override { channelSwatches[channel] = colour; }
    Colour InactiveColour() const override { return kInactive; }
    void ShowFuelButtons(bool on) override { fuelButtons = on; }
    void ShowPixelShift(int pixels) override { pixelShift = pixels; }
    void ShowElapsed(std::string_view text) override { elapsed = text; }

    IndexedArray<std::string, kSlotCount> values{};
    IndexedArray<bool, kSlotCount> shown{};
    IndexedArray<Colour, kSlotCount> swatches{};
    IndexedArray<bool, kSlotCount> airFuelShown{};
    IndexedArray<bool, kSlotCount> airFuelOn{};
    IndexedArray<std::string, kChannelCount> channelValues{};
    IndexedArray<bool, kChannelCount> channelsShown{};
    IndexedArray<Colour, kChannelCount> channelSwatches{};
    std::pair<int, int> limits;
    int frame = -1;  // the one shown, or -1
    int selected = -1;
    int selections = 0;
    bool tenChannels = false;
    int layouts = 0;
    bool fuelButtons = false;
    int pixelShift = 0;
    std::string elapsed;
    int valuesDrawn = 0;  // times
};

struct FakeMeters : MeterBoard {
    struct Gauge {
        double value = 0.0;
        double minimum = 0.0;
        double maximum = 0.0;
        int decimals = 0;
        std::string units;
    };

    void SetSlotValue(int slot, double value) override { slots[slot].value = value; }
    void SetSlotRange(int slot, double minimum, double maximum) override {
        slots[slot].minimum = minimum;
        slots[slot].maximum = maximum;
    }
    void SetSlotUnits(int slot, std::string_view units) override { slots[slot].units = units; }
    void SetChannelValue(int channel, double value) override { channels[channel] = value; }
    void SetFuelValue(Fuel meter, double value) override { Of(meter).value = value; }
    void SetFuelScale(Fuel meter, std::string_view units, double maximum, int decimals) override {
        Of(meter).units = units;
        Of(meter).maximum = maximum;
        Of(meter).decimals = decimals;
    }
    void CloseFuelMeters() override { ++closed; }

    Gauge& Of(Fuel meter) { return meter == Fuel::Mileage ? mileage : consumption; }

    IndexedArray<Gauge, kSlotCount> slots{};
    IndexedArray<double, kChannelCount> channels{};
    Gauge mileage;
    Gauge consumption;
    int closed = 0;
};

}  // namespace plotvane::test
