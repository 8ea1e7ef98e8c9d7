#include "app/MeterWindows.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/FakeViews.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

constexpr Colour kBackColour = 0x203040;

class MeterWindowsTest : public testing::Test {
public:
    MeterWindowsTest() {
        RegisterWindowClass(L"MeterWindowsTest", 0);
        owner.CreateEx(0, L"MeterWindowsTest", "", WS_POPUP, CRect{0, 0, 100, 100}, nullptr, 0);
        data.prefs.backColor = kBackColour;
        data.prefs.maxMileage = 55;
        data.prefs.maxConsumption = 25;
    }

    // Closes the meters while the pointers to them still exist.
    ~MeterWindowsTest() override { owner.DestroyWindow(); }

protected:
    void Fill(int slot, int group, int field, std::string_view unit) {
        data.slots[slot].group = group;
        data.slots[slot].field = field;
        data.slots[slot].unit = unit;
    }

    // All open meters, in the order in which they were made.
    std::vector<CMeterWnd*> OpenMeters() const {
        std::vector<CMeterWnd*> meters;
        const auto look = [](HWND window, LPARAM found) -> BOOL {
            wchar_t name[64]{};
            ::GetClassNameW(window, name, 64);
            if (name == std::wstring_view(CMeterWnd::WindowClass()))
                reinterpret_cast<std::vector<CMeterWnd*>*>(found)->push_back(
                    dynamic_cast<CMeterWnd*>(CWnd::FromHandle(window)));
            return TRUE;
        };
        ::EnumThreadWindows(::GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&meters));
        return meters;
    }

    // The only open meter.
    CMeterWnd& OpenMeter() const {
        const auto meters = OpenMeters();
        if (meters.size() != 1) throw std::runtime_error("there is not exactly one meter");
        return *meters.front();
    }

    static std::string ValueText(const CMeterWnd& meter) {
        std::string text;
        meter.Shown().AppendValueText(text);
        return text;
    }
    // The texts at the ends of the scale.
    static std::string RangeText(const CMeterWnd& meter) {
        std::string text;
        meter.Shown().AppendMinLabel(text);
        text += "..";
        meter.Shown().AppendMaxLabel(text);
        return text;
    }
    static void ExpectPlace(const CMeterWnd& meter, LONG left, LONG top) {
        const CRect place = meter.GetWindowRect();
        EXPECT_EQ(place.left, left);
        EXPECT_EQ(place.top, top);
        EXPECT_EQ(place.Width(), 200);
        EXPECT_EQ(place.Height(), 200);
    }

    TempFolder folder;
    ProgramData data{folder.Path()};
    FakeChart chart;
    LabelTable labels;
    CWnd owner;
    MeterWindows meters{owner,
                        data,
                        chart,
                        {"Plotvane Meter", "Field#", "Mileage in Miles/Gal(US)",
                         "Consumption in Liters/100km", "MPG", "L/100km"}};
};

// Meters of the slots.

TEST_F(MeterWindowsTest, ASlotsMetersAreCascadedByItsRowAndColumn) {
    for (int slot = 0; slot < kSlotCount; ++slot) {
        Fill(slot, 1, 0, "V");
        meters.OpenSlotMeter(slot, labels);
        ExpectPlace(OpenMeter(), RowOf(slot) * 32, ColumnOf(slot) * 32);
        OpenMeter().DestroyWindow();
    }
}

TEST_F(MeterWindowsTest, ASlotsMeterIsASizableToolWindowOfTheDialog) {
    Fill(0, 1, 0, "V");
    meters.OpenSlotMeter(0, labels);
    const HWND window = OpenMeter().m_hWnd;
    EXPECT_EQ(::GetWindow(window, GW_OWNER), owner.m_hWnd);
    const auto style = static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE));
    constexpr DWORD kStyle = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
    EXPECT_EQ(style & kStyle, kStyle);
    EXPECT_NE(::GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
}

TEST_F(MeterWindowsTest, ASlotsMeterShowsItsUnitRangeAndColours) {
    Fill(5, 3, 1, "mg/str");
    data.ranges.SetMin(3, 1, -20);
    data.ranges.SetMax(3, 1, 1500);
    meters.OpenSlotMeter(5, labels);
    meters.SetSlotValue(5, 240.56);
    const CMeterWnd& meter = OpenMeter();
    EXPECT_EQ(ValueText(meter), "240.6 mg/str");
    EXPECT_EQ(RangeText(meter), "-20..1500");
    EXPECT_EQ(meter.Shown().NeedleColor(), chart.GetTraceColor(5));
    EXPECT_EQ(meter.Shown().BackgroundColor(), kBackColour);
}

