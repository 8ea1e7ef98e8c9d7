#include "tests/support/system/Keyboard.h"

#include <vector>

#include "tests/support/system/Await.h"

namespace plotvane::test {

namespace {

bool IsExtended(WORD code) {
    return code >= VK_PRIOR && code <= VK_DOWN;
}

INPUT Stroke(WORD code, bool isUp) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = code;
    input.ki.dwFlags = (IsExtended(code) ? KEYEVENTF_EXTENDEDKEY : 0U) | (isUp ? KEYEVENTF_KEYUP : 0U);
    return input;
}

}  // namespace

::testing::AssertionResult BringToFront(const RemoteWindow& window) {
    return Becomes(
        [&] {
            if (::GetForegroundWindow() != window.Get()) ::SetForegroundWindow(window.Get());
            return ::GetForegroundWindow();
        },
        window.Get());
}

void PressKey(Key key, int timesDown) {
    std::vector<INPUT> strokes;
    if (key.control) strokes.push_back(Stroke(VK_CONTROL, false));
    if (key.shift) strokes.push_back(Stroke(VK_SHIFT, false));
    for (int down = 0; down < timesDown; ++down) strokes.push_back(Stroke(key.code, false));
    strokes.push_back(Stroke(key.code, true));
    if (key.shift) strokes.push_back(Stroke(VK_SHIFT, true));
    if (key.control) strokes.push_back(Stroke(VK_CONTROL, true));
    const auto count = static_cast<UINT>(strokes.size());
    EXPECT_EQ(::SendInput(count, strokes.data(), sizeof(INPUT)), count);
}

}  // namespace plotvane::test
