#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/system/support/RemoteWindow.h"

namespace plotvane::test {

// The meter windows that the program of that main window has open.
std::vector<RemoteWindow> OpenMeters(const RemoteWindow& main);

// Their titles.
std::multiset<std::wstring> MeterTitles(const RemoteWindow& main);

// Asks the main window for a menu at the middle of one of its controls, as a right click there does; answers
// when that is done.
void RightClick(const RemoteWindow& main, int control);

// Which half of a meter shows more of its needle: -1 left, 1 right, 0 neither.
int SideOfNeedle(const RemoteWindow& meter, COLORREF needle);

}  // namespace plotvane::test
