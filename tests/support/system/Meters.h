#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// The open meter windows of the program with that main window.
std::vector<RemoteWindow> OpenMeters(const RemoteWindow& main);

// Their titles.
std::multiset<std::wstring> MeterTitles(const RemoteWindow& main);

// Asks the main window for a menu at the middle of one of its controls, as a right click there does. Returns
// when the window has handled that.
void RightClick(const RemoteWindow& main, int control);

// The half of a meter that shows more of its needle: -1 left, 1 right, 0 neither.
int SideOfNeedle(const RemoteWindow& meter, COLORREF needle);

}  // namespace plotvane::test
