#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "meter/MeterWnd.h"
#include "res/resource.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::BuriedMeter;
using test::Deadline;
using test::DispatchUntil;
using test::MeterSlot;
using test::Ticker;

// The colour choosers that this thread shows, the newest first.
std::vector<HWND> OpenChoosers() {
    std::vector<HWND> found;
    ::EnumThreadWindows(
        ::GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            wchar_t name[16]{};
            ::GetClassNameW(window, name, 16);
            if (::IsWindowVisible(window) && std::wstring{name} == L"#32770")
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

void Press(HWND dialog, int button) {
    ::PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

// Opens a chooser by the first command and, once that is shown, the others on top of it. Calls `act` with all
// of them once they are shown, the newest first, and comes back when they are gone. False if they did not
// come, or did not go by themselves.
bool WithChoosers(HWND meter, const std::vector<UINT>& commands,
                  const std::function<void(const std::vector<HWND>&)>& act) {
    std::size_t opened = 0;
    bool acted = false;
    bool went = true;
    const Deadline deadline;
    const auto tick = [&] {
        const auto choosers = OpenChoosers();
        if (deadline.HasPassed()) {
            went = false;
            for (const HWND chooser : choosers) Press(chooser, IDCANCEL);
        } else if (choosers.size() == opened && opened < commands.size()) {
            ::PostMessageW(meter, WM_COMMAND, commands[opened++], 0);
        } else if (choosers.size() == commands.size() && !acted) {
            acted = true;
            act(choosers);
        }
    };
    const Ticker ticker{tick};
    return DispatchUntil([&] { return acted && OpenChoosers().empty(); }) && went;
}

bool WithChooser(HWND meter, UINT command, const std::function<void(HWND)>& act) {
    return WithChoosers(meter, {command}, [&](const std::vector<HWND>& choosers) { act(choosers.front()); });
}

struct ColourCommand {
    UINT id;
    Colour (Gauge::*shown)() const;
};

constexpr ColourCommand kColourCommands[] = {{32777, &Gauge::NeedleColor},
                                             {32780, &Gauge::BackgroundColor},
                                             {32778, &Gauge::FaceColor},
                                             {32779, &Gauge::TicksColor}};

void SetAllColours(CMeterWnd& meter, COLORREF colour) {
    meter.SetNeedleColor(colour);
    meter.SetBackColor(colour);
    meter.SetFaceColor(colour);
    meter.SetTicksColor(colour);
}

TEST(MeterColor, SetsTheColourThatIsChosen) {
    for (const auto& [id, shown] : kColourCommands) {
        MeterSlot slot;
        CMeterWnd& meter = slot.Open();
        SetAllColours(meter, RGB(9, 9, 9));
        // The chooser starts with black, whatever the meter shows.
        ASSERT_TRUE(WithChooser(meter.m_hWnd, id, [](HWND chooser) { Press(chooser, IDOK); })) << id;
        for (const auto& [other, otherShown] : kColourCommands)
            EXPECT_EQ((meter.Shown().*otherShown)(), other == id ? RGB(0, 0, 0) : RGB(9, 9, 9)) << id;
    }
}

TEST(MeterColor, KeepsTheColourOnCancel) {
    for (const auto& [id, shown] : kColourCommands) {
        MeterSlot slot;
        CMeterWnd& meter = slot.Open();
        SetAllColours(meter, RGB(9, 9, 9));
        ASSERT_TRUE(WithChooser(meter.m_hWnd, id, [](HWND chooser) { Press(chooser, IDCANCEL); }));
        EXPECT_EQ((meter.Shown().*shown)(), RGB(9, 9, 9)) << id;
    }
}

constexpr int kBasicColours = 0x2D0;   // the field of basic colours
constexpr int kDefineColours = 0x2CF;  // the button that opens the part for colours of one's own

TEST(MeterColor, TakesTheBasicColourThatIsClicked) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    ASSERT_TRUE(WithChooser(meter.m_hWnd, ID_METER_FACE_COLOUR, [](HWND chooser) {
        // The first of the first row is a light red on every Windows.
        RECT field{};
        ::GetWindowRect(::GetDlgItem(chooser, kBasicColours), &field);
        POINT place{field.left + 8, field.top + 8};
        ::ScreenToClient(chooser, &place);
        ::SendMessageW(chooser, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x, place.y));
        ::SendMessageW(chooser, WM_LBUTTONUP, 0, MAKELPARAM(place.x, place.y));
        Press(chooser, IDOK);
    }));
    EXPECT_EQ(meter.Shown().FaceColor(), RGB(255, 128, 128));
}

TEST(MeterColor, LeavesTheOtherWindowsUsable) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    const HWND window = meter.m_hWnd;
    HWND owner = window;
    bool canDefineColours = true;
    bool meterIsEnabled = false;
    ASSERT_TRUE(WithChooser(window, ID_METER_BACK_COLOUR, [&](HWND chooser) {
        owner = ::GetWindow(chooser, GW_OWNER);
        canDefineColours = ::IsWindowEnabled(::GetDlgItem(chooser, kDefineColours)) != 0;
        meterIsEnabled = ::IsWindowEnabled(window) != 0;
        meter.SetValue(42);
        Press(chooser, IDCANCEL);
    }));
    EXPECT_EQ(owner, nullptr);
    EXPECT_FALSE(canDefineColours);
    EXPECT_TRUE(meterIsEnabled);
    EXPECT_EQ(meter.Shown().Value(), 42);
}

