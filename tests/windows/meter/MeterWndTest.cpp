#include "meter/MeterWnd.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <vector>

#include "framework/Gdi.h"
#include "res/resource.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::HasSomethingToPaint;
using test::kFieldMeterStyle;
using test::kHiddenMeterStyle;
using test::kMeterRect;
using test::MeterSlot;
using test::Settle;
using test::Stage;

// Device context, bitmap, font and region of the dial; device context and bitmap of the surface.
constexpr int kObjectsOfAMeter = 6;

// The colour on the screen at that place.
COLORREF Shown(const CMeterWnd& meter, int x, int y) {
    const CClientDC dc{meter.m_hWnd};
    return ::GetPixel(dc, x, y);
}

TEST(MeterWnd, IsAToolWindowWithATitle) {
    MeterSlot slot;
    const CMeterWnd& meter = slot.Open(nullptr, kMeterRect, kHiddenMeterStyle);
    const HWND window = meter.m_hWnd;
    EXPECT_EQ(meter.GetWindowText(), "Plotvane Meter");
    EXPECT_NE(::GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
    EXPECT_EQ(static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE)) & kFieldMeterStyle, kHiddenMeterStyle);
    EXPECT_EQ(::GetMenu(window), nullptr);  // an id would be taken for a menu
    EXPECT_EQ(meter.GetWindowRect().left, kMeterRect.left);
    EXPECT_EQ(meter.GetWindowRect().top, kMeterRect.top);
    EXPECT_EQ(meter.GetWindowRect().Width(), 200);
    EXPECT_EQ(meter.GetWindowRect().Height(), 200);
}

TEST(MeterWnd, HasAClassWithAnArrowAndWithoutABrush) {
    const wchar_t* const name = CMeterWnd::WindowClass();
    WNDCLASSEXW known{};
    known.cbSize = sizeof known;
    ASSERT_TRUE(::GetClassInfoExW(::GetModuleHandleW(nullptr), name, &known));
    EXPECT_EQ(known.hCursor, ::LoadCursorW(nullptr, IDC_ARROW));
    EXPECT_EQ(known.hbrBackground, nullptr);
    EXPECT_STREQ(CMeterWnd::WindowClass(), name);
}

TEST(MeterWnd, PaintsAtOnceWhenItIsCreated) {
    CMeterWnd* slot = nullptr;
    const int objects = LivingGdiObjects();
    slot = new CMeterWnd{&slot};
    EXPECT_EQ(LivingGdiObjects(), objects);
    ASSERT_TRUE(slot->Create(CMeterWnd::WindowClass(), kFieldMeterStyle, kMeterRect, nullptr));
    // No message was dispatched.
    EXPECT_FALSE(HasSomethingToPaint(*slot));
    EXPECT_EQ(LivingGdiObjects(), objects + kObjectsOfAMeter);
    slot->DestroyWindow();
    EXPECT_EQ(slot, nullptr);
}

TEST(MeterWnd, ShowsTheGauge) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    meter.SetBackColor(RGB(10, 20, 130));
    meter.SetFaceColor(RGB(40, 50, 60));
    Settle(meter);
    const CRect client = meter.GetClientRect();
    ASSERT_GT(client.Height(), 100);
    EXPECT_EQ(Shown(meter, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(Shown(meter, 2, client.Height() / 2), RGB(10, 20, 130));
    // Half way from the hub to the rim, at 0 degrees.
    const int radius = client.Height() / 3;
    EXPECT_EQ(Shown(meter, client.Width() / 2 + radius / 2, client.Height() / 2), RGB(40, 50, 60));
}

TEST(MeterWnd, ClearsTheOwnersVariableAndDeletesItselfWhenItIsClosed) {
    MeterSlot slot;
    const int objects = LivingGdiObjects();
    const HWND window = slot.Open().m_hWnd;
    ::SendMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(slot.meter, nullptr);
    EXPECT_FALSE(::IsWindow(window));
    EXPECT_EQ(CWnd::FromHandle(window), nullptr);
    EXPECT_EQ(LivingGdiObjects(), objects);
}

// Counts the calls of its destructor.
class CountedMeter : public CMeterWnd {
public:
    using CMeterWnd::CMeterWnd;
    ~CountedMeter() override { ++destroyed; }
    static inline int destroyed = 0;
};

TEST(MeterWnd, IsDestroyedOnce) {
    MeterSlot slot;
    CountedMeter::destroyed = 0;
    slot.Open<CountedMeter>().DestroyWindow();
    EXPECT_EQ(CountedMeter::destroyed, 1);
}

TEST(MeterWnd, IsDestroyedWithItsOwnerWindow) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                         ::GetModuleHandleW(nullptr), nullptr);
    MeterSlot first;
    MeterSlot second;
    CountedMeter::destroyed = 0;
    first.Open<CountedMeter>(owner);
    second.Open<CountedMeter>(owner);
    EXPECT_EQ(::GetWindow(first.meter->m_hWnd, GW_OWNER), owner);
    ::DestroyWindow(owner);
    EXPECT_EQ(first.meter, nullptr);
    EXPECT_EQ(second.meter, nullptr);
    EXPECT_EQ(CountedMeter::destroyed, 2);
}

