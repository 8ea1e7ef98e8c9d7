#include <algorithm>
#include <string>

#include "base/TextInput.h"
#include "fuzz/Inputs.h"
#include "fuzz/Targets.h"
#include "link/ExchangeFile.h"
#include "tests/support/Promise.h"
#include "tests/support/ScratchFolder.h"

namespace plotvane::fuzz {

using test::Require;
using test::ScratchFile;

namespace {

std::string ReadThrough(const std::filesystem::path& path) {
    TextInput input(path);
    std::string text;
    while (input.Peek() != TextInput::kEnd) text += static_cast<char>(input.Get());
    Require(input.Get() == TextInput::kEnd, "a text that has ended stays so");
    return text;
}

// The number at the start of a line of at most nine characters, which cannot overflow.
int DescriptorOf(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t\v\f\r"), line.size()));
    const bool negative = line.starts_with('-');
    if (negative || line.starts_with('+')) line.remove_prefix(1);
    if (line.empty() || line.front() < '0' || line.front() > '9') return kNoDescriptor;
    int number = 0;
    for (const char c : line) {
        if (c < '0' || c > '9') break;
        number = number * 10 + (c - '0');
    }
    return negative ? -number : number;
}

}  // namespace

int FuzzExchange(Bytes input) {
    const std::string_view bytes = AsText(input);
    const ScratchFile file("MB-PIPE.TXT", bytes);
    const std::string text = TextOfFile(bytes);
    Require(ReadThrough(file.Path()) == text, "a text file reads as its bytes say");

    constexpr std::size_t kMaxLineLength = 9;
    const auto line = std::string_view(text).substr(0, std::min(text.find('\n'), kMaxLineLength));
    const auto descriptor = ReadExchangeFile(file.Path());
    Require(descriptor.has_value(), "an existing file is read");
    Require(*descriptor == DescriptorOf(line), "the descriptor is in the first nine characters");
    return 0;
}

}  // namespace plotvane::fuzz
