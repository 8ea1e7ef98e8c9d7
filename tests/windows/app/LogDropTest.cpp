#include "app/LogDrop.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/DraggedFiles.h"
#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

class LogDropTest : public testing::Test {
protected:
    LogDropTest() {
        window = ::CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                                 nullptr, nullptr);
        drop.Open(window);
        WriteBytes(log, "a log");
    }
    ~LogDropTest() override {
        drop.Close();
        ::DestroyWindow(window);
    }

    // What the pointer shows over the window.
    DWORD Enter(DraggedFiles& data) {
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
        EXPECT_EQ(drop.Target().DragEnter(&data, MK_LBUTTON, {}, &effect), S_OK);
        DWORD over = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
        EXPECT_EQ(drop.Target().DragOver(MK_LBUTTON, {}, &over), S_OK);
        EXPECT_EQ(over, effect);
        return effect;
    }
    DWORD Let(DraggedFiles& data) {
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_LINK;
        EXPECT_EQ(drop.Target().Drop(&data, 0, {}, &effect), S_OK);
        return effect;
    }

    TempFolder folder;
    const std::filesystem::path log = folder.Path() / L"\u041F\u0440\u043E\u0431\u0435\u0433 1.csv";
    bool mayLoad = true;
    std::optional<std::filesystem::path> dropped;
    LogDrop drop{[this] { return mayLoad; }, [this](std::filesystem::path path) { dropped = path; }};
    HWND window = nullptr;
};

TEST_F(LogDropTest, TakesOneFileUnderAnyName) {
    DraggedFiles data({log});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_COPY});
    EXPECT_FALSE(dropped);
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(dropped, log);
}

TEST_F(LogDropTest, RefusesWhileNoLogMayBeLoaded) {
    mayLoad = false;
    DraggedFiles data({log});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesWhatMayNoLongerBeLoadedWhenItIsLetGo) {
    DraggedFiles data({log});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_COPY});
    mayLoad = false;
    DWORD effect = DROPEFFECT_COPY;
    drop.Target().DragOver(MK_LBUTTON, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesSeveralFilesAFolderAndWhatIsNoFile) {
    DraggedFiles two({log, log});
    DraggedFiles aFolder({folder.Path()});
    DraggedFiles text({});
    for (DraggedFiles* data : {&two, &aFolder, &text}) {
        EXPECT_EQ(Enter(*data), DWORD{DROPEFFECT_NONE});
        EXPECT_EQ(Let(*data), DWORD{DROPEFFECT_NONE});
    }
    DWORD effect = DROPEFFECT_COPY;
    drop.Target().DragEnter(nullptr, 0, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesASourceThatDoesNotLetCopy) {
    DraggedFiles data({log});
    DWORD effect = DROPEFFECT_MOVE;
    drop.Target().DragEnter(&data, 0, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    effect = DROPEFFECT_MOVE;
    drop.Target().Drop(&data, 0, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, IsTheWindowsTargetWhileItIsOpen) {
    ::OleInitialize(nullptr);
    LogDrop other{[] { return true; }, [](std::filesystem::path) {}};
    EXPECT_EQ(::RegisterDragDrop(window, &other.Target()), DRAGDROP_E_ALREADYREGISTERED);
    drop.Close();
    EXPECT_EQ(::RegisterDragDrop(window, &other.Target()), S_OK);
    ::RevokeDragDrop(window);
    drop.Close();
    ::OleUninitialize();
}

}  // namespace
}  // namespace plotvane::test
