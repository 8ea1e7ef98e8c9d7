#include "tools/drives/TextLine.h"

namespace plotvane {

bool ReadTextLine(TextInput& input, std::string& line, std::size_t longest) {
    line.clear();
    int c = input.Get();
    if (c == TextInput::kEnd) return false;
    for (; c != TextInput::kEnd && c != '\n'; c = input.Get()) {
        if (line.size() < longest) line += static_cast<char>(c);
    }
    return true;
}

}  // namespace plotvane
