// A meter draws and copies only what has changed, and its window always shows what a whole paint would.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "meter/GaugePainter.h"
#include "meter/MeterWnd.h"
#include "tests/support/DegreeSign.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::MeterSlot;
using test::PixelsOf;
using test::Scribble;
using test::Settle;
using test::Stage;

using Pixels = std::vector<std::uint32_t>;

// What a painter shows that has never painted before.
Pixels PaintedWhole(const CRect& client, const Gauge& gauge) {
    const Picture picture(client.Width(), client.Height());
    CDC dc{picture.Dc()};
    GaugePainter{"peak:"}.Paint(dc, client, gauge);
    Pixels pixels(picture.Pixels().begin(), picture.Pixels().end());
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
}

Pixels PaintedWhole(const CMeterWnd& meter) {
    return PaintedWhole(meter.GetClientRect(), meter.Shown());
}

// Takes what lies inside the rectangle from the other picture.
void CopyPart(Pixels& pixels, const Pixels& from, int width, const CRect& part) {
    for (int y = part.top; y < part.bottom; ++y) {
        for (int x = part.left; x < part.right; ++x) {
            const auto i =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
            pixels[i] = from[i];
        }
    }
}

// The smallest rectangle around the pixels that differ.
CRect DifferenceOf(const Pixels& a, const Pixels& b, int width) {
    CRect rect{width, 10'000, 0, 0};
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i]) continue;
        const auto x = static_cast<LONG>(i % static_cast<std::size_t>(width));
        const auto y = static_cast<LONG>(i / static_cast<std::size_t>(width));
        rect = {std::min(rect.left, x), std::min(rect.top, y), std::max(rect.right, x + 1),
                std::max(rect.bottom, y + 1)};
    }
    return rect;
}

// A meter, and what its window must show.
class MeterChanges : public testing::Test {
protected:
    MeterChanges() : m_meter(m_slot.Open(m_stage.window, CRect{0, 0, 184, 161}, WS_CHILD | WS_VISIBLE)) {
        m_meter.SetUnits("km/h");
        m_meter.SetValueDecimals(1);
        Settle(m_meter);
        m_expected = PaintedWhole(m_meter);
    }

    // Something that asks for no paint: it is seen later.
    void Switch(UINT command) { m_meter.SendMessage(WM_COMMAND, command); }

    void SetValue(double value) {
        m_meter.SetValue(value);
        m_expected = PaintedWhole(m_meter);
    }

    // Windows asks for the whole, or for a part of it.
    void Repaint() {
        m_meter.Invalidate();
        Settle(m_meter);
        m_expected = PaintedWhole(m_meter);
    }
    void Repaint(const CRect& part) {
        ::InvalidateRect(m_meter.m_hWnd, &part, TRUE);
        Settle(m_meter);
        CopyPart(m_expected, PaintedWhole(m_meter), m_meter.GetClientRect().Width(), part);
    }

    // Something that asks for a new dial. Values that come before it is painted are seen with it.
    void ChangeWhole(const std::function<void(CMeterWnd&)>& change, double nextValue) {
        change(m_meter);
        m_meter.SetValue(nextValue);
        Settle(m_meter);
        m_expected = PaintedWhole(m_meter);
    }

    // The pixels of the window that are not what they must be: how many, and around which place.
    std::string WrongPixels() const {
        const Pixels shown = PixelsOf(m_meter);
        const CRect client = m_meter.GetClientRect();
        if (shown.size() != m_expected.size()) return "another size";
        int wrong = 0;
        for (std::size_t i = 0; i < shown.size(); ++i) wrong += shown[i] != m_expected[i];
        if (wrong == 0) return {};
        const CRect place = DifferenceOf(shown, m_expected, client.Width());
        std::ostringstream text;
        text << wrong << " from (" << place.left << ", " << place.top << ") to (" << place.right - 1 << ", "
             << place.bottom - 1 << ") in a window of " << client.Width() << " x " << client.Height();
        return text.str();
    }

    const Stage m_stage;
    MeterSlot m_slot;
    CMeterWnd& m_meter;
    Pixels m_expected;
};

constexpr UINT kMinMarker = 32775;
constexpr UINT kMaxMarker = 32776;
constexpr UINT kPeak = 32782;
constexpr UINT kSwapColours = 32783;
constexpr UINT kResetPeak = 32781;

