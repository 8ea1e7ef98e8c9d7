#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/support/system/RemoteWindow.h"

namespace plotvane::test {

// A double click of the real mouse in the middle of the chart.
void DoubleClickChart(const RemoteWindow& main);

// The window of the program that looks back; an empty one if there is none.
RemoteWindow FindHistory(const RemoteWindow& main);

// The same, waited for.
RemoteWindow OpenedHistory(const RemoteWindow& main);

// Opens it by a double click, and waits for it.
RemoteWindow OpenHistory(const RemoteWindow& main);

// Puts the window in front and waits until keys go to it: the window manager moves the focus in its own time.
::testing::AssertionResult GiveKeyboard(const RemoteWindow& history);

// Presses Ctrl+Shift+C in the window and returns the table that it puts on the clipboard.
std::wstring TableOf(const RemoteWindow& history);

}  // namespace plotvane::test
