#pragma once

#include <string_view>

#include "base/Colour.h"
#include "model/FieldSlot.h"

namespace plotvane {

// The controls below the chart as the portable code sees them; the main dialog is the real one. Slots are
// 0..11, channels 0..9. Texts are Windows-1252 bytes. Setting what is already shown costs nothing.
struct SlotPanel {
    virtual ~SlotPanel() = default;

    // The values that slots and channels were given may be drawn here, all at once, instead of one by one.
    virtual void DrawValues() = 0;

    // The twelve slots.
    virtual void ShowValue(int slot, std::string_view text) = 0;
    virtual bool IsTraceShown(int slot) const = 0;  // the slot's check box
    virtual void SetTraceShown(int slot, bool shown) = 0;
    virtual void SetSwatch(int slot, Colour colour) = 0;

    // The air/fuel switch of a slot. Showing it makes a value box that is more than 70 pixels wide 31 pixels
    // narrower; hiding it makes one that is less than 70 pixels wide 31 pixels wider.
    virtual void ShowAirFuelButton(int slot, bool shown) = 0;
    virtual bool IsAirFuelOn(int slot) const = 0;

    // The slot that the scale box edits: shows its frame, hides all others, and puts its limits into the Min
    // and Max edits.
    virtual void ShowSelection(int slot, int minimum, int maximum) = 0;
    virtual void HideFrame(int slot) = 0;

    // The ten channels, which take the place of row A.
    virtual void ApplyLayout(bool tenChannels) = 0;  // exchanges the controls, resets every swatch
    virtual void ShowChannelValue(int channel, std::string_view text) = 0;
    virtual bool IsChannelShown(int channel) const = 0;
    virtual void SetChannelShown(int channel, bool shown) = 0;
    virtual void SetChannelSwatch(int channel, Colour colour) = 0;

    // The colour of a swatch whose trace is not drawn.
    virtual Colour InactiveColour() const = 0;

    // Both fuel buttons.
    virtual void ShowFuelButtons(bool shown) = 0;

    virtual void ShowPixelShift(int pixels) = 0;
    virtual void ShowElapsed(std::string_view text) = 0;  // seconds of log time, "%1.2f"
};

}  // namespace plotvane
