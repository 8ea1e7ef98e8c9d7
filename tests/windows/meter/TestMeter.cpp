#include "tests/windows/meter/TestMeter.h"

#include <gtest/gtest.h>

#include <new>
#include <unordered_map>
#include <utility>

#include "framework/Dc.h"
#include "framework/Gdi.h"

namespace plotvane::test {
namespace {

std::unordered_map<UINT_PTR, Ticker*>& Tickers() {
    static std::unordered_map<UINT_PTR, Ticker*> tickers;
    return tickers;
}

void DispatchQueued() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

}  // namespace

Stage::Stage()
    : window(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 500, 500, nullptr, nullptr,
                               ::GetModuleHandleW(nullptr), nullptr)) {}

MeterSlot::~MeterSlot() {
    if (meter) meter->DestroyWindow();
}

void MeterSlot::Show(HWND owner, const RECT& rect, DWORD style) {
    ASSERT_TRUE(meter->Create(CMeterWnd::WindowClass(), style, rect, owner));
    Settle(*meter);
}

void* BuriedMeter::operator new(std::size_t size) {
    if (size > s_memory.size()) throw std::bad_alloc{};
    s_isDead = false;
    return s_memory.data();
}

void BuriedMeter::operator delete(void*) {
    s_atDeath = s_memory;
    s_isDead = true;
}

bool DispatchUntil(const std::function<bool()>& holds) {
    const Deadline deadline;
    for (;;) {
        DispatchQueued();
        if (holds()) return true;
        if (deadline.HasPassed()) return false;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

void Settle(CMeterWnd& meter) {
    DispatchQueued();
    meter.UpdateWindow();
    ASSERT_FALSE(HasSomethingToPaint(meter));
}

bool HasSomethingToPaint(const CMeterWnd& meter) {
    return ::GetUpdateRect(meter.m_hWnd, nullptr, FALSE) != 0;
}

std::vector<std::uint32_t> PixelsOf(const CMeterWnd& meter) {
    const CRect client = meter.GetClientRect();
    const Picture picture(client.Width(), client.Height());
    const CClientDC window{meter.m_hWnd};
    CDC(picture.Dc()).BitBlt(0, 0, client.Width(), client.Height(), window, 0, 0, SRCCOPY);
    std::vector<std::uint32_t> pixels(picture.Pixels().begin(), picture.Pixels().end());
    for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
    return pixels;
}

std::vector<std::uint32_t> Scribble(CMeterWnd& meter) {
    CClientDC(meter.m_hWnd).FillSolidRect(meter.GetClientRect(), RGB(255, 0, 255));
    return PixelsOf(meter);
}

COLORREF ColourShown(const CMeterWnd& meter, int x, int y) {
    const CClientDC dc{meter.m_hWnd};
    return ::GetPixel(dc, x, y);
}

Ticker::Ticker(std::function<void()> run)
    : m_run(std::move(run)), m_timer(::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &OnTick)) {
    Tickers()[m_timer] = this;
}

Ticker::~Ticker() {
    ::KillTimer(nullptr, m_timer);
    Tickers().erase(m_timer);
}

void CALLBACK Ticker::OnTick(HWND, UINT, UINT_PTR id, DWORD) {
    const auto found = Tickers().find(id);
    if (found != Tickers().end()) found->second->m_run();
}

}  // namespace plotvane::test
