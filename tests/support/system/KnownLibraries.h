#pragma once

#include <set>
#include <string>

namespace plotvane::test {

// The libraries that Windows 10 and 11 always take from their own folder, in lower case: those of the list
// HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\KnownDLLs.
const std::set<std::string>& KnownLibraries();

// The same, with the libraries that these import, which the list implies, and with those that Windows loads
// by their full paths. Reads the system that the tests run on.
std::set<std::string> GuardedLibraries();

// Everything in the system's folder that a program can load, in lower case.
std::set<std::string> SystemLibraries();

inline const std::string kCommonControls = "comctl32.dll";

}  // namespace plotvane::test
