#pragma once

#include <windows.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "meter/MeterWnd.h"

namespace plotvane::test {

// The style of the meters that belong to a field.
constexpr DWORD kFieldMeterStyle = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME;
constexpr CRect kMeterRect{32, 64, 232, 264};

// The same, but not shown. For tests that the display would disturb: it moves windows and takes the focus
// from them (and so closes their menus) at its own time.
constexpr DWORD kHiddenMeterStyle = kFieldMeterStyle & ~static_cast<DWORD>(WS_VISIBLE);

// Device context, bitmap, font and region of the dial; device context and bitmap of the surface.
constexpr int kObjectsOfAMeter = 6;

// A window to hold meters; the display does not move, size or map the windows inside it.
class Stage {
public:
    Stage();
    ~Stage() { ::DestroyWindow(window); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    HWND window;
};

// An owner's variable with a meter in it, as the main dialog has them. The destructor destroys the meter if
// it is still open.
class MeterSlot {
public:
    MeterSlot() = default;
    ~MeterSlot();
    MeterSlot(const MeterSlot&) = delete;
    MeterSlot& operator=(const MeterSlot&) = delete;

    // Creates a meter of this class (CMeterWnd or one that a test derives), shows and paints it; fails the
    // test if that does not work.
    template <typename Meter = CMeterWnd>
    Meter& Open(HWND owner = nullptr, const RECT& rect = kMeterRect, DWORD style = kFieldMeterStyle) {
        auto* made = new Meter{&meter};
        meter = made;
        Show(owner, rect, style);
        return *made;
    }

    CMeterWnd* meter = nullptr;

private:
    void Show(HWND owner, const RECT& rect, DWORD style);
};

// A meter whose memory is kept after its destruction, so that a test can see whether anything writes to it
// later. Only one at a time.
class BuriedMeter : public CMeterWnd {
public:
    using CMeterWnd::CMeterWnd;

    static void* operator new(std::size_t size);
    static void operator delete(void* memory);

    // False while the last meter exists, and if its memory has been written to since its destruction.
    static bool RestsUntouched() { return s_isDead && s_memory == s_atDeath; }

private:
    using Memory = std::array<std::byte, sizeof(CMeterWnd)>;
    alignas(CMeterWnd) static inline Memory s_memory;
    static inline Memory s_atDeath;
    static inline bool s_isDead = false;
};

// The longest time that a test waits for anything: five seconds from the construction.
class Deadline {
public:
    bool HasPassed() const { return std::chrono::steady_clock::now() > m_end; }

private:
    std::chrono::steady_clock::time_point m_end = std::chrono::steady_clock::now() + std::chrono::seconds{5};
};

// Dispatches messages until the condition holds. False if it does not hold within the deadline.
bool DispatchUntil(const std::function<bool()>& holds);

// Dispatches the messages in the queue; after that the window has nothing left to paint.
void Settle(CMeterWnd& meter);

bool HasSomethingToPaint(const CMeterWnd& meter);

// The client area as it is on the screen: row by row from the top, each pixel 0x00RRGGBB.
std::vector<std::uint32_t> PixelsOf(const CMeterWnd& meter);

// Covers the client area with a colour that no meter has, and returns its pixels.
std::vector<std::uint32_t> Scribble(CMeterWnd& meter);

// The colour on the screen at a place of the client area.
COLORREF ColourShown(const CMeterWnd& meter, int x, int y);

// While a ticker exists, `run` is called every few milliseconds, even inside the message loops of menus and
// dialogs.
class Ticker {
public:
    explicit Ticker(std::function<void()> run);
    ~Ticker();
    Ticker(const Ticker&) = delete;
    Ticker& operator=(const Ticker&) = delete;

private:
    static void CALLBACK OnTick(HWND, UINT, UINT_PTR id, DWORD);

    const std::function<void()> m_run;
    UINT_PTR m_timer;
};

}  // namespace plotvane::test
