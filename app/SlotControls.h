#pragma once

#include <string>

#include "app/FuelButtons.h"
#include "app/Swatches.h"
#include "controls/ValueBox.h"
#include "plot/binding/SlotPanel.h"
#include "res/resource.h"

namespace plotvane {

// The controls below the chart that show the slots: value boxes, check boxes, swatches, frames, scale box.
class SlotControls : public SlotPanel {
public:
    // `pixelShiftText` goes before the number of the pixel shift.
    SlotControls(CWnd& dialog, std::string pixelShiftText)
        : m_dialog(dialog),
          m_pixelShiftText(std::move(pixelShiftText)),
          m_swatches(dialog, IDC_SWATCH_FIRST, IDC_SWATCH_WINDOW_FIRST, kSlotCount),
          m_channelSwatches(dialog, IDC_CHANNEL_SWATCH_FIRST, IDC_CHANNEL_SWATCH_WINDOW_FIRST, kChannelCount),
          m_fuelButtons(dialog) {}

    // Creates the swatch windows over their placeholders, and gives the text of a value box the box's whole
    // width. Call it once the dialog has its controls.
    void SetUp();

    // Moves every swatch to where its placeholder is now, and the focus mark around its check box. The caller
    // redraws the dialog.
    void PlaceSwatches();

    // The slot or channel whose swatch lies under a point of the screen; -1 for none.
    int SlotAt(POINT screen) const { return m_swatches.At(screen); }
    int ChannelAt(POINT screen) const { return m_channelSwatches.At(screen); }

    // Whether the user can change the speed of a replay: its two buttons are shown, or only the ten channels
    // hide them.
    bool OffersReplaySpeed() const;

    // Marks the check box that has the focus, by its id, of a slot or of a channel; 0 for none.
    void ShowFocus(int checkBox);

    // SlotPanel.
    void ShowValue(int slot, std::string_view text) override;
    void DrawValues() override;
    bool IsTraceShown(int slot) const override;
    void SetTraceShown(int slot, bool shown) override;
    void SetSwatch(int slot, Colour colour) override;
    void ShowAirFuelButton(int slot, bool shown) override;
    bool IsAirFuelOn(int slot) const override;
    void ShowSelection(int slot, int minimum, int maximum) override;
    void HideFrame(int slot) override;
    void ApplyLayout(bool tenChannels) override;
    void ShowChannelValue(int channel, std::string_view text) override;
    bool IsChannelShown(int channel) const override;
    void SetChannelShown(int channel, bool shown) override;
    void SetChannelSwatch(int channel, Colour colour) override;
    Colour InactiveColour() const override;
    void ShowFuelButtons(bool shown) override { m_fuelButtons.Show(shown); }
    void ShowPixelShift(int pixels) override;
    void ShowElapsed(std::string_view text) override;

private:
    static constexpr int kNoFrame = -1;

    void TakeOverValueBoxes();
    void ShowRowA(bool shown);
    void ShowChannelRow(bool shown);
    void MakeRoomForChannelRow(bool made);
    void ShowLimit(int id, int limit);
    void SetChecked(int id, bool checked);

    CWnd& m_dialog;
    const std::string m_pixelShiftText;
    IndexedArray<CValueBox, kSlotCount> m_values{};
    IndexedArray<CValueBox, kChannelCount> m_channelValues{};
    Swatches m_swatches;
    Swatches m_channelSwatches;
    FuelButtons m_fuelButtons;
    IndexedArray<bool, kSlotCount> m_airFuelShown{};
    CValueBox m_elapsed;
    bool m_replaySpeedHidden = false;  // it was shown, but the ten channels lie there now
    int m_frame = kNoFrame;            // the slot whose frame is shown
    int m_focused = 0;
};

}  // namespace plotvane