TEST(MeterColor, ClosesWithTheMeter) {
    for (const auto& [id, shown] : kColourCommands) {
        MeterSlot slot;
        const HWND window = slot.Open<BuriedMeter>().m_hWnd;
        EXPECT_TRUE(WithChooser(window, id, [&](HWND) { ::SendMessageW(window, WM_CLOSE, 0, 0); })) << id;
        EXPECT_EQ(slot.meter, nullptr);
        EXPECT_FALSE(::IsWindow(window));
        EXPECT_TRUE(BuriedMeter::RestsUntouched());
    }
}

TEST(MeterColor, DropsTheColourOfAMeterThatIsClosedAtTheSameTime) {
    MeterSlot slot;
    const HWND window = slot.Open<BuriedMeter>().m_hWnd;
    EXPECT_TRUE(WithChooser(window, ID_METER_FACE_COLOUR, [&](HWND chooser) {
        Press(chooser, IDOK);  // comes first in the queue, so the chooser answers with a colour
        ::SendMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_EQ(slot.meter, nullptr);
    EXPECT_TRUE(BuriedMeter::RestsUntouched());
}

TEST(MeterColor, DropsTheColourWhenAnotherMeterHasTakenThePlace) {
    // The new one has the old one's memory too, so that only their windows tell them apart.
    MeterSlot slot;
    const HWND window = slot.Open<BuriedMeter>().m_hWnd;
    EXPECT_TRUE(WithChooser(window, ID_METER_FACE_COLOUR, [&](HWND chooser) {
        ::SendMessageW(window, WM_CLOSE, 0, 0);
        SetAllColours(slot.Open<BuriedMeter>(), RGB(9, 9, 9));
        ::SendMessageW(chooser, WM_COMMAND, IDOK, 0);  // the last word: it answers with a colour
    }));
    ASSERT_NE(slot.meter, nullptr);
    EXPECT_EQ(slot.meter->Shown().FaceColor(), RGB(9, 9, 9));
}

TEST(MeterColor, ClosesWithTheOwnerOfTheMeter) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
    MeterSlot slot;
    const HWND window = slot.Open(owner).m_hWnd;
    EXPECT_TRUE(WithChooser(window, ID_METER_NEEDLE_COLOUR, [&](HWND) { ::DestroyWindow(owner); }));
    EXPECT_EQ(slot.meter, nullptr);
}

TEST(MeterColor, MayBeChosenTwiceAtATime) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    SetAllColours(meter, RGB(9, 9, 9));
    EXPECT_TRUE(WithChoosers(meter.m_hWnd, {ID_METER_FACE_COLOUR, ID_METER_TICKS_COLOUR},
                             [](const std::vector<HWND>& choosers) {
                                 for (const HWND chooser : choosers) Press(chooser, IDOK);
                             }));
    EXPECT_EQ(meter.Shown().FaceColor(), RGB(0, 0, 0));
    EXPECT_EQ(meter.Shown().TicksColor(), RGB(0, 0, 0));
    EXPECT_EQ(meter.Shown().NeedleColor(), RGB(9, 9, 9));
}

// However often the item of the menu is asked for.
TEST(MeterColor, HasOneChooserForEachColour) {
    MeterSlot slot;
    const HWND window = slot.Open().m_hWnd;
    std::size_t shown = 0;
    EXPECT_TRUE(WithChooser(window, ID_METER_FACE_COLOUR, [&](HWND chooser) {
        ::SendMessageW(window, WM_COMMAND, ID_METER_FACE_COLOUR, 0);
        shown = OpenChoosers().size();
        Press(chooser, IDOK);
    }));
    EXPECT_EQ(shown, 1u);
}

TEST(MeterColor, ClosesBothChoosersWithTheMeter) {
    MeterSlot slot;
    const HWND window = slot.Open<BuriedMeter>().m_hWnd;
    EXPECT_TRUE(WithChoosers(window, {ID_METER_FACE_COLOUR, ID_METER_TICKS_COLOUR},
                             [&](const std::vector<HWND>&) { ::SendMessageW(window, WM_CLOSE, 0, 0); }));
    EXPECT_EQ(slot.meter, nullptr);
    EXPECT_TRUE(BuriedMeter::RestsUntouched());
}

}  // namespace
}  // namespace plotvane
