// Other ways to show things, which a person chooses for all programs: larger text, high-contrast colours. The
// tests change these settings for a moment, so they run only where nobody lives.
#include <algorithm>
#include <array>

#include "scaling/Prefs.h"
#include "tests/support/system/Meters.h"
#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

// The dots per inch that the system tells programs when they start, for as long as the object lives.
class DotsPerInch {
public:
    explicit DotsPerInch(DWORD dots) {
        DWORD size = sizeof m_before;
        m_hadOne = ::RegGetValueW(HKEY_CURRENT_USER, kKey, kName, RRF_RT_REG_DWORD, nullptr, &m_before,
                                  &size) == ERROR_SUCCESS;
        Set(dots);
    }
    ~DotsPerInch() {
        if (m_hadOne) Set(m_before);
        if (!m_hadOne) ::RegDeleteKeyValueW(HKEY_CURRENT_USER, kKey, kName);
    }
    DotsPerInch(const DotsPerInch&) = delete;
    DotsPerInch& operator=(const DotsPerInch&) = delete;

private:
    static constexpr const wchar_t* kKey = L"Control Panel\\Desktop";
    static constexpr const wchar_t* kName = L"LogPixels";

    static void Set(DWORD dots) {
        ::RegSetKeyValueW(HKEY_CURRENT_USER, kKey, kName, REG_DWORD, &dots, sizeof dots);
    }

    DWORD m_before = 0;
    bool m_hadOne = false;
};

class Display : public AnyState {
protected:
    static constexpr int kRounding = 2;  // pixels

    bool ShowsNewValues() {
        const std::wstring shown = session.ValueText(0);
        return bool{Becomes([&] { return session.ValueText(0) != shown; }, true)};
    }
    // Shown controls that stick out of the window by more than rounding explains.
    std::vector<int> ControlsOutside() const {
        const RECT window = main.ClientScreenRect();
        std::vector<int> outside;
        for (HWND child = ::GetWindow(main.Get(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
            if (!::IsWindowVisible(child)) continue;
            const RECT place = RemoteWindow(child).ScreenRect();
            if (place.left < window.left || place.top < window.top ||
                place.right > window.right + kRounding || place.bottom > window.bottom + kRounding) {
                outside.push_back(::GetDlgCtrlID(child));
            }
        }
        return outside;
    }
};

class TextScaling : public Display, public ::testing::WithParamInterface<DWORD> {
protected:
    const DotsPerInch m_dots{GetParam()};
};

// The window starts with a size in pixels. If pixels are smaller, the user makes the window larger once.
TEST_P(TextScaling, EveryControlHasRoomInAWindowOfItsSize) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(ShowsNewValues());
    const auto scaled = [](int pixels) { return static_cast<int>(pixels * GetParam() / 96); };
    main.ResizeTo(scaled(700), scaled(450));
    EXPECT_TRUE(Becomes([this] { return ControlsOutside(); }, std::vector<int>()));
    RightClick(main, IDC_SWATCH_FIRST);
    EXPECT_EQ(OpenMeters(main).size(), 1u);
    EXPECT_TRUE(ShowsNewValues());
    EXPECT_TRUE(ClosesPromptly(session));
}

INSTANTIATE_TEST_SUITE_P(Of, TextScaling, ::testing::Values(144, 192), ::testing::PrintToStringParamName());

// White and yellow on black, for people with weak eyes.
class HighContrast : public Display {
protected:
    static constexpr std::array<int, 6> kParts = {COLOR_3DFACE,     COLOR_BTNTEXT,   COLOR_WINDOW,
                                                  COLOR_WINDOWTEXT, COLOR_3DHILIGHT, COLOR_3DSHADOW};
    static constexpr std::array<COLORREF, 6> kColours = {
        RGB(0, 0, 0), RGB(255, 255, 0), RGB(0, 0, 0), RGB(255, 255, 255), RGB(0, 255, 0), RGB(0, 255, 255)};

    HighContrast() {
        std::ranges::transform(kParts, m_before.begin(), [](int part) { return ::GetSysColor(part); });
    }
    ~HighContrast() override { Set(m_before); }

    static void Set(const std::array<COLORREF, 6>& colours) {
        ::SetSysColors(static_cast<int>(kParts.size()), kParts.data(), colours.data());
    }
    // The colour of the dialog at an empty place: below the lower edge of the chart.
    COLORREF GroundOnScreen() const {
        const RECT chart = main.Control(IDC_CHART).ScreenRect();
        return PictureOf({chart.left + 20, chart.bottom + 4, chart.left + 21, chart.bottom + 5}).At(0, 0);
    }
    int ChartBackground() const {
        return PictureOf(main.Control(IDC_CHART).ClientScreenRect()).Count(Prefs().backColor);
    }

private:
    std::array<COLORREF, 6> m_before{};
};

TEST_F(HighContrast, ColoursTheDialogAndLeavesTheChartAsItIs) {
    Set(kColours);
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    EXPECT_TRUE(Becomes([this] { return GroundOnScreen(); }, kColours[0]));
    EXPECT_TRUE(Becomes([this] { return ChartBackground() > 10'000; }, true));
    EXPECT_TRUE(ShowsNewValues());
    EXPECT_TRUE(ClosesPromptly(session));
}

// Not every system shows a running program the new colours, but every window gets the message that they have
// changed.
TEST_F(HighContrast, ChosenWhileDataFlowsDisturbsNothing) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    ASSERT_TRUE(Becomes([this] { return ChartBackground() > 10'000; }, true));
    Set(kColours);
    for (const UINT news : {WM_SYSCOLORCHANGE, WM_THEMECHANGED, WM_SETTINGCHANGE}) main.Send(news);
    EXPECT_TRUE(ShowsNewValues());
    EXPECT_TRUE(Becomes([this] { return ChartBackground() > 10'000; }, true));
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
