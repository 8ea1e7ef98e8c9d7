#pragma once

#include <filesystem>
#include <string_view>

namespace plotvane {

// The path with the characters of the text, which is Windows-1252. The standard library would take the text
// for UTF-8 and refuse a module name with an umlaut.
std::filesystem::path PathFromText(std::string_view windows1252);

// Whether Windows would open a device instead of a file of that name ("nul", "COM1.LBL"), in any folder. The
// name must not have a folder before it.
bool IsDeviceName(std::string_view fileName);

// The same for the last name of a path, which may contain any characters.
bool NamesDevice(const std::filesystem::path& path);

// Whether the text, which came from a host or a log, is safe as the name of a plain file in a known folder:
// it is not empty, contains no separator, wildcard or control byte, does not end in a dot or a blank (Windows
// cuts them off and so opens another file), and is not a device.
bool IsSafeFileName(std::string_view fileName);

}  // namespace plotvane
