#include "app/DoubleClick.h"

#include <cstdlib>

namespace plotvane {

bool DoubleClick::TakePress(std::uint64_t ms, int x, int y, const Limits& limits) {
    const bool isSecond = m_first && ms - m_first->ms <= limits.ms &&
                          std::abs(x - m_first->x) <= limits.xPx && std::abs(y - m_first->y) <= limits.yPx;
    m_first.reset();
    if (!isSecond) m_first = Press{ms, x, y};
    return isSecond;
}

}  // namespace plotvane
