#include "meter/MemoryDc.h"

#include <cstdlib>

namespace plotvane {
namespace {

bool IsPrinting(HDC dc) {
    return ::GetDeviceCaps(dc, TECHNOLOGY) != DT_RASDISPLAY;
}

}  // namespace

HDC MemorySurface::Fit(HDC like, int width, int height) {
    if (m_bitmap && width == m_width && height == m_height) return m_dc.Get();
    Release();
    m_width = width;
    m_height = height;
    m_dc = MemoryDc{::CreateCompatibleDC(like)};
    m_bitmap = CBitmap{::CreateCompatibleBitmap(like, width, height)};
    m_bitmapInDc.emplace(m_dc.Get(), m_bitmap);
    return m_dc.Get();
}

void MemorySurface::KeepFont(const CFont& font) {
    if (m_dc && !m_fontInDc) m_fontInDc.emplace(m_dc.Get(), font);
}

void MemorySurface::Release() {
    m_fontInDc.reset();
    m_bitmapInDc.reset();
    m_bitmap.Reset();
    m_dc.Reset();
}

CMemoryDC::CMemoryDC(CDC& target, const RECT* rect)
    : CDC(nullptr),
      m_target(target),
      m_rect(rect ? CRect{*rect} : target.GetClipBox()),
      m_offScreen(!IsPrinting(target)) {
    Begin(m_own);
    FillSolidRect(m_rect, target.GetBkColor());
}

CMemoryDC::CMemoryDC(CDC& target, const RECT& rect, MemorySurface& surface)
    : CDC(nullptr), m_target(target), m_rect(rect), m_offScreen(!IsPrinting(target)) {
    Begin(surface);
}

CMemoryDC::~CMemoryDC() {
    if (!m_offScreen) return;
    m_target.BitBlt(m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), m_hDC, m_rect.left, m_rect.top,
                    SRCCOPY);
}

void CMemoryDC::Begin(MemorySurface& surface) {
    if (!m_offScreen) {
        m_hDC = m_target;
        return;
    }
    CRect device = m_rect;
    const auto corners = reinterpret_cast<POINT*>(static_cast<RECT*>(&device));
    ::LPtoDP(m_target, corners, 2);
    // If the target's y axis points upwards, the rectangle is upside down.
    m_hDC = surface.Fit(m_target, std::abs(device.Width()), std::abs(device.Height()));
    ::SetMapMode(m_hDC, ::GetMapMode(m_target));
    ::DPtoLP(m_target, corners, 2);
    m_rect = device;
    ::SetWindowOrgEx(m_hDC, m_rect.left, m_rect.top, nullptr);
}

}  // namespace plotvane
