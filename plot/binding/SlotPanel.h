#pragma once

#include <string_view>

#include "base/Colour.h"
#include "model/FieldSlot.h"

namespace plotvane {

// The controls below the chart as the portable code sees them; the main dialog is the real one. Slots are
// 0..11, OBD fields 0..9. Texts are Windows-1252 bytes. Setting what is already shown costs nothing.
struct SlotPanel {
    virtual ~SlotPanel() = default;

    // The twelve slots.
    virtual void ShowValue(int slot, std::string_view text) = 0;
    virtual bool IsTraceShown(int slot) const = 0;  // the slot's check box
    virtual void SetTraceShown(int slot, bool shown) = 0;
    virtual void SetSwatch(int slot, Colour colour) = 0;

    // The air/fuel switch of a slot; showing it takes 31 pixels from a value box more than 70 wide, hiding
    // it gives them back to one less than 70 wide.
    virtual void ShowAirFuelButton(int slot, bool shown) = 0;
    virtual bool IsAirFuelOn(int slot) const = 0;

    // The slot that the scale box edits: its frame is shown (all others hidden), its limits stand in the
    // Min and Max edits.
    virtual void ShowSelection(int slot, int minimum, int maximum) = 0;
    virtual void HideFrame(int slot) = 0;

    // The ten OBD fields, which take the place of row A.
    virtual void ApplyLayout(bool tenChannels) = 0;  // exchanges the controls, resets every swatch
    virtual void ShowObdValue(int field, std::string_view text) = 0;
    virtual bool IsObdTraceShown(int field) const = 0;
    virtual void SetObdTraceShown(int field, bool shown) = 0;
    virtual void SetObdSwatch(int field, Colour colour) = 0;

    // The colour of a swatch whose trace is not drawn.
    virtual Colour InactiveColour() const = 0;

    // Both fuel buttons.
    virtual void ShowFuelButtons(bool shown) = 0;

    virtual void ShowPixelShift(int pixels) = 0;
    virtual void ShowElapsed(std::string_view text) = 0;  // seconds of log time, "%1.2f"
};

}  // namespace plotvane
