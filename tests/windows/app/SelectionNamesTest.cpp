#include <vector>

#include "tests/windows/app/SlotControlsFixture.h"

namespace plotvane::test {
namespace {

using SelectionNames = SlotControlsFixture;

// Max and Min are named after the slot.
TEST_F(SelectionNames, OfTheLimitsChangeForScreenReadersWhenAnotherSlotIsSelected) {
    static std::vector<int> s_renamed;
    s_renamed.clear();
    panel.ShowSelection(4, 0, 100);
    const HWINEVENTHOOK hook = ::SetWinEventHook(
        EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE, ::GetModuleHandleW(nullptr),
        [](HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
            if (object == OBJID_CLIENT && child == CHILDID_SELF) s_renamed.push_back(::GetDlgCtrlID(window));
        },
        ::GetCurrentProcessId(), ::GetCurrentThreadId(), WINEVENT_INCONTEXT);
    ASSERT_NE(hook, nullptr);
    panel.ShowSelection(4, 0, 100);
    EXPECT_EQ(s_renamed, std::vector<int>{});
    panel.ShowSelection(5, 0, 100);
    ::UnhookWinEvent(hook);
    EXPECT_EQ(s_renamed, (std::vector<int>{IDC_SCALE_MIN, IDC_SCALE_MAX}));
}

}  // namespace
}  // namespace plotvane::test
