#include <gtest/gtest.h>

#include <limits>
#include <ostream>

#include "framework/Gdi.h"
#include "meter/MeterWnd.h"
#include "tests/support/DegreeSign.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::ColourShown;
using test::HasSomethingToPaint;
using test::kMeterRect;
using test::kObjectsOfAMeter;
using test::MeterSlot;
using test::PixelsOf;
using test::Scribble;
using test::Settle;
using test::Stage;

// The repaint that a setter requests. Discarding the dial releases its objects at once, so the object count
// shows it.
enum class Repaint { Nothing, WithTheDialKept, WithANewDial };

std::ostream& operator<<(std::ostream& out, Repaint repaint) {
    constexpr const char* kNames[] = {"nothing", "with the dial kept", "with a new dial"};
    return out << kNames[static_cast<int>(repaint)];
}

template <typename Action>
Repaint RepaintAfter(CMeterWnd& meter, Action action) {
    Settle(meter);
    const int objects = LivingGdiObjects();
    const auto scribbled = Scribble(meter);
    action();
    const bool dialIsKept = LivingGdiObjects() == objects;
    const auto pixels = PixelsOf(meter);
    const bool isPainted = pixels != scribbled;
    const bool isPaintDue = HasSomethingToPaint(meter);
    if (isPaintDue) {
        const bool hasItsSize = pixels.size() == scribbled.size();
        EXPECT_FALSE(isPainted && hasItsSize) << "painted although a repaint is due";
        CRect update;
        ::GetUpdateRect(meter.m_hWnd, &update, FALSE);
        EXPECT_EQ(update.Width(), meter.GetClientRect().Width());
        EXPECT_EQ(update.Height(), meter.GetClientRect().Height());
    }
    EXPECT_TRUE(dialIsKept || LivingGdiObjects() == objects - kObjectsOfAMeter);
    EXPECT_TRUE(dialIsKept || isPaintDue) << "the dial was discarded without a request to repaint";
    meter.Invalidate();
    Settle(meter);
    EXPECT_EQ(LivingGdiObjects(), objects);
    if (!dialIsKept) return Repaint::WithANewDial;
    return isPainted || isPaintDue ? Repaint::WithTheDialKept : Repaint::Nothing;
}

TEST(MeterRepaint, RepaintsAValueOnTheKeptDial) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(50); }), Repaint::WithTheDialKept);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(50); }), Repaint::Nothing);
    EXPECT_EQ(meter.Shown().Value(), 50);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(std::numeric_limits<double>::quiet_NaN()); }),
              Repaint::Nothing);
    EXPECT_EQ(meter.Shown().Value(), 50);
}

TEST(MeterRepaint, ShowsAValueAtOnce) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    Settle(meter);
    for (const double value : {100.0, 0.0, 50.0}) {
        meter.SetValue(value);
        EXPECT_FALSE(HasSomethingToPaint(meter));
        const auto shown = PixelsOf(meter);
        meter.Invalidate();
        Settle(meter);
        EXPECT_EQ(shown, PixelsOf(meter)) << value;
    }
}

TEST(MeterRepaint, LeavesAValueToAPendingPaint) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    Settle(meter);
    const auto before = PixelsOf(meter);
    meter.SetRange(0, 6000);
    meter.SetValue(3000);
    EXPECT_EQ(PixelsOf(meter), before);
    EXPECT_TRUE(HasSomethingToPaint(meter));
    Settle(meter);
    EXPECT_NE(PixelsOf(meter), before);
}

TEST(MeterRepaint, ShowsAValueAtItsCurrentSize) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    for (const int size : {150, 220}) {
        ::SetWindowPos(meter.m_hWnd, nullptr, 0, 0, size, size, SWP_NOMOVE | SWP_NOZORDER);
        Settle(meter);
        meter.SetValue(size / 4.0);
        const auto shown = PixelsOf(meter);
        meter.Invalidate();
        Settle(meter);
        EXPECT_EQ(shown, PixelsOf(meter)) << size;
    }
}

TEST(MeterRepaint, MakesANewDialIfSomethingDiffers) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetRange(0, 100); }), Repaint::Nothing);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetRange(0, 6000); }), Repaint::WithANewDial);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetRange(0, 6000); }), Repaint::Nothing);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValueDecimals(3); }), Repaint::Nothing);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValueDecimals(1); }), Repaint::WithANewDial);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetUnits(""); }), Repaint::Nothing);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetUnits("/min"); }), Repaint::WithANewDial);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetUnits("/min"); }), Repaint::Nothing);
}

