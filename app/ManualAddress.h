#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plotvane {

// A file's address for a browser, with a page of it as its last part. `path` is a full path of Windows, in
// UTF-8: "C:\a b\x.html" and "keys" give "file:///C:/a%20b/x.html#keys".
std::string AddressOf(std::string_view path, std::string_view page);

// The command line that opens an address in the program that `registered` belongs to, which is how Windows
// notes the program for a kind of file: "C:\browser.exe" -url "%1". Nothing if the line does not name a
// program in full, or has no place for the address.
std::optional<std::wstring> CommandFor(std::wstring_view registered, std::wstring_view address);

}  // namespace plotvane
