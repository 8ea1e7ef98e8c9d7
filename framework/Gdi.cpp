#include "framework/Gdi.h"

CIcon LoadIconOf(int id, int width, int height) {
    return CIcon(static_cast<HICON>(
        ::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), IMAGE_ICON, width, height, 0)));
}

Picture::Picture(int width, int height)
    : m_width(width),
      m_height(height),
      m_dc(width > 0 && height > 0 ? ::CreateCompatibleDC(nullptr) : nullptr),
      m_bitmap(m_dc ? CreateBitmap(width, height, &m_pixels) : nullptr),
      m_bitmapInDc(m_dc.Get(), m_bitmap) {}

std::span<std::uint32_t> Picture::Pixels() const {
    if (!m_pixels) return {};
    ::GdiFlush();
    return {m_pixels, static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height)};
}

HBITMAP Picture::CreateBitmap(int width, int height, std::uint32_t** pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // negative: the first row is the top one
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    *pixels = bitmap ? static_cast<std::uint32_t*>(bits) : nullptr;
    return bitmap;
}
