#include "framework/NamedControl.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include <array>
#include <map>
#include <string>

#include "framework/AccessibleNames.h"
#include "tests/support/system/ScreenReader.h"
#include "tests/windows/framework/TestWnd.h"

namespace plotvane::test {
namespace {

constexpr int kButton = 7;
constexpr int kEdit = 8;
constexpr int kList = 9;

// A dialog that has names for its controls, and counts how often it is asked.
class Namer : public CWnd {
public:
    std::string AccessibleNameOf(int control) const override {
        ++asked;
        const auto name = names.find(control);
        return name == names.end() ? "" : name->second;
    }

    std::map<int, std::string> names;
    mutable int asked = 0;
};

class NamedControlTest : public ::testing::Test {
protected:
    NamedControlTest() {
        CreateHidden(parent);
        Add(L"BUTTON", L"+", kButton, BS_PUSHBUTTON);
        Add(L"EDIT", L"780", kEdit, ES_READONLY);
        Add(L"COMBOBOX", L"", kList, CBS_DROPDOWN);
    }
    void Add(const wchar_t* kind, const wchar_t* text, int id, DWORD style) {
        ::CreateWindowExW(0, kind, text, WS_CHILD | style, 0, 0, 40, 20, parent.m_hWnd,
                          reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    }
    Spoken Read(int id) const { return reader.Read(parent.GetDlgItem(id)); }

    const ScreenReader reader;
    Namer parent;
    AccessibleNames given;
};

TEST_F(NamedControlTest, HasTheNameThatTheWindowAroundItHasForIt) {
    parent.names = {{kButton, "Next value"},
                    {kEdit,
                     "Temperature in \xB0"
                     "C"}};
    given.Give(parent, std::array{kButton, kEdit});
    EXPECT_EQ(Read(kButton).name, L"Next value");
    EXPECT_EQ(Read(kEdit).name,
              L"Temperature in \u00B0"
              L"C");
}

TEST_F(NamedControlTest, IsOtherwiseAsTheSystemHasIt) {
    parent.names = {{kButton, "Next value"}, {kEdit, "Engine speed"}};
    const Spoken button = Read(kButton);
    const Spoken edit = Read(kEdit);
    given.Give(parent, std::array{kButton, kEdit});
    EXPECT_EQ(Read(kButton).role, button.role);
    EXPECT_EQ(Read(kButton).state, button.state);
    EXPECT_EQ(parent.GetDlgItemText(kButton), "+");
    EXPECT_EQ(Read(kEdit).role, edit.role);
    EXPECT_EQ(Read(kEdit).state, edit.state);
    EXPECT_EQ(Read(kEdit).value, L"780");
}

TEST_F(NamedControlTest, WithoutANameKeepsTheSystems) {
    given.Give(parent, std::array{kButton});
    EXPECT_EQ(Read(kButton).name, L"+");
}

TEST_F(NamedControlTest, AsksForItsNameEachTimeThatSomebodyAsksIt) {
    given.Give(parent, std::array{kButton});
    ::SendMessageW(parent.GetDlgItem(kButton), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"-"));
    EXPECT_EQ(parent.asked, 0);
    parent.names[kButton] = "Next value";
    EXPECT_EQ(Read(kButton).name, L"Next value");
    parent.names[kButton] = "Previous value";
    EXPECT_EQ(Read(kButton).name, L"Previous value");
}

TEST_F(NamedControlTest, GivesItsNameToTheEditInIt) {
    parent.names[kList] = "Color presets";
    given.Give(parent, std::array{kList});
    const HWND edit = ::GetWindow(parent.GetDlgItem(kList), GW_CHILD);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(reader.Read(edit).name, L"Color presets");
    EXPECT_EQ(reader.Read(edit).role, ROLE_SYSTEM_TEXT);
}

TEST_F(NamedControlTest, NeedNotExist) {
    parent.names[kButton] = "Next value";
    given.Give(parent, std::array{kList + 1, kButton});
    EXPECT_EQ(Read(kButton).name, L"Next value");
}

}  // namespace
}  // namespace plotvane::test
