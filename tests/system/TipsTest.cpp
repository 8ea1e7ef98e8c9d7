// The tips over the controls of the main window, as the pointer brings them up.
#include <gtest/gtest.h>

#include "tests/support/system/Await.h"
#include "tests/support/system/MainDialog.h"
#include "tests/support/system/Records.h"
#include "tests/support/system/Session.h"

namespace plotvane::test {
namespace {

class ShownTips : public ::testing::Test {
protected:
    ShownTips() {
        std::filesystem::create_directory(session.Folder() / "labels");
        WriteBytes(session.Folder() / "labels" / "038-906-019-FT.LBL",
                   "001,0,Engine\r\n001,1,Engine speed,actual\r\n");
        session.StartWithHost();
        main = session.Main();
        session.Host().SendRecord(kFirstRecord);
    }

    void PointAt(int id) const {
        const RECT place = main.Control(id).ScreenRect();
        const int x = (place.left + place.right) / 2;
        const int y = (place.top + place.bottom) / 2;
        ::SetCursorPos(x + 1, y);  // a pointer that comes, not one that has always been there
        ::SetCursorPos(x, y);
    }
    // The text of the tip that is shown; empty if there is none.
    std::wstring ShownTip() const {
        for (HWND tip = ::FindWindowExW(nullptr, nullptr, L"tooltips_class32", nullptr); tip;
             tip = ::FindWindowExW(nullptr, tip, L"tooltips_class32", nullptr)) {
            const RemoteWindow window(tip);
            if (window.IsShown() && window.ProcessId() == main.ProcessId()) return window.Text();
        }
        return {};
    }
    ::testing::AssertionResult Tells(int id, const std::wstring& tip) {
        PointAt(id);
        return Becomes([this] { return ShownTip(); }, tip);
    }

    Session session;
    RemoteWindow main;
};

TEST_F(ShownTips, TellTheNamesNumbersAndRangeOfAValueWhileDataFlows) {
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(Tells(IDC_VALUE_FIRST, L"Engine - Engine speed actual\nGroup 1, field 1\n0 to 6000 /min"));
    EXPECT_TRUE(Tells(IDC_SWATCH_WINDOW_FIRST + 2, L"Engine\nGroup 1, field 3\n0 to 250 km/h"));
    session.Host().SendRecord(kSecondRecord);
    EXPECT_TRUE(session.Shows(0, L"1780 /min"));
    EXPECT_TRUE(session.Closes());
}

TEST_F(ShownTips, TellTheKeyOfAButtonAndGoWithThePointer) {
    ASSERT_TRUE(session.Shows(0, L"780 /min"));
    EXPECT_TRUE(Tells(IDC_PAUSE, L"Pause, go on, start over (F5)"));
    PointAt(IDC_SCALE_MAX);
    EXPECT_TRUE(Becomes([this] { return ShownTip(); }, std::wstring()));
    EXPECT_TRUE(session.Closes());
}

}  // namespace
}  // namespace plotvane::test
