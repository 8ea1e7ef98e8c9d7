#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <utility>

// What makes a handle go away again. A pen, brush, font, bitmap or region must not be selected into a device
// context when its owner dies: keep the `Selected` in a narrower scope than the owner.
inline void ReleaseGdi(HGDIOBJ object) {
    ::DeleteObject(object);
}
inline void ReleaseGdi(HDC memoryDc) {
    ::DeleteDC(memoryDc);
}

// Owns one GDI object, or none. Takes over whatever a Create... call returned; a failed call leaves it empty,
// which GDI's own functions take without harm.
template <typename Handle>
class GdiOwner {
public:
    GdiOwner() = default;
    explicit GdiOwner(Handle handle) : m_handle(handle) {
        if (m_handle) ++s_living;
    }
    ~GdiOwner() { Reset(); }
    GdiOwner(GdiOwner&& other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    GdiOwner& operator=(GdiOwner&& other) noexcept {
        if (this != &other) {
            Reset();
            m_handle = std::exchange(other.m_handle, nullptr);
        }
        return *this;
    }

    void Reset() {
        if (!m_handle) return;
        ReleaseGdi(std::exchange(m_handle, nullptr));
        --s_living;
    }

    Handle Get() const { return m_handle; }
    explicit operator bool() const { return m_handle != nullptr; }

    // How many objects of this type are owned now, in the whole process.
    static int Living() { return s_living; }

private:
    Handle m_handle = nullptr;
    static inline int s_living = 0;
};

using CPen = GdiOwner<HPEN>;
using CBrush = GdiOwner<HBRUSH>;
using CFont = GdiOwner<HFONT>;
using CBitmap = GdiOwner<HBITMAP>;
using CRgn = GdiOwner<HRGN>;
using MemoryDc = GdiOwner<HDC>;

// All GDI objects owned now. The system's own counter is no help in finding leaks: under Wine it answers 0.
inline int LivingGdiObjects() {
    return CPen::Living() + CBrush::Living() + CFont::Living() + CBitmap::Living() + CRgn::Living() +
           MemoryDc::Living();
}

// In the device context for as long as this object lives; then what was there before is back.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : m_dc(dc), m_previous(::SelectObject(dc, object)) {}
    template <typename Handle>
    Selected(HDC dc, const GdiOwner<Handle>& owner) : Selected(dc, static_cast<HGDIOBJ>(owner.Get())) {}
    ~Selected() {
        if (m_previous) ::SelectObject(m_dc, m_previous);
    }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_previous;
};

// An off-screen picture that GDI draws on and that can be read and written as plain pixels too: row by row
// from the top, each 0x00RRGGBB (not the order of COLORREF). Starts all zero. A picture that could not be
// made (no width, no height, no memory) has no device context and no pixels; drawing on it does nothing.
class Picture {
public:
    Picture(int width, int height);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    explicit operator bool() const { return m_pixels != nullptr; }
    HDC Dc() const { return m_pixels ? m_dc.Get() : nullptr; }
    int Width() const { return m_pixels ? m_width : 0; }
    int Height() const { return m_pixels ? m_height : 0; }

    // Everything drawn so far is in there. Ask again after drawing on.
    std::span<std::uint32_t> Pixels() const;

private:
    static HBITMAP CreateBitmap(int width, int height, std::uint32_t** pixels);

    int m_width;
    int m_height;
    std::uint32_t* m_pixels = nullptr;
    // In this order, so that the bitmap is out of the device context before either goes.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    Selected m_bitmapInDc;
};
