#include "framework/WinApp.h"

#include <gtest/gtest.h>

namespace {

class TestApp : public CWinApp {
public:
    BOOL InitInstance() override { return FALSE; }
};

TEST(WinApp, IsKnownWhileItLives) {
    EXPECT_EQ(CWinApp::Current(), nullptr);
    {
        TestApp app;
        EXPECT_EQ(CWinApp::Current(), &app);
    }
    EXPECT_EQ(CWinApp::Current(), nullptr);
}

}  // namespace
