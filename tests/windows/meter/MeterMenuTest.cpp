#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "meter/MeterWnd.h"
#include "res/resource.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::BuriedMeter;
using test::Deadline;
using test::DispatchUntil;
using test::kHiddenMeterStyle;
using test::kMeterRect;
using test::MeterSlot;
using test::Ticker;

// A meter that records the look of its menu just before the menu is shown.
class NotingMeter : public CMeterWnd {
public:
    using CMeterWnd::CMeterWnd;

    std::vector<std::wstring> texts;
    std::vector<UINT> ids;
    std::vector<bool> checks;

private:
    LRESULT OnInitMenuPopup(WPARAM wParam, LPARAM) {
        const HMENU menu = reinterpret_cast<HMENU>(wParam);
        for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
            std::array<wchar_t, 80> text{};
            ::GetMenuStringW(menu, static_cast<UINT>(i), text.data(), static_cast<int>(text.size()),
                             MF_BYPOSITION);
            texts.emplace_back(text.data());
            ids.push_back(::GetMenuItemID(menu, i));
            checks.push_back((::GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_CHECKED) != 0);
        }
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NotingMeter, CMeterWnd)
    ON_MESSAGE(WM_INITMENUPOPUP, OnInitMenuPopup)
END_MESSAGE_MAP()

HWND OpenMenu() {
    const HWND menu = ::FindWindowW(L"#32768", nullptr);
    return menu && ::IsWindowVisible(menu) ? menu : nullptr;
}

// Opens the menu at this point of the screen as the right mouse button does, calls `act` once when the menu
// is shown, and returns when it is closed. False if it was never shown or did not close by itself.
template <typename Action>
bool WithMenu(HWND meter, POINT place, Action act) {
    bool shown = false;
    bool went = true;
    const Deadline deadline;
    const Ticker ticker{[&] {
        if (!OpenMenu()) return;
        if (!std::exchange(shown, true)) act();
        if (!deadline.HasPassed()) return;
        went = false;
        ::EndMenu();
    }};
    ::PostMessageW(meter, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(meter), MAKELPARAM(place.x, place.y));
    return DispatchUntil([&] { return shown && !OpenMenu(); }) && went;
}

TEST(MeterMenu, HasNineItems) {
    MeterSlot slot;
    auto& meter = slot.Open<NotingMeter>(nullptr, kMeterRect, kHiddenMeterStyle);
    ASSERT_TRUE(WithMenu(meter.m_hWnd, {300, 300}, [] { ::EndMenu(); }));
    const std::vector<std::wstring> texts{L"EnableMaxMarker",
                                          L"EnableMinMarker",
                                          L"DisplayPeak",
                                          L"Rice!",
                                          L"SelectNeedleColor...",
                                          L"SelectBackgroundColor...",
                                          L"SelectFaceColor...",
                                          L"SelectTicksColor...",
                                          L"ResetPeak"};
    EXPECT_EQ(meter.texts, texts);
    const std::vector<UINT> ids{32776, 32775, 32782, 32783, 32777, 32780, 32778, 32779, 32781};
    EXPECT_EQ(meter.ids, ids);
}

TEST(MeterMenu, ChecksWhatIsOn) {
    MeterSlot slot;
    auto& meter = slot.Open<NotingMeter>(nullptr, kMeterRect, kHiddenMeterStyle);
    const auto checks = [&] {
        meter.checks.clear();
        EXPECT_TRUE(WithMenu(meter.m_hWnd, {300, 300}, [] { ::EndMenu(); }));
        return meter.checks;
    };
    using Checks = std::vector<bool>;
    EXPECT_EQ(checks(), (Checks{1, 1, 1, 0, 0, 0, 0, 0, 0}));
    meter.SendMessage(WM_COMMAND, ID_METER_MAX_MARKER);
    EXPECT_EQ(checks(), (Checks{0, 1, 1, 0, 0, 0, 0, 0, 0}));
    meter.SendMessage(WM_COMMAND, ID_METER_MIN_MARKER);
    EXPECT_EQ(checks(), (Checks{0, 0, 1, 0, 0, 0, 0, 0, 0}));
    meter.SendMessage(WM_COMMAND, ID_METER_SHOW_PEAK);
    meter.SendMessage(WM_COMMAND, ID_METER_SWAP_COLOURS);
    EXPECT_EQ(checks(), (Checks{0, 0, 0, 1, 0, 0, 0, 0, 0}));
}

// The middle of the menu's top edge when this message opens the menu.
std::optional<POINT> PlaceOfMenu(CMeterWnd& meter, POINT place) {
    RECT rect{};
    const bool shown = WithMenu(meter.m_hWnd, place, [&] {
        ::GetWindowRect(OpenMenu(), &rect);
        ::EndMenu();
    });
    if (!shown) return std::nullopt;
    return POINT{(rect.left + rect.right) / 2, rect.top};
}

TEST(MeterMenu, OpensCentredBelowThePointer) {
    MeterSlot slot;
    const auto place = PlaceOfMenu(slot.Open(nullptr, kMeterRect, kHiddenMeterStyle), {400, 300});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, 400, 1);
    EXPECT_EQ(place->y, 300);
}

TEST(MeterMenu, OpensAtTheMiddleOfTheMeterForTheKeyboard) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open(nullptr, CRect{300, 200, 500, 400}, kHiddenMeterStyle);
    const CRect client = meter.GetClientRect();
    POINT middle{client.Width() / 2, client.Height() / 2};
    ::ClientToScreen(meter.m_hWnd, &middle);
    const auto place = PlaceOfMenu(meter, {-1, -1});
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, middle.x, 1);
    EXPECT_EQ(place->y, middle.y);
}

TEST(MeterMenu, RunsTheChosenItem) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open(nullptr, kMeterRect, kHiddenMeterStyle);
    const HWND window = meter.m_hWnd;
    ASSERT_TRUE(WithMenu(window, {300, 300}, [&] {
        for (int i = 0; i < 4; ++i) ::PostMessageW(window, WM_KEYDOWN, VK_DOWN, 0);  // to "Rice!"
        ::PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
    }));
    EXPECT_TRUE(DispatchUntil([&] { return meter.Shown().HasSwappedColors(); }));
}

TEST(MeterMenu, ClosesWithTheMeter) {
    MeterSlot slot;
    const HWND window = slot.Open<BuriedMeter>(nullptr, kMeterRect, kHiddenMeterStyle).m_hWnd;
    EXPECT_TRUE(WithMenu(window, {300, 300}, [&] { ::SendMessageW(window, WM_CLOSE, 0, 0); }));
    EXPECT_EQ(slot.meter, nullptr);
    EXPECT_TRUE(BuriedMeter::RestsUntouched());
    EXPECT_FALSE(::IsWindow(window));
}

TEST(MeterMenu, ClosesWithTheOwnerOfTheMeter) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
    MeterSlot slot;
    const HWND window = slot.Open(owner, kMeterRect, kHiddenMeterStyle).m_hWnd;
    EXPECT_TRUE(WithMenu(window, {300, 300}, [&] { ::DestroyWindow(owner); }));
    EXPECT_EQ(slot.meter, nullptr);
}

}  // namespace
}  // namespace plotvane
