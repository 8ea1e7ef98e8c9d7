#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "controls/ColorBox.h"
#include "framework/Text.h"
#include "tests/windows/scaling/PrefsDlgFixture.h"

namespace plotvane::test {
namespace {

// A slider and what it changes.
struct SliderCase {
    int slider;
    int number;
    int swatch;
    int presets;
    Colour Prefs::*colour;  // null for the first trace
    int shift;
};

constexpr SliderCase kSliders[] = {
    {1216, 1203, 0, 1226, &Prefs::backColor, 0},
    {1218, 1204, 0, 1226, &Prefs::backColor, 8},
    {1220, 1205, 0, 1226, &Prefs::backColor, 16},
    {1217, 1206, 1, 1227, &Prefs::gridColor, 0},
    {1219, 1207, 1, 1227, &Prefs::gridColor, 8},
    {1221, 1208, 1, 1227, &Prefs::gridColor, 16},
    {1222, 1209, 2, 1228, nullptr, 0},
    {1223, 1210, 2, 1228, nullptr, 8},
    {1224, 1211, 2, 1228, nullptr, 16},
};

class PrefsDlgColours : public PrefsDlgFixture {
protected:
    Colour& ColourOf(const SliderCase& row) {
        return row.colour ? m_prefs.*row.colour : m_prefs.lineColor[0];
    }

