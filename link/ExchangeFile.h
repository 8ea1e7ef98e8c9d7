#pragma once

#include <filesystem>
#include <optional>

namespace plotvane {

// The file in which the host announces its pipe: one line with the decimal number of an inherited C-runtime
// descriptor, the read end. Lies in the current folder and is deleted when the program closes.
constexpr const char* kExchangeFileName = "MB-PIPE.TXT";

constexpr int kNoDescriptor = -1;

// The descriptor from the first line, of which at most 9 characters count; kNoDescriptor if they hold no
// number. Nothing if the file cannot be read.
std::optional<int> ReadExchangeFile(const std::filesystem::path& path);

}  // namespace plotvane