class RandomMeterChanges : public MeterChanges, public testing::WithParamInterface<unsigned> {
protected:
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(m_random); }
    double Between(double low, double high) { return std::uniform_real_distribution(low, high)(m_random); }
    COLORREF Colour() { return RGB(Below(256), Below(256), Below(256)); }

    // Near the last one or anywhere, in the range and beyond it, and sometimes the same.
    double Value() {
        const double value = m_meter.Shown().Value();
        const double range = m_meter.Shown().MaxValue() - m_meter.Shown().MinValue();
        switch (Below(8)) {
            case 0:
                return value;
            case 1:
                return value + range * 1e-5;
            case 2:
                return m_meter.Shown().MinValue() + range * Between(-0.3, 1.3);
            case 3:
                return value * 1000;
            default:
                return value + range * Between(-0.05, 0.05);
        }
    }

    CRect Part() {
        const CRect client = m_meter.GetClientRect();
        const int left = Below(client.Width());
        const int top = Below(client.Height());
        return {left, top, left + 1 + Below(client.Width() - left), top + 1 + Below(client.Height() - top)};
    }

    std::function<void(CMeterWnd&)> WholeChange() {
        switch (Below(11)) {
            case 0:
                return [a = Between(-50, 50), b = Between(60, 200)](CMeterWnd& m) { m.SetRange(a, b); };
            case 1:
                return [](CMeterWnd& m) { m.SetRange(7, 7); };
            case 2:
                return [n = Below(4)](CMeterWnd& m) { m.SetValueDecimals(n); };
            case 3:
                return [](CMeterWnd& m) { m.SetRangeDecimalsZero(); };
            case 4:
                return [n = Below(4)](CMeterWnd& m) {
                    constexpr const char* kUnits[] = {"", "mg/str", "j" DEGREES_C "f",
                                                      "WWWWWWWWWWWWWWWWWWWW"};
                    m.SetUnits(kUnits[n]);
                };
            case 5:
                return [c = Colour()](CMeterWnd& m) { m.SetNeedleColor(c); };
            case 6:
                return [c = Colour()](CMeterWnd& m) { m.SetBackColor(c); };
            case 7:
                return [c = Colour()](CMeterWnd& m) { m.SetFaceColor(c); };
            case 8:
                return [c = Colour()](CMeterWnd& m) { m.SetTicksColor(c); };
            case 9:
                return [](CMeterWnd& m) { m.SendMessage(WM_COMMAND, kSwapColours); };
            default:
                return [w = Below(260), h = Below(220)](CMeterWnd& m) {
                    m.MoveWindow(CRect{0, 0, 20 + w, 1 + h});
                };
        }
    }

    std::string ChangeSomething() {
        switch (Below(12)) {
            case 0:
                Switch(kMinMarker);
                return "marker of the lowest";
            case 1:
                Switch(kMaxMarker);
                return "marker of the highest";
            case 2:
                Switch(kPeak);
                return "peak";
            case 3:
                Switch(kResetPeak);
                return "reset of the peak";
            case 4:
                Repaint(Part());
                return "a part painted";
            case 5:
                Repaint();
                return "all painted";
            case 6:
                ChangeWhole(WholeChange(), Value());
                return "another dial";
            default:
                SetValue(Value());
                return "a value";
        }
    }

    std::mt19937 m_random{GetParam()};
};

TEST_P(RandomMeterChanges, ShowWhatAWholePaintWould) {
    std::string what = "nothing";
    for (int i = 0; i < 2500; ++i) {
        ASSERT_EQ(WrongPixels(), "") << "after change " << i << ": " << what;
        what = ChangeSomething();
    }
}

INSTANTIATE_TEST_SUITE_P(MeterChanges, RandomMeterChanges, testing::Values(1U, 2U, 3U));

// Which pixels a change copies to the window.
class CopiedPixels : public MeterChanges {
protected:
    CopiedPixels() {
        for (const double value : {10.0, 80.0, 50.0}) m_meter.SetValue(value);
    }

    CRect CopiedBy(const std::function<void(CMeterWnd&)>& change) {
        const Pixels before = Scribble(m_meter);
        change(m_meter);
        return DifferenceOf(before, PixelsOf(m_meter), m_meter.GetClientRect().Width());
    }
    bool IsNothingCopiedBy(const std::function<void(CMeterWnd&)>& change) {
        return CopiedBy(change).Width() <= 0;
    }
};

TEST_F(CopiedPixels, AreNoneIfTheValueStays) {
    EXPECT_TRUE(IsNothingCopiedBy([](CMeterWnd& m) { m.SetValue(50); }));
}

TEST_F(CopiedPixels, AreNoneIfTheNeedleMovesByLessThanAPixel) {
    EXPECT_TRUE(IsNothingCopiedBy([](CMeterWnd& m) { m.SetValue(50.001); }));
}

TEST_F(CopiedPixels, AreThoseOfTheTextAloneIfTheNeedleStays) {
    const CRect copied = CopiedBy([](CMeterWnd& m) { m.SetValue(50.1); });
    EXPECT_GT(copied.top, 0);
    EXPECT_LT(copied.bottom, 27);  // the top of the dial
    EXPECT_GT(copied.left, 92 - 50);
    EXPECT_LT(copied.right, 92 + 50);
}

TEST_F(CopiedPixels, AreThoseOfNeedleAndTextIfNoMarkerMoves) {
    // From straight up to the right: nothing at the left, the rim's lower half or the peak.
    const CRect copied = CopiedBy([](CMeterWnd& m) { m.SetValue(70); });
    EXPECT_GT(copied.left, 92 - 50);
    EXPECT_LT(copied.right, 92 + 53);
    EXPECT_LE(copied.bottom, 80 + 14);  // the needle's back end
}

TEST_F(CopiedPixels, AreThoseOfThePeakTooIfItGrows) {
    EXPECT_GT(CopiedBy([](CMeterWnd& m) { m.SetValue(81); }).bottom, 140);
}

// The switch was seen in a corner only.
TEST_F(MeterChanges, ASwitchIsSeenWholeWithTheNextValueEvenIfAPartWasPaintedBefore) {
    SetValue(50);
    for (const UINT command : {kMinMarker, kMaxMarker, kPeak, kPeak, kMaxMarker, kMinMarker}) {
        Switch(command);
        EXPECT_EQ(WrongPixels(), "") << command;
        Repaint({0, 0, 92, 40});
        EXPECT_EQ(WrongPixels(), "") << command;
        SetValue(50);
        EXPECT_EQ(WrongPixels(), "") << command;
    }
}

TEST_F(MeterChanges, AValueIsShownInAWindowThatWasHidden) {
    ::ShowWindow(m_meter.m_hWnd, SW_HIDE);
    m_meter.SetValue(30);
    ::ShowWindow(m_meter.m_hWnd, SW_SHOWNA);
    Settle(m_meter);
    m_expected = PaintedWhole(m_meter);
    EXPECT_EQ(WrongPixels(), "");
    SetValue(31);
    EXPECT_EQ(WrongPixels(), "");
}

}  // namespace
}  // namespace plotvane
