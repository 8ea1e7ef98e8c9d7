#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
    if (!::InitCommonControlsEx(&controls)) return 1;
    return RUN_ALL_TESTS();
}
