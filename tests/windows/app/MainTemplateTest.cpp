// The template of the main dialog: what the keyboard reaches, and what is in view.
#include <vector>

#include "tests/windows/app/SlotControlsFixture.h"

namespace plotvane::test {
namespace {

class MainTemplateTest : public SlotControlsFixture {
protected:
    void ShowReplayControls() {
        for (const int id : {IDC_REPLAY_GROUP, IDC_REPLAY_FASTER, IDC_REPLAY_SLOWER, IDC_REPLAY_SPEED,
                             IDC_ELAPSED, IDC_LOAD_LOG, IDC_STOP, IDC_PAUSE})
            dialog.ShowDlgItem(id, true);
    }

    // The controls that Tab reaches, by id, beginning with the first of the template.
    std::vector<int> TabStops() const {
        std::vector<int> ids;
        const HWND first = ::GetNextDlgTabItem(dialog.m_hWnd, nullptr, FALSE);
        HWND control = first;
        do {
            ids.push_back(::GetDlgCtrlID(control));
            control = ::GetNextDlgTabItem(dialog.m_hWnd, control, FALSE);
        } while (control != first && ids.size() < 200);
        return ids;
    }
};

TEST_F(MainTemplateTest, TabGoesDownTheLeftSideThenThroughTheRowsThenToTheScales) {
    ShowReplayControls();
    panel.ShowFuelButtons(true);
    panel.ShowAirFuelButton(8, true);
    panel.ShowAirFuelButton(9, true);
    const std::vector<int> order = {1098, 1097, 1004, 1003, 1002, 1099, 1100,  // replay, run, fuel
                                    1056, 1057, 1058, 1059,                    // row A
                                    1060, 1061, 1062, 1063,                    // row B
                                    1110, 1064, 1109, 1065, 1066, 1067,        // row C with two A/F buttons
                                    1005, 1006, 1055, 1054, 1007, 1008};
    EXPECT_EQ(TabStops(), order);
}

TEST_F(MainTemplateTest, TabGoesThroughTheTenChannelsInThePlaceOfRowA) {
    panel.ApplyLayout(true);
    const std::vector<int> order = {1068, 1069, 1070, 1071, 1072, 1073, 1074, 1075, 1076, 1077, 1003,  //
                                    1060, 1061, 1062, 1063, 1064, 1065, 1066, 1067,                    //
                                    1005, 1006, 1007, 1008};
    EXPECT_EQ(TabStops(), order);
}

// A value box that gets the focus selects its slot.
TEST_F(MainTemplateTest, ArrowKeysNeverReachAValueBox) {
    ShowReplayControls();
    for (const int start : TabStops()) {
        for (const bool backwards : {false, true}) {
            HWND control = dialog.GetDlgItem(start);
            for (int press = 0; press < 5; ++press) {
                control = ::GetNextDlgGroupItem(dialog.m_hWnd, control, backwards);
                const int id = ::GetDlgCtrlID(control);
                EXPECT_FALSE(id >= IDC_VALUE_FIRST && id <= IDC_ELAPSED) << id << " from " << start;
            }
        }
    }
}

TEST_F(MainTemplateTest, ArrowKeysGoRoundTheRunButtons) {
    ShowReplayControls();
    HWND control = dialog.GetDlgItem(1004);
    for (const int id : {1003, 1002, 1004}) {
        control = ::GetNextDlgGroupItem(dialog.m_hWnd, control, FALSE);
        EXPECT_EQ(::GetDlgCtrlID(control), id);
    }
}

TEST_F(MainTemplateTest, TheTwelveValuesAreCentredAndNoOtherEditIs) {
    for (int id = 1031; id <= 1055; ++id) {
        const bool isCentred = ::GetWindowLongPtrW(dialog.GetDlgItem(id), GWL_STYLE) & ES_CENTER;
        EXPECT_EQ(isCentred, id <= 1042) << id;
    }
}

TEST_F(MainTemplateTest, AtTheDefaultWidthAllThatCanBeUsedIsInView) {
    constexpr int kDefaultWidth = 634;
    ShowReplayControls();
    panel.ShowFuelButtons(true);
    const CRect outer = dialog.GetWindowRect();
    const CRect client = dialog.GetClientRect();
    const int width = kDefaultWidth - (outer.Width() - client.Width());
    for (const int id : TabStops()) EXPECT_LE(PlaceOf(id).right, width) << id;
}

}  // namespace
}  // namespace plotvane::test
