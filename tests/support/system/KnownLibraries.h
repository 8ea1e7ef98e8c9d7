#pragma once

#include <set>
#include <string>

namespace plotvane::test {

// The libraries that Windows 10 and 11 take from their own folder wherever a program lies, in lower case:
// those of the list HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\KnownDLLs.
const std::set<std::string>& KnownLibraries();

// The same with all that they import themselves, which the list implies, and with what Windows loads by its
// full path. Read from the system that the tests run on.
std::set<std::string> GuardedLibraries();

// Of the system's folder: everything that a program can load, in lower case.
std::set<std::string> SystemLibraries();

inline const std::string kCommonControls = "comctl32.dll";

}  // namespace plotvane::test