TEST(MeterRepaint, MakesANewDialForEveryColourAndForWholeLabels) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    for (int twice = 0; twice < 2; ++twice) {
        EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetRangeDecimalsZero(); }), Repaint::WithANewDial);
        EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetNeedleColor(RGB(1, 2, 3)); }), Repaint::WithANewDial);
        EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetBackColor(RGB(4, 5, 6)); }), Repaint::WithANewDial);
        EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetFaceColor(RGB(7, 8, 9)); }), Repaint::WithANewDial);
        EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetTicksColor(RGB(9, 8, 7)); }), Repaint::WithANewDial);
    }
    EXPECT_EQ(meter.Shown().NeedleColor(), RGB(1, 2, 3));
    EXPECT_EQ(meter.Shown().BackgroundColor(), RGB(4, 5, 6));
    EXPECT_EQ(meter.Shown().FaceColor(), RGB(7, 8, 9));
    EXPECT_EQ(meter.Shown().TicksColor(), RGB(9, 8, 7));
}

TEST(MeterRepaint, SetsItsTitleWithoutPainting) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetTitle(" Temperature " DEGREES_C); }), Repaint::Nothing);
    EXPECT_EQ(meter.GetWindowText(), " Temperature " DEGREES_C);
}

TEST(MeterRepaint, MakesANewDialWhenItIsResized) {
    const Stage stage;
    MeterSlot slot;
    CMeterWnd& meter = slot.Open(stage.window, kMeterRect, WS_CHILD | WS_VISIBLE);
    meter.SetBackColor(RGB(10, 20, 130));
    Settle(meter);
    EXPECT_EQ(RepaintAfter(meter,
                           [&] {
                               meter.MoveWindow(CRect{32, 64, 432, 364}, false);
                           }),
              Repaint::WithANewDial);
    const CRect client = meter.GetClientRect();
    EXPECT_EQ(ColourShown(meter, client.Width() - 2, client.Height() - 2), RGB(10, 20, 130));
    EXPECT_EQ(ColourShown(meter, client.Width() - 1, client.Height() - 1), RGB(0, 0, 0));
}

// Sends the command of a menu item and returns the repaint that it requests.
Repaint RepaintAfterCommand(CMeterWnd& meter, UINT command) {
    return RepaintAfter(meter, [&] { meter.SendMessage(WM_COMMAND, command); });
}

TEST(MeterRepaint, TogglesMarkersAndPeakWithoutPainting) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfterCommand(meter, 32776), Repaint::Nothing);
    EXPECT_FALSE(meter.Shown().ShowsMaxMarker());
    EXPECT_TRUE(meter.Shown().ShowsMinMarker());
    EXPECT_EQ(RepaintAfterCommand(meter, 32775), Repaint::Nothing);
    EXPECT_FALSE(meter.Shown().ShowsMinMarker());
    EXPECT_TRUE(meter.Shown().ShowsPeak());
    EXPECT_EQ(RepaintAfterCommand(meter, 32782), Repaint::Nothing);
    EXPECT_FALSE(meter.Shown().ShowsPeak());

    for (const UINT command : {32776U, 32775U, 32782U}) RepaintAfterCommand(meter, command);
    EXPECT_TRUE(meter.Shown().ShowsMaxMarker());
    EXPECT_TRUE(meter.Shown().ShowsMinMarker());
    EXPECT_TRUE(meter.Shown().ShowsPeak());
}

TEST(MeterRepaint, ResetsThePeakWithoutPainting) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    for (const double value : {20.0, 80.0, 50.0}) meter.SetValue(value);
    EXPECT_EQ(RepaintAfterCommand(meter, 32781), Repaint::Nothing);
    EXPECT_EQ(meter.Shown().MaxSeen(), 50);
    EXPECT_EQ(meter.Shown().MinSeen(), 20);
}

TEST(MeterRepaint, SwapsTheColoursOfFaceAndTicks) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    meter.SetFaceColor(RGB(1, 2, 3));
    meter.SetTicksColor(RGB(4, 5, 6));
    EXPECT_EQ(RepaintAfterCommand(meter, 32783), Repaint::WithANewDial);
    EXPECT_TRUE(meter.Shown().HasSwappedColors());
    EXPECT_EQ(meter.Shown().FaceColor(), 0xFFFFFFU);
    EXPECT_EQ(meter.Shown().TicksColor(), 0x000000U);
    EXPECT_EQ(RepaintAfterCommand(meter, 32783), Repaint::WithANewDial);
    EXPECT_FALSE(meter.Shown().HasSwappedColors());
    EXPECT_EQ(meter.Shown().FaceColor(), 0x000000U);
    EXPECT_EQ(meter.Shown().TicksColor(), 0xFFFFFFU);
}

}  // namespace
}  // namespace plotvane
