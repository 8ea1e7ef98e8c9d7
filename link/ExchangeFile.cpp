#include "link/ExchangeFile.h"

#include <string>

#include "base/Numbers.h"
#include "base/TextInput.h"

namespace plotvane {

std::optional<int> ReadExchangeFile(const std::filesystem::path& path) {
    constexpr std::size_t kMaxLineLength = 9;
    TextInput input(path);
    if (!input.IsOpen()) return std::nullopt;
    std::string line;
    for (int c = input.Get(); c != TextInput::kEnd && c != '\n' && line.size() < kMaxLineLength;
         c = input.Get()) {
        line += static_cast<char>(c);
    }
    if (input.HasFailed()) return std::nullopt;
    return TryParseDecimal(line).value_or(kNoDescriptor);
}

}  // namespace plotvane