TEST(MeterWnd, IsFreshWhenItIsOpenedAgain) {
    MeterSlot slot;
    CMeterWnd& first = slot.Open();
    first.SetRange(-10, 10);
    first.SetNeedleColor(RGB(1, 2, 3));
    first.SetValue(5);
    first.SendMessage(WM_COMMAND, ID_METER_MIN_MARKER);
    first.DestroyWindow();
    const Gauge& second = slot.Open().Shown();
    EXPECT_EQ(second.MaxValue(), 100);
    EXPECT_EQ(second.MinSeen(), 100);
    EXPECT_EQ(second.NeedleColor(), RGB(255, 0, 0));
    EXPECT_TRUE(second.ShowsMinMarker());
}

TEST(MeterWnd, StaysAnObjectWithoutAWindowWhenItCannotBeCreated) {
    MeterSlot bystander;
    CMeterWnd& other = bystander.Open();
    CMeterWnd* slot = nullptr;
    const std::unique_ptr<CMeterWnd> meter{new CMeterWnd{&slot}};
    slot = meter.get();
    EXPECT_FALSE(meter->Create(L"NoSuchClass", kFieldMeterStyle, kMeterRect, nullptr));
    EXPECT_EQ(slot, meter.get());
    EXPECT_EQ(meter->m_hWnd, nullptr);

    meter->SetValue(5);
    meter->SetRange(1, 2);
    meter->SetValueDecimals(1);
    meter->SetRangeDecimalsZero();
    meter->SetUnits("V");
    meter->SetTitle("title");
    meter->SetNeedleColor(1);
    meter->SetBackColor(2);
    meter->SetFaceColor(3);
    meter->SetTicksColor(4);
    EXPECT_EQ(meter->Shown().Value(), 5);
    // Invalidating a null window would invalidate every window on the screen.
    EXPECT_FALSE(HasSomethingToPaint(other));
}

// The client area as it is on the screen.
std::vector<std::uint32_t> PixelsOf(const CMeterWnd& meter) {
    const CRect client = meter.GetClientRect();
    const Picture picture(client.Width(), client.Height());
    const CClientDC window{meter.m_hWnd};
    CDC(picture.Dc()).BitBlt(0, 0, client.Width(), client.Height(), window, 0, 0, SRCCOPY);
    std::vector<std::uint32_t> pixels(picture.Pixels().begin(), picture.Pixels().end());
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
}

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
    CClientDC window{meter.m_hWnd};
    constexpr COLORREF kScribble = RGB(255, 0, 255);
    ::SetPixelV(window, 0, 0, kScribble);
    action();
    const bool dialIsKept = LivingGdiObjects() == objects;
    if (!HasSomethingToPaint(meter)) {
        EXPECT_TRUE(dialIsKept) << "the dial was discarded without a request to repaint";
        return ::GetPixel(window, 0, 0) == kScribble ? Repaint::Nothing : Repaint::WithTheDialKept;
    }
    EXPECT_TRUE(dialIsKept || LivingGdiObjects() == objects - kObjectsOfAMeter);
    CRect update;
    ::GetUpdateRect(meter.m_hWnd, &update, FALSE);
    EXPECT_EQ(update.Width(), meter.GetClientRect().Width());
    EXPECT_EQ(update.Height(), meter.GetClientRect().Height());
    Settle(meter);
    EXPECT_EQ(LivingGdiObjects(), objects);
    return dialIsKept ? Repaint::WithTheDialKept : Repaint::WithANewDial;
}

TEST(MeterWnd, RepaintsAValueOnTheKeptDial) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(50); }), Repaint::WithTheDialKept);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(50); }), Repaint::WithTheDialKept);
    EXPECT_EQ(meter.Shown().Value(), 50);
    EXPECT_EQ(RepaintAfter(meter, [&] { meter.SetValue(std::numeric_limits<double>::quiet_NaN()); }),
              Repaint::Nothing);
    EXPECT_EQ(meter.Shown().Value(), 50);
}

