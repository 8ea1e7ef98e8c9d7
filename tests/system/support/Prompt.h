#pragma once

#include <gtest/gtest.h>

#include "tests/system/support/AnswerWatch.h"
#include "tests/system/support/Session.h"

namespace plotvane::test {

// Whether all answers of the watch, which it ends, came in time. Says in the failure how late they were.
::testing::AssertionResult AnsweredPromptly(AnswerWatch& watch);

// Watches the window for that long: whether it answers all the while.
::testing::AssertionResult KeepsAnswering(const RemoteWindow& window,
                                          std::chrono::milliseconds during = std::chrono::seconds(1));

// Whether the program, which something asked to close just now, ends within a second and in good order. As
// with answers, that is a second of a machine that has time for it.
::testing::AssertionResult EndsPromptly(const Session& session);

// Closes the main window first.
::testing::AssertionResult ClosesPromptly(const Session& session);

}  // namespace plotvane::test
