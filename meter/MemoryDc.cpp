#include "meter/MemoryDc.h"

#include <cstdlib>

namespace plotvane {
namespace {

bool IsPrinting(HDC dc) {
    return ::GetDeviceCaps(dc, TECHNOLOGY) != DT_RASDISPLAY;
}

}  // namespace

CMemoryDC::CMemoryDC(CDC& target, const RECT* rect)
    : CDC(target.GetSafeHdc()), m_target(target), m_rect(rect ? CRect{*rect} : target.GetClipBox()) {
    if (!IsPrinting(target)) UseOwnPicture();
    FillSolidRect(m_rect, target.GetBkColor());
}

CMemoryDC::CMemoryDC(CDC& target, const Picture& kept, std::span<const CRect> shown)
    : CDC(kept.Dc()), m_target(target), m_shown(shown) {}

CMemoryDC::~CMemoryDC() {
    for (const CRect& rect : m_shown)
        m_target.BitBlt(rect.left, rect.top, rect.Width(), rect.Height(), m_hDC, rect.left, rect.top,
                        SRCCOPY);
}

void CMemoryDC::UseOwnPicture() {
    CRect device = m_rect;
    const auto corners = reinterpret_cast<POINT*>(static_cast<RECT*>(&device));
    ::LPtoDP(m_target, corners, 2);
    // If the target's y axis points upwards, the rectangle is upside down.
    m_own.emplace(std::abs(device.Width()), std::abs(device.Height()));
    m_hDC = m_own->Dc();
    ::SetMapMode(m_hDC, ::GetMapMode(m_target));
    ::DPtoLP(m_target, corners, 2);
    m_rect = device;
    ::SetWindowOrgEx(m_hDC, m_rect.left, m_rect.top, nullptr);
    m_shown = {&m_rect, 1};
}

}  // namespace plotvane