TEST(MeterWnd, ShowsAValueAtOnce) {
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

TEST(MeterWnd, LeavesAValueToAPendingPaint) {
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

TEST(MeterWnd, ShowsAValueAtItsCurrentSize) {
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

TEST(MeterWnd, MakesANewDialIfSomethingDiffers) {
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

TEST(MeterWnd, MakesANewDialForEveryColourAndForWholeLabels) {
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

TEST(MeterWnd, SetsItsTitleWithoutPainting) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    EXPECT_EQ(RepaintAfter(meter,
                           [&] {
                               meter.SetTitle(
                                   " Temperature \xB0"
                                   "C");
                           }),
              Repaint::Nothing);
    EXPECT_EQ(meter.GetWindowText(),
              " Temperature \xB0"
              "C");
}

TEST(MeterWnd, MakesANewDialWhenItIsResized) {
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
    EXPECT_EQ(Shown(meter, client.Width() - 2, client.Height() - 2), RGB(10, 20, 130));
    EXPECT_EQ(Shown(meter, client.Width() - 1, client.Height() - 1), RGB(0, 0, 0));
}

TEST(MeterWnd, SurvivesTheSmallestSize) {
    const Stage stage;
    MeterSlot slot;
    CMeterWnd& meter = slot.Open(stage.window, CRect{0, 0, 0, 0}, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(meter.GetClientRect().Height(), 0);
    meter.SetRange(0, 1);
    meter.SetValue(0.5);
    for (int size = 1; size < 12; ++size) {
        meter.MoveWindow(CRect{0, 0, size, size});
        Settle(meter);
    }
    EXPECT_EQ(meter.GetClientRect().Height(), 11);
}

// Sends the command of a menu item and returns the repaint that it requests.
Repaint RepaintAfterCommand(CMeterWnd& meter, UINT command) {
    return RepaintAfter(meter, [&] { meter.SendMessage(WM_COMMAND, command); });
}

TEST(MeterWnd, TogglesMarkersAndPeakWithoutPainting) {
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

TEST(MeterWnd, ResetsThePeakWithoutPainting) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    for (const double value : {20.0, 80.0, 50.0}) meter.SetValue(value);
    EXPECT_EQ(RepaintAfterCommand(meter, 32781), Repaint::Nothing);
    EXPECT_EQ(meter.Shown().MaxSeen(), 50);
    EXPECT_EQ(meter.Shown().MinSeen(), 20);
}

TEST(MeterWnd, SwapsTheColoursOfFaceAndTicks) {
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

// Shows a meter, with its dial painted, and closes it again.
void OpenAndClose(DWORD style, HWND parent) {
    const int objects = LivingGdiObjects();
    CMeterWnd* slot = nullptr;
    slot = new CMeterWnd{&slot};
    ASSERT_TRUE(slot->Create(CMeterWnd::WindowClass(), style | WS_VISIBLE, kMeterRect, parent));
    ASSERT_EQ(LivingGdiObjects(), objects + kObjectsOfAMeter);
    slot->SetValue(1);
    slot->SendMessage(WM_CLOSE);
    ASSERT_EQ(slot, nullptr);
    ASSERT_EQ(LivingGdiObjects(), objects);
}

TEST(MeterWnd, OpensAndClosesAThousandTimesWithoutALeak) {
    const Stage stage;  // on a stage the display takes a twentieth of the time
    for (int i = 0; i < 1000 && !HasFatalFailure(); ++i) OpenAndClose(WS_CHILD, stage.window);
}

TEST(MeterWnd, OpensAndClosesAsAFieldMeterWithoutALeak) {
    for (int i = 0; i < 50 && !HasFatalFailure(); ++i) OpenAndClose(kFieldMeterStyle, nullptr);
}

TEST(MeterWnd, ChangesRangeAndColoursAThousandTimesWithoutALeak) {
    MeterSlot slot;
    CMeterWnd& meter = slot.Open();
    const int objects = LivingGdiObjects();
    for (int i = 0; i < 1000; ++i) {
        meter.SetRange(0, 101 + i);
        meter.SetNeedleColor(RGB(i % 256, 0, 0));
        meter.SetBackColor(RGB(0, i % 256, 0));
        meter.SetFaceColor(RGB(0, 0, i % 256));
        meter.SetTicksColor(RGB(i % 256, i % 256, 0));
        meter.UpdateWindow();
        ASSERT_EQ(LivingGdiObjects(), objects) << i;
    }
}

}  // namespace
}  // namespace plotvane
