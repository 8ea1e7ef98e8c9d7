#include "model/RecordBuffer.h"

#include <algorithm>
#include <cstring>

namespace plotvane {

void RecordBuffer::Clear() {
    m_bytes.fill('\0');
}

std::string_view RecordBuffer::Text() const {
    return {m_bytes.data(), std::strlen(m_bytes.data())};
}

bool RecordBuffer::Append(std::string_view text) {
    const std::size_t length = Text().size();
    if (length + text.size() > kMaxTextLength) return false;
    std::copy(text.begin(), text.end(), m_bytes.begin() + static_cast<std::ptrdiff_t>(length));
    m_bytes[length + text.size()] = '\0';
    return true;
}

}  // namespace plotvane
