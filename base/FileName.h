#pragma once

#include <filesystem>
#include <string_view>

namespace plotvane {

// The path whose characters are the text's, taken as Windows-1252. The standard library alone would take a
// narrow text for UTF-8 and refuse a module name with an umlaut.
std::filesystem::path PathFromText(std::string_view windows1252);

// Whether Windows would open a device in place of a file of that name ("nul", "COM1.LBL"), in any folder.
// A name with a folder in front of it is not looked into.
bool IsDeviceName(std::string_view fileName);

// The same for the last name of a path, which may hold any characters.
bool NamesDevice(const std::filesystem::path& path);

// Whether the text, which came from a host or a log, names a plain file inside the folder it is put behind:
// it is not empty, holds no separator, wildcard or control byte, does not end in a dot or a blank (Windows
// cuts them off and so opens another file), and is no device.
bool IsSafeFileName(std::string_view fileName);

}  // namespace plotvane
