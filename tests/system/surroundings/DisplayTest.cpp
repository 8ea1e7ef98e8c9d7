// A screen that changes its size and shape while data flows.
#include <tuple>

#include "tests/support/system/ProgramState.h"

namespace plotvane::test {
namespace {

class ChangingScreen : public AnyState {
protected:
    bool ShowsNewValues() {
        const std::wstring shown = session.ValueText(0);
        return bool{Becomes([&] { return session.ValueText(0) != shown; }, true)};
    }
    // What Windows tells every window: bits of a pixel, width and height.
    void TellAboutScreen(int bits, int width, int height) const {
        main.Send(WM_DISPLAYCHANGE, static_cast<WPARAM>(bits), MAKELPARAM(width, height));
    }
};

// The screen is turned on its side, has fewer colours, none at all, and is as before.
TEST_F(ChangingScreen, IsOnlyNewsToTheProgram) {
    Enter(ProgramState::LiveRunning);
    ASSERT_FALSE(HasFatalFailure());
    for (const auto& [bits, width, height] : {std::tuple(32, 1024, 1280), std::tuple(8, 640, 480),
                                              std::tuple(0, 0, 0), std::tuple(32, 1280, 1024)}) {
        TellAboutScreen(bits, width, height);
        EXPECT_TRUE(ShowsNewValues()) << bits << " bits";
    }
    EXPECT_TRUE(ComesBackToLife());
    EXPECT_TRUE(ClosesPromptly(session));
}

}  // namespace
}  // namespace plotvane::test
