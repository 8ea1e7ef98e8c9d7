#include "app/TitleBar.h"

#include <array>
#include <string>

#include "tests/windows/app/MainDialogFixture.h"

namespace plotvane::test {
namespace {

class TitleBarTest : public MainDialogFixture {
protected:
    std::wstring Shown() const {
        std::array<wchar_t, 200> text{};
        ::GetWindowTextW(dialog.m_hWnd, text.data(), static_cast<int>(text.size()));
        return text.data();
    }
    void EndHint() {
        while (titleBar.StepHint()) {
        }
    }

    TitleBar titleBar{dialog, L"Plotvane", "hint"};
};

TEST_F(TitleBarTest, TheHintShrinksFromFourteenToNoneAndTheTitleFollows) {
    for (int length = 14; length >= 0; --length) {
        EXPECT_TRUE(titleBar.StepHint());
        EXPECT_EQ(Shown(), L"<=" + std::wstring(static_cast<std::size_t>(length), L'=') + L"hint");
    }
    EXPECT_FALSE(titleBar.StepHint());
    EXPECT_EQ(Shown(), L"Plotvane");
}

TEST_F(TitleBarTest, ANameThatComesDuringTheHintIsShownAfterIt) {
    titleBar.StepHint();
    titleBar.SetTitle(u"module");
    EXPECT_EQ(Shown(), L"<===============hint");
    EndHint();
    EXPECT_EQ(Shown(), L"module");
}

TEST_F(TitleBarTest, AfterTheHintANameIsShownAtOnce) {
    EndHint();
    titleBar.SetTitle(u"module");
    EXPECT_EQ(Shown(), L"module");
}

}  // namespace
}  // namespace plotvane::test