TEST_F(MeterWindowsTest, AFieldWithoutAChosenRangeRunsFrom0To100) {
    Fill(0, 1, 0, "");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(RangeText(OpenMeter()), "0..100");
}

// Fields count from 0 in records and from 1 in label files.
TEST_F(MeterWindowsTest, TheLabelOfTheFieldIsTheTitle) {
    Fill(0, 1, 0, "/min");
    labels.SetField(1, 1, "Engine speed", "actual");
    labels.SetField(1, 2, "another", "one");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), " Engine speed actual");
}

TEST_F(MeterWindowsTest, HalfALabelIsATitleToo) {
    Fill(0, 1, 0, "/min");
    Fill(1, 1, 1, "/min");
    labels.SetField(1, 1, "Engine speed", "");
    labels.SetField(1, 2, "", "actual");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), " Engine speed ");
    OpenMeter().DestroyWindow();
    meters.OpenSlotMeter(1, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), "  actual");
}

TEST_F(MeterWindowsTest, WithoutALabelTheUnitStandsInTheTitle) {
    Fill(0, 1, 0, "/min");
    Fill(1, 1, 1, "");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), "Plotvane Meter - /min");
    OpenMeter().DestroyWindow();
    meters.OpenSlotMeter(1, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), "Plotvane Meter - ");
}

TEST_F(MeterWindowsTest, GroupsAndFieldsThatNoLabelFileKnowsHaveNoLabel) {
    Fill(0, 999, 0, "V");
    Fill(1, 1, 9, "V");
    labels.SetField(255, 4, "last", "one");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), "Plotvane Meter - V");
    EXPECT_EQ(RangeText(OpenMeter()), "0..100");
    OpenMeter().DestroyWindow();
    meters.OpenSlotMeter(1, labels);
    EXPECT_EQ(OpenMeter().GetWindowText(), "Plotvane Meter - V");
}

TEST_F(MeterWindowsTest, TheMeterOfAnUnusedSlotIsAnEmptyOne) {
    Fill(2, 0, 0, "V");
    labels.SetField(0, 1, "no", "group");
    for (const int group : {0, -1}) {
        data.slots[2].group = group;
        meters.OpenSlotMeter(2, labels);
        const CMeterWnd& meter = OpenMeter();
        ExpectPlace(meter, 0, 64);
        EXPECT_EQ(meter.GetWindowText(), "Plotvane Meter");
        EXPECT_EQ(ValueText(meter), "0.000 ");
        EXPECT_EQ(RangeText(meter), "0.0..100.0");
        EXPECT_EQ(meter.Shown().NeedleColor(), MakeColour(255, 0, 0));
        EXPECT_EQ(meter.Shown().BackgroundColor(), MakeColour(0, 0, 128));
        OpenMeter().DestroyWindow();
    }
}

TEST_F(MeterWindowsTest, ASlotHasOneMeterAndItStaysAsItIs) {
    Fill(0, 1, 0, "V");
    meters.OpenSlotMeter(0, labels);
    meters.SetSlotValue(0, 12.0);
    CMeterWnd& first = OpenMeter();
    Fill(0, 2, 1, "A");
    labels.SetField(2, 2, "Current", "");
    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(&OpenMeter(), &first);
    EXPECT_EQ(first.GetWindowText(), "Plotvane Meter - V");
    EXPECT_EQ(ValueText(first), "12.0 V");
}

TEST_F(MeterWindowsTest, AClosedMeterLeavesItsPlaceToAFreshOne) {
    Fill(0, 1, 0, "V");
    meters.OpenSlotMeter(0, labels);
    meters.SetSlotValue(0, 12.0);
    OpenMeter().SendMessage(WM_CLOSE);
    EXPECT_TRUE(OpenMeters().empty());
    meters.SetSlotValue(0, 13.0);  // no meter shows it
    meters.SetSlotRange(0, 0.0, 20.0);
    meters.SetSlotUnits(0, "A");
    meters.ApplyPrefs();

    meters.OpenSlotMeter(0, labels);
    EXPECT_EQ(ValueText(OpenMeter()), "0.0 V");
    EXPECT_EQ(OpenMeter().Shown().MaxSeen(), 0.0);
    EXPECT_EQ(RangeText(OpenMeter()), "0..100");
}

