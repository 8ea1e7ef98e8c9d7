#pragma once

#include <gtest/gtest.h>

#include "tests/support/system/AnswerWatch.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {

// Ends the watch. Success if all its answers came in time; the failure message says how late they were.
::testing::AssertionResult AnsweredPromptly(AnswerWatch& watch);

// Success if the window answers in time for as long as `during`.
::testing::AssertionResult KeepsAnswering(const RemoteWindow& window,
                                          std::chrono::milliseconds during = std::chrono::seconds(1));

// Call it after asking the program to close. Success if the program ends within a second and with exit code
// 0. On a busy machine it may take longer, by the same factor as an answer.
::testing::AssertionResult EndsPromptly(const Session& session);

// The same, after closing the main window.
::testing::AssertionResult ClosesPromptly(const Session& session);

}  // namespace plotvane::test
