#include "scaling/ScalingTokens.h"

#include <optional>
#include <string_view>

#include "base/Numbers.h"
#include "scaling/FieldScaling.h"

namespace plotvane {
namespace {

// Longer numbers do not fit an int.
constexpr std::size_t kMaxNumberLength = 64;

bool IsWhiteSpace(int character) {
    return std::string_view(" \t\n\v\f\r").find(static_cast<char>(character)) != std::string_view::npos;
}

std::optional<std::string> ReadNumberText(TextInput& input) {
    std::string text;
    for (int c = input.Get(); c != ','; c = input.Get()) {
        if (c == TextInput::kEnd) return std::nullopt;
        const bool isLeadingSpace = text.empty() && IsWhiteSpace(c);
        if (!isLeadingSpace && text.size() < kMaxNumberLength) text += static_cast<char>(c);
    }
    return text;
}

}  // namespace

std::string ReadTextToken(TextInput& input) {
    std::string text;
    while (true) {
        int c = input.Get();
        if (c == '\n') c = input.Get();
        if (c == TextInput::kEnd) return kEndText;
        if (c == ',') return text;
        if (text.size() < kMaxUnitLength) text += static_cast<char>(c);
    }
}

int ReadIntToken(TextInput& input) {
    const auto text = ReadNumberText(input);
    return text ? ParseDecimal(*text) : kEndMarker;
}

int ReadHexToken(TextInput& input) {
    const auto text = ReadNumberText(input);
    return text ? static_cast<int>(ParseHex(*text).value_or(0)) : kEndMarker;
}

}  // namespace plotvane
