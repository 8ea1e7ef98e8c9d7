#pragma once

#include <vector>

#include "app/SlotControls.h"
#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {

// The controls of the slots as the program sets them up.
class SlotControlsFixture : public MainDialogFixture {
protected:
    SlotControlsFixture() { panel.SetUp(); }

    int WidthOfBox(int slot) const { return PlaceOf(IDC_VALUE_FIRST + slot).Width(); }

    // All frames that are shown, as slots.
    std::vector<int> ShownFrames() const {
        constexpr int kFrames[] = {1092, 1093, 1094, 1095, 1088, 1089, 1090, 1091, 1084, 1085, 1086, 1087};
        std::vector<int> slots;
        for (int slot = 0; slot < kSlotCount; ++slot) {
            if (IsShown(kFrames[slot])) slots.push_back(slot);
        }
        return slots;
    }

    void ExpectSwatchesOverTheirPlaceholders() const {
        for (int slot = 0; slot < kSlotCount; ++slot)
            EXPECT_EQ(EdgesOf(IDC_SWATCH_WINDOW_FIRST + slot), EdgesOf(IDC_SWATCH_FIRST + slot)) << slot;
        for (int channel = 0; channel < kChannelCount; ++channel)
            EXPECT_EQ(EdgesOf(IDC_CHANNEL_SWATCH_WINDOW_FIRST + channel),
                      EdgesOf(IDC_CHANNEL_SWATCH_FIRST + channel))
                << channel;
    }

    // The middle of a placeholder on the screen.
    POINT MiddleOnScreen(int id) const {
        CRect place;
        ::GetWindowRect(dialog.GetDlgItem(id), &place);
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }

    SlotControls panel{dialog, "PixelShift:"};
};

}  // namespace plotvane::test