    static int PositionOf(const DialogUser& user, int slider) {
        return static_cast<int>(user.Ask(slider, TBM_GETPOS));
    }
    static std::vector<int> Positions(const DialogUser& user, std::initializer_list<int> sliders) {
        std::vector<int> positions;
        for (const int slider : sliders) positions.push_back(PositionOf(user, slider));
        return positions;
    }
    static std::string LineOf(const DialogUser& user, int list, int line) {
        wchar_t text[64]{};
        user.Ask(list, CB_GETLBTEXT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(text));
        return ToBytes(text);
    }
    // The colour in the middle of a swatch as it is on the screen.
    static COLORREF PixelOf(const DialogUser& user, int swatch) {
        const HWND window = user.Control(IDC_PREFS_SWATCH_WINDOW_FIRST + swatch);
        RECT client{};
        ::GetClientRect(window, &client);
        const HDC dc = ::GetDC(window);
        const COLORREF pixel = ::GetPixel(dc, client.right / 2, client.bottom / 2);
        ::ReleaseDC(window, dc);
        return pixel;
    }
};

using Numbers = std::vector<int>;

TEST_F(PrefsDlgColours, AreThoseOfTheFileAtTheStart) {
    WriteBytes(PrefsFile(), "BackColor=302010\r\nGridColor=605040\r\nLine0Color=907060\r\n");
    Use([](DialogUser& user) {
        EXPECT_EQ(Positions(user, {1216, 1218, 1220}), (Numbers{0x10, 0x20, 0x30}));
        EXPECT_EQ(Positions(user, {1217, 1219, 1221}), (Numbers{0x40, 0x50, 0x60}));
        EXPECT_EQ(Positions(user, {1222, 1223, 1224}), (Numbers{0x60, 0x70, 0x90}));
        const char* numbers[] = {"16", "32", "48", "64", "80", "96", "96", "112", "144"};
        for (int i = 0; i < 9; ++i) EXPECT_EQ(user.TextOf(1203 + i), numbers[i]) << i;
        EXPECT_EQ(PixelOf(user, 0), 0x302010u);
        EXPECT_EQ(PixelOf(user, 1), 0x605040u);
        EXPECT_EQ(PixelOf(user, 2), 0x907060u);
        for (const int presets : {1226, 1227, 1228}) EXPECT_EQ(user.TextOf(presets), "");
    });
}

TEST_F(PrefsDlgColours, SlidersGoFrom0To255) {
    Use([](DialogUser& user) {
        for (const SliderCase& row : kSliders) {
            EXPECT_EQ(user.Ask(row.slider, TBM_GETRANGEMIN), 0) << row.slider;
            EXPECT_EQ(user.Ask(row.slider, TBM_GETRANGEMAX), 255) << row.slider;
        }
    });
}

TEST_F(PrefsDlgColours, ListsOfferTwelveLinesAndFourteenNames) {
    Use([](DialogUser& user) {
        ASSERT_EQ(user.Ask(1225, CB_GETCOUNT), 12);
        EXPECT_EQ(LineOf(user, 1225, 0), "Line 1");
        EXPECT_EQ(LineOf(user, 1225, 11), "Line 12");
        EXPECT_EQ(user.TextOf(1225), "Line 1");
        const char* names[] = {"Red",    "LGreen", "Yellow", "LBlue", "Orange", "Cyan",  "DkGreen",
                               "DkBlue", "Brown",  "Pink",   "Blue",  "DkCyan", "Black", "White"};
        for (const int list : {1226, 1227, 1228}) {
            ASSERT_EQ(user.Ask(list, CB_GETCOUNT), 14);
            for (int i = 0; i < 14; ++i) EXPECT_EQ(LineOf(user, list, i), names[i]);
        }
    });
}

TEST_F(PrefsDlgColours, EachSliderMovesItsPartOfItsColourAndClearsThePresetName) {
    Use([this](DialogUser& user) {
        for (const SliderCase& row : kSliders) {
            user.Choose(row.presets, 12);  // Black
            EXPECT_EQ(user.TextOf(row.presets), "Black");
            user.Slide(row.slider, 77);
            user.WaitUntil("the number follows", [&] { return user.TextOf(row.number) == "77"; });
            const Colour expected = 77u << row.shift;
            EXPECT_EQ(ColourOf(row), expected) << row.slider;
            EXPECT_EQ(user.TextOf(row.presets), "") << row.slider;
            user.WaitUntil("the swatch follows", [&] { return PixelOf(user, row.swatch) == expected; });
        }
    });
}

TEST_F(PrefsDlgColours, SlidersMoveByKeysToo) {
    Use([this](DialogUser& user) {
        user.GoTo(1218);
        user.WaitUntil("the slider has the focus", [&] { return user.HasFocus(1218); });
        user.Press(VK_END);
        user.WaitUntil("the number follows", [&] { return user.TextOf(1204) == "255"; });
        user.Press(VK_LEFT);
        user.WaitUntil("the number follows", [&] { return user.TextOf(1204) == "254"; });
        EXPECT_EQ(m_prefs.backColor, 0x00FE00u);
    });
}

TEST_F(PrefsDlgColours, APresetMovesTheSlidersOfItsRowAndKeepsItsName) {
    Use([this](DialogUser& user) {
        user.Choose(1226, 9);
        user.Choose(1227, 7);
        user.Choose(1228, 4);
        EXPECT_EQ(m_prefs.backColor, 0xC0C0FFu);
        EXPECT_EQ(m_prefs.gridColor, 0x7F0000u);
        EXPECT_EQ(m_prefs.lineColor[0], 0x00A0FFu);
        EXPECT_EQ(Positions(user, {1216, 1218, 1220}), (Numbers{255, 192, 192}));
        EXPECT_EQ(Positions(user, {1217, 1219, 1221}), (Numbers{0, 0, 127}));
        EXPECT_EQ(Positions(user, {1222, 1223, 1224}), (Numbers{255, 160, 0}));
        const char* numbers[] = {"255", "192", "192", "0", "0", "127", "255", "160", "0"};
        for (int i = 0; i < 9; ++i) EXPECT_EQ(user.TextOf(1203 + i), numbers[i]) << i;
        user.WaitUntil("the swatch follows", [&] { return PixelOf(user, 0) == 0xC0C0FFu; });

        // Draws all sliders again. The program must not take that for a move by the user.
        ::RedrawWindow(user.Dialog(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
        user.WaitUntil("all is drawn", [&] { return !::GetUpdateRect(user.Control(1224), nullptr, FALSE); });
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(user.TextOf(1226), "Pink");
        EXPECT_EQ(user.TextOf(1227), "DkBlue");
        EXPECT_EQ(user.TextOf(1228), "Orange");
    });
}

TEST_F(PrefsDlgColours, EveryPresetIsTheColourOfItsName) {
    constexpr Colour kColours[] = {0x0000FF, 0x00FF00, 0x00FFFF, 0xFFC0C0, 0x00A0FF, 0xFFFF00, 0x00A000,
                                   0x7F0000, 0x0060A0, 0xC0C0FF, 0xFFA000, 0xA0A000, 0x000000, 0xFFFFFF};
    Use([&](DialogUser& user) {
        for (int preset = 0; preset < 14; ++preset) {
            user.Choose(1227, preset);
            EXPECT_EQ(m_prefs.gridColor, kColours[preset]) << preset;
        }
    });
}

TEST_F(PrefsDlgColours, ChoosingAPresetByKeysCounts) {
    Use([this](DialogUser& user) {
        user.GoTo(1226);
        user.WaitUntil("the list has the focus",
                       [&] { return ::IsChild(user.Control(1226), user.Focus()) || user.HasFocus(1226); });
        user.Press(VK_F4);
        user.WaitUntil("the list is open", [&] { return user.Ask(1226, CB_GETDROPPEDSTATE) != 0; });
        user.Press(VK_DOWN);
        user.Press(VK_DOWN);
        user.Press(VK_RETURN);
        user.WaitUntil("the name is shown", [&] { return user.TextOf(1226) == "LGreen"; });
        EXPECT_TRUE(user.IsAtRest());
        EXPECT_EQ(m_prefs.backColor, 0x00FF00u);
        EXPECT_EQ(Positions(user, {1216, 1218, 1220}), (Numbers{0, 255, 0}));
    });
}

TEST_F(PrefsDlgColours, AListWithoutASelectionChangesNothing) {
    Use([this](DialogUser& user) {
        for (const int list : {1225, 1226, 1227, 1228}) user.Choose(list, -1);
        user.Choose(1228, 2);  // still of the first trace
        EXPECT_EQ(m_prefs.backColor, kBlack);
        EXPECT_EQ(m_prefs.gridColor, kWhite);
        EXPECT_EQ(m_prefs.lineColor[0], 0x00FFFFu);
    });
}

TEST_F(PrefsDlgColours, AnotherTraceTakesTheThirdRow) {
    Use([this](DialogUser& user) {
        user.Choose(1228, 13);
        user.Choose(1225, 7);  // Line 8, DkBlue
        EXPECT_EQ(Positions(user, {1222, 1223, 1224}), (Numbers{0, 0, 127}));
        EXPECT_EQ(user.TextOf(1209), "0");
        EXPECT_EQ(user.TextOf(1211), "127");
        EXPECT_EQ(user.TextOf(1228), "");  // the name was that of the other trace's colour
        user.WaitUntil("the swatch follows", [&] { return PixelOf(user, 2) == 0x7F0000u; });
        user.Slide(1222, 5);
        user.WaitUntil("the number follows", [&] { return user.TextOf(1209) == "5"; });
        EXPECT_EQ(m_prefs.lineColor[7], 0x7F0005u);
        EXPECT_EQ(m_prefs.lineColor[0], 0xFFFFFFu);
        user.Choose(1225, 0);
        EXPECT_EQ(Positions(user, {1222, 1223, 1224}), (Numbers{255, 255, 255}));
        EXPECT_EQ(m_prefs.lineColor[7], 0x7F0005u);
    });
}

TEST_F(PrefsDlgColours, OpeningChangesNothing) {
    const Prefs before = m_prefs;
    Use([&](DialogUser& user) {
        EXPECT_EQ(m_prefs.backColor, before.backColor);
        EXPECT_EQ(m_prefs.gridColor, before.gridColor);
        EXPECT_EQ(m_prefs.lineColor, before.lineColor);
        EXPECT_EQ(user.BoxCount(), 0);
    });
}

}  // namespace
}  // namespace plotvane::test