TEST_F(MeterWindowsTest, EachMeterFollowsItsOwnSlotOnly) {
    for (const int slot : {3, 7}) {
        Fill(slot, 1, slot % 4, "V");
        meters.OpenSlotMeter(slot, labels);
    }
    for (int slot = 0; slot < kSlotCount; ++slot) {
        meters.SetSlotValue(slot, slot + 0.5);
        meters.SetSlotRange(slot, -slot, 10.0 * slot);
        meters.SetSlotUnits(slot, "u" + std::to_string(slot));
    }
    std::set<std::string> shown;
    for (const CMeterWnd* meter : OpenMeters()) shown.insert(ValueText(*meter) + ", " + RangeText(*meter));
    EXPECT_EQ(shown, (std::set<std::string>{"3.5 u3, -3..30", "7.5 u7, -7..70"}));
}

// Meters of the channels.

TEST_F(MeterWindowsTest, TheMetersOfObdFieldsStandInARow) {
    for (int field = 0; field < kChannelCount; ++field) {
        meters.OpenChannelMeter(field);
        meters.SetChannelValue(field, 100.0 + field);
        const CMeterWnd& meter = OpenMeter();
        ExpectPlace(meter, field * 32, 0);
        EXPECT_EQ(meter.GetWindowText(), "Field#" + std::to_string(field + 1));
        EXPECT_EQ(RangeText(meter), "0..255");
        EXPECT_EQ(ValueText(meter), std::to_string(100 + field) + " ");
        EXPECT_EQ(meter.Shown().NeedleColor(), chart.GetTraceColor(field));
        EXPECT_EQ(meter.Shown().BackgroundColor(), kBackColour);
        OpenMeter().DestroyWindow();
    }
}

TEST_F(MeterWindowsTest, AnObdFieldHasOneMeterBesideThatOfTheSlot) {
    Fill(2, 1, 2, "V");
    meters.OpenSlotMeter(2, labels);
    meters.OpenChannelMeter(2);
    meters.OpenChannelMeter(2);
    EXPECT_EQ(OpenMeters().size(), 2u);
}

// Fuel meters.

TEST_F(MeterWindowsTest, TheMileageMeterHasItsPlaceAndScale) {
    meters.OpenFuelMeter(MeterBoard::Fuel::Mileage);
    meters.SetFuelValue(MeterBoard::Fuel::Mileage, 29.4018125);
    const CMeterWnd& meter = OpenMeter();
    ExpectPlace(meter, 96, 0);
    EXPECT_EQ(meter.GetWindowText(), "Mileage in Miles/Gal(US)");
    EXPECT_EQ(ValueText(meter), "29.4 MPG");
    EXPECT_EQ(RangeText(meter), "0..55");
    EXPECT_EQ(meter.Shown().NeedleColor(), chart.GetTraceColor(1));
    EXPECT_EQ(meter.Shown().BackgroundColor(), kBackColour);
    EXPECT_EQ(::GetWindowLongW(meter.m_hWnd, GWL_STYLE) & WS_THICKFRAME, 0);
    EXPECT_EQ(::GetWindow(meter.m_hWnd, GW_OWNER), owner.m_hWnd);
}

TEST_F(MeterWindowsTest, TheConsumptionMeterHasItsPlaceAndScale) {
    meters.OpenFuelMeter(MeterBoard::Fuel::Consumption);
    meters.SetFuelValue(MeterBoard::Fuel::Consumption, 8.04);
    const CMeterWnd& meter = OpenMeter();
    ExpectPlace(meter, 96, 32);
    EXPECT_EQ(meter.GetWindowText(), "Consumption in Liters/100km");
    EXPECT_EQ(ValueText(meter), "8.0 L/100km");
    EXPECT_EQ(RangeText(meter), "0..25");
    EXPECT_EQ(meter.Shown().NeedleColor(), chart.GetTraceColor(2));
    EXPECT_EQ(::GetWindowLongW(meter.m_hWnd, GWL_STYLE) & WS_THICKFRAME, 0);
}

TEST_F(MeterWindowsTest, EachFuelMeterOpensOnce) {
    for (int round = 0; round < 2; ++round) {
        meters.OpenFuelMeter(MeterBoard::Fuel::Mileage);
        meters.OpenFuelMeter(MeterBoard::Fuel::Consumption);
    }
    EXPECT_EQ(OpenMeters().size(), 2u);
}

