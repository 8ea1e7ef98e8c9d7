#include "meter/MemoryDc.h"

#include <cstdlib>

namespace plotvane {
namespace {

bool IsPrinting(HDC dc) {
    return ::GetDeviceCaps(dc, TECHNOLOGY) != DT_RASDISPLAY;
}

}  // namespace

CMemoryDC::CMemoryDC(CDC& target, const RECT* rect)
    : CDC(nullptr),
      m_target(target),
      m_rect(rect ? CRect{*rect} : target.GetClipBox()),
      m_offScreen(!IsPrinting(target)) {
    if (m_offScreen) {
        CreatePicture();
    } else {
        m_hDC = target;
    }
    FillSolidRect(m_rect, target.GetBkColor());
}

CMemoryDC::~CMemoryDC() {
    if (!m_offScreen) return;
    m_target.BitBlt(m_rect.left, m_rect.top, m_rect.Width(), m_rect.Height(), m_hDC, m_rect.left, m_rect.top,
                    SRCCOPY);
}

void CMemoryDC::CreatePicture() {
    m_dc = MemoryDc{::CreateCompatibleDC(m_target)};
    m_hDC = m_dc.Get();

    CRect device = m_rect;
    const auto corners = reinterpret_cast<POINT*>(static_cast<RECT*>(&device));
    ::LPtoDP(m_target, corners, 2);
    // A target whose y axis points upwards turns the rectangle over.
    m_bitmap =
        CBitmap{::CreateCompatibleBitmap(m_target, std::abs(device.Width()), std::abs(device.Height()))};
    m_bitmapInDc.emplace(m_hDC, m_bitmap);

    ::SetMapMode(m_hDC, ::GetMapMode(m_target));
    ::DPtoLP(m_target, corners, 2);
    m_rect = device;
    ::SetWindowOrgEx(m_hDC, m_rect.left, m_rect.top, nullptr);
}

}  // namespace plotvane
