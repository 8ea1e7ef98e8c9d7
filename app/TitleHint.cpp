#include "app/TitleHint.h"

namespace plotvane {

std::string TitleHint(int length, std::string_view text) {
    return "<=" + std::string(static_cast<std::size_t>(length), '=').append(text);
}

}  // namespace plotvane