TEST_F(MeterWindowsTest, AtAStandstillTheFuelMetersGetOtherScales) {
    meters.OpenFuelMeter(MeterBoard::Fuel::Mileage);
    meters.SetFuelValue(MeterBoard::Fuel::Mileage, 30.0);
    meters.SetFuelScale(MeterBoard::Fuel::Mileage, "Gal. per Hour", 4.0, 2);
    EXPECT_EQ(OpenMeter().Shown().MinSeen(), 4.0) << "another range restarts the markers";
    EXPECT_EQ(OpenMeter().Shown().MaxSeen(), 0.0);
    meters.SetFuelValue(MeterBoard::Fuel::Mileage, 0.528344);
    EXPECT_EQ(ValueText(OpenMeter()), "0.53 Gal. per Hour");
    EXPECT_EQ(RangeText(OpenMeter()), "0..4");
}

TEST_F(MeterWindowsTest, BothFuelMetersAreClosedWhicheverIsOpen) {
    using Fuel = MeterBoard::Fuel;
    for (const std::vector<Fuel>& open :
         {std::vector<Fuel>{}, {Fuel::Mileage}, {Fuel::Consumption}, {Fuel::Mileage, Fuel::Consumption}}) {
        for (const Fuel which : open) meters.OpenFuelMeter(which);
        EXPECT_EQ(OpenMeters().size(), open.size());
        meters.CloseFuelMeters();
        EXPECT_TRUE(OpenMeters().empty());
    }
    Fill(0, 1, 0, "V");
    meters.OpenSlotMeter(0, labels);
    meters.CloseFuelMeters();
    EXPECT_EQ(OpenMeters().size(), 1u);
}

// New preferences.

TEST_F(MeterWindowsTest, NewPreferencesColourTheMetersOfTheSlots) {
    // A chart whose colours can be changed.
    struct PaintedChart : FakeChart {
        Colour GetTraceColor(int trace) const override { return base + static_cast<Colour>(trace); }
        Colour base = 0x100000;
    } painted;
    MeterWindows board{owner, data, painted, {"", "", "", "", "", ""}};
    Fill(4, 1, 0, "V");
    board.OpenSlotMeter(4, labels);
    CMeterWnd& slotMeter = OpenMeter();
    board.OpenSlotMeter(9, labels);  // unused
    painted.base = 0x700000;
    data.prefs.backColor = 0x0A0B0C;
    board.ApplyPrefs();
    EXPECT_EQ(slotMeter.Shown().NeedleColor(), 0x700004u);
    EXPECT_EQ(slotMeter.Shown().BackgroundColor(), 0x0A0B0Cu);
    for (const CMeterWnd* meter : OpenMeters()) EXPECT_EQ(meter->Shown().BackgroundColor(), 0x0A0B0Cu);
    for (CMeterWnd* meter : OpenMeters()) meter->DestroyWindow();
}

TEST_F(MeterWindowsTest, NewPreferencesLeaveTheMetersOfObdFieldsAlone) {
    meters.OpenChannelMeter(3);
    data.prefs.backColor = 0x0A0B0C;
    meters.ApplyPrefs();
    EXPECT_EQ(OpenMeter().Shown().BackgroundColor(), kBackColour);
    EXPECT_EQ(RangeText(OpenMeter()), "0..255");
}

TEST_F(MeterWindowsTest, NewPreferencesScaleTheFuelMeters) {
    meters.OpenFuelMeter(MeterBoard::Fuel::Mileage);
    data.prefs.maxMileage = 80;
    data.prefs.backColor = 0x0A0B0C;
    meters.ApplyPrefs();
    EXPECT_EQ(RangeText(OpenMeter()), "0..80");
    EXPECT_EQ(OpenMeter().Shown().BackgroundColor(), kBackColour);
    meters.CloseFuelMeters();
    meters.OpenFuelMeter(MeterBoard::Fuel::Consumption);
    data.prefs.maxConsumption = 12;
    meters.ApplyPrefs();
    EXPECT_EQ(RangeText(OpenMeter()), "0..12");
}

// The end.

TEST_F(MeterWindowsTest, TheDialogTakesItsMetersAlong) {
    Fill(0, 1, 0, "V");
    meters.OpenSlotMeter(0, labels);
    meters.OpenChannelMeter(1);
    meters.OpenFuelMeter(MeterBoard::Fuel::Mileage);
    EXPECT_EQ(OpenMeters().size(), 3u);
    owner.DestroyWindow();
    EXPECT_TRUE(OpenMeters().empty());
    meters.SetSlotValue(0, 1.0);  // all places are empty
    meters.SetChannelValue(1, 1.0);
    meters.CloseFuelMeters();
}

}  // namespace
}  // namespace plotvane::test
