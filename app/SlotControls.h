#pragma once

#include <array>
#include <string>

#include "controls/ColorBox.h"
#include "controls/ValueBox.h"
#include "plot/binding/SlotPanel.h"

namespace plotvane {

// The controls below the chart that show the slots: value boxes, check boxes, swatches, frames, scale box.
class SlotControls : public SlotPanel {
public:
    // `pixelShiftText` goes before the number of the pixel shift.
    SlotControls(CWnd& dialog, std::string pixelShiftText)
        : m_dialog(dialog), m_pixelShiftText(std::move(pixelShiftText)) {}

    // Once the dialog has its controls: the swatch windows over their placeholders, and all of a value box's
    // width for its text.
    void SetUp();

    // Puts every swatch over its placeholder again, wherever that is now, and the mark of the focus around
    // its check box. The caller has the dialog drawn again.
    void PlaceSwatches();

    // The slot or OBD field whose swatch lies under a point of the screen; -1 for none.
    int SlotAt(POINT screen) const;
    int ObdFieldAt(POINT screen) const;

    // Marks the check box that has the focus, by its id, of a slot or of an OBD field; 0 for none.
    void ShowFocus(int checkBox);

    // SlotPanel.
    void ShowValue(int slot, std::string_view text) override;
    bool IsTraceShown(int slot) const override;
    void SetTraceShown(int slot, bool shown) override;
    void SetSwatch(int slot, Colour colour) override;
    void ShowAirFuelButton(int slot, bool shown) override;
    bool IsAirFuelOn(int slot) const override;
    void ShowSelection(int slot, int minimum, int maximum) override;
    void HideFrame(int slot) override;
    void ApplyLayout(bool tenChannels) override;
    void ShowObdValue(int field, std::string_view text) override;
    bool IsObdTraceShown(int field) const override;
    void SetObdTraceShown(int field, bool shown) override;
    void SetObdSwatch(int field, Colour colour) override;
    Colour InactiveColour() const override;
    void ShowFuelButtons(bool shown) override;
    void ShowPixelShift(int pixels) override;
    void ShowElapsed(std::string_view text) override;

private:
    static constexpr int kNoFrame = -1;

    void TakeOverValueBoxes();
    void CreateSwatch(CColorBox& box, int placeholder, UINT id, bool shown);
    void Place(CColorBox& box, int placeholder);
    int HitAmong(POINT screen, int firstPlaceholder, int count) const;
    void ShowRowA(bool shown);
    void ShowObdRow(bool shown);
    void MakeRoomForObdRow(bool made);
    void ShowLimit(int id, int limit);
    void FitFuelButtons();
    void FitFuelButton(int id);
    void SetChecked(int id, bool checked);

    CWnd& m_dialog;
    const std::string m_pixelShiftText;
    std::array<CValueBox, kSlotCount> m_values;
    std::array<CValueBox, kObdFieldCount> m_obdValues;
    std::array<CColorBox, kSlotCount> m_swatches;
    std::array<CColorBox, kObdFieldCount> m_obdSwatches;
    std::array<bool, kSlotCount> m_airFuelShown{};
    CValueBox m_elapsed;
    bool m_fuelButtonsShown = false;
    bool m_replaySpeedHidden = false;  // it was shown, but the OBD row lies there now
    int m_frame = kNoFrame;            // the slot whose frame is shown
    int m_focused = 0;
};

}  // namespace plotvane
