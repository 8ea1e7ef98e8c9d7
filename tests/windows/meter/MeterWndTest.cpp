#include "meter/MeterWnd.h"

#include <gtest/gtest.h>

#include <memory>

#include "framework/Gdi.h"
#include "res/resource.h"
#include "tests/windows/meter/TestMeter.h"

namespace plotvane {
namespace {

using test::ColourShown;
using test::HasSomethingToPaint;
using test::kFieldMeterStyle;
using test::kHiddenMeterStyle;
using test::kMeterRect;
using test::kObjectsOfAMeter;
using test::MeterSlot;
using test::Settle;
using test::Stage;

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
    EXPECT_EQ(ColourShown(meter, 0, 0), RGB(0, 0, 0));
    EXPECT_EQ(ColourShown(meter, 2, client.Height() / 2), RGB(10, 20, 130));
    // Half way from the hub to the rim, at 0 degrees.
    const int radius = client.Height() / 3;
    EXPECT_EQ(ColourShown(meter, client.Width() / 2 + radius / 2, client.Height() / 2), RGB(40, 50, 60));
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
