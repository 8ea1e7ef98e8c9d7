#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <utility>

// Deletes what a handle stands for. A pen, brush, font, bitmap or region must not be selected into a device
// context when its owner is destroyed: keep the `Selected` in a narrower scope than the owner.
inline void ReleaseGdi(HGDIOBJ object) {
    ::DeleteObject(object);
}
inline void ReleaseGdi(HDC memoryDc) {
    ::DeleteDC(memoryDc);
}
inline void ReleaseGdi(HICON icon) {
    ::DestroyIcon(icon);
}

// Owns one GDI object, or none. Takes what a Create... call returned. After a failed call it is empty, and
// GDI's functions accept its null handle without harm.
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

    // How many objects of this type the whole process owns now.
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
using CIcon = GdiOwner<HICON>;

// All GDI objects owned now. Tests find leaks with it, because the system's own counter always answers 0
// under Wine.
inline int LivingGdiObjects() {
    return CPen::Living() + CBrush::Living() + CFont::Living() + CBitmap::Living() + CRgn::Living() +
           MemoryDc::Living() + CIcon::Living();
}

// The picture of the program's icon that fits a size best, in that size. Each call makes an icon of its own:
// one that is shared has the size in which it was first asked for. Empty if there is no icon with that id.
CIcon LoadIconOf(int id, int width, int height);

// Selects an object into a device context. The destructor selects what was there before.
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

// An off-screen picture. GDI draws on it, and its pixels can be read and written: row by row from the top,
// each 0x00RRGGBB (not the order of COLORREF). It starts all zero. A picture that could not be made (no
// width, no height, no memory) has no device context and no pixels; drawing on it does nothing.
class Picture {
public:
    Picture(int width, int height);
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    explicit operator bool() const { return m_pixels != nullptr; }
    HDC Dc() const { return m_pixels ? m_dc.Get() : nullptr; }
    int Width() const { return m_pixels ? m_width : 0; }
    int Height() const { return m_pixels ? m_height : 0; }

    // The pixels as drawn so far. Call again after drawing with GDI.
    std::span<std::uint32_t> Pixels() const;

private:
    static HBITMAP CreateBitmap(int width, int height, std::uint32_t** pixels);

    int m_width;
    int m_height;
    std::uint32_t* m_pixels = nullptr;
    // In this order, so that the bitmap leaves the device context before either is destroyed.
    MemoryDc m_dc;
    CBitmap m_bitmap;
    Selected m_bitmapInDc;
};
