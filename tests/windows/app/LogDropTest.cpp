#include "app/LogDrop.h"

#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/TempFolder.h"

namespace plotvane::test {
namespace {

// Files as another program offers them, or something that is no file.
class DraggedData : public IDataObject {
public:
    explicit DraggedData(std::vector<std::wstring> paths) : m_paths(std::move(paths)) {}

    HRESULT WINAPI GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (format->cfFormat != CF_HDROP || m_paths.empty()) return DV_E_FORMATETC;
        std::wstring names;
        for (const std::wstring& path : m_paths) names += path + L'\0';
        names += L'\0';
        const std::size_t size = sizeof(DROPFILES) + names.size() * sizeof(wchar_t);
        medium->tymed = TYMED_HGLOBAL;
        medium->pUnkForRelease = nullptr;
        medium->hGlobal = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
        auto* const head = static_cast<DROPFILES*>(::GlobalLock(medium->hGlobal));
        head->pFiles = sizeof(DROPFILES);
        head->fWide = TRUE;
        std::memcpy(head + 1, names.data(), names.size() * sizeof(wchar_t));
        ::GlobalUnlock(medium->hGlobal);
        return S_OK;
    }
    HRESULT WINAPI QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT WINAPI QueryGetData(FORMATETC*) override { return E_NOTIMPL; }
    HRESULT WINAPI GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT WINAPI EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT WINAPI DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT WINAPI EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

private:
    std::vector<std::wstring> m_paths;
};

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
    DWORD Enter(DraggedData& data) {
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
        EXPECT_EQ(drop.Target().DragEnter(&data, MK_LBUTTON, {}, &effect), S_OK);
        DWORD over = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
        EXPECT_EQ(drop.Target().DragOver(MK_LBUTTON, {}, &over), S_OK);
        EXPECT_EQ(over, effect);
        return effect;
    }
    DWORD Let(DraggedData& data) {
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
    DraggedData data({log.wstring()});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_COPY});
    EXPECT_FALSE(dropped);
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_COPY});
    EXPECT_EQ(dropped, log);
}

TEST_F(LogDropTest, RefusesWhileNoLogMayBeLoaded) {
    mayLoad = false;
    DraggedData data({log.wstring()});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesWhatMayNoLongerBeLoadedWhenItIsLetGo) {
    DraggedData data({log.wstring()});
    EXPECT_EQ(Enter(data), DWORD{DROPEFFECT_COPY});
    mayLoad = false;
    DWORD effect = DROPEFFECT_COPY;
    drop.Target().DragOver(MK_LBUTTON, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_EQ(Let(data), DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesSeveralFilesAFolderAndWhatIsNoFile) {
    DraggedData two({log.wstring(), log.wstring()});
    DraggedData aFolder({folder.Path().wstring()});
    DraggedData text({});
    for (DraggedData* data : {&two, &aFolder, &text}) {
        EXPECT_EQ(Enter(*data), DWORD{DROPEFFECT_NONE});
        EXPECT_EQ(Let(*data), DWORD{DROPEFFECT_NONE});
    }
    DWORD effect = DROPEFFECT_COPY;
    drop.Target().DragEnter(nullptr, 0, {}, &effect);
    EXPECT_EQ(effect, DWORD{DROPEFFECT_NONE});
    EXPECT_FALSE(dropped);
}

TEST_F(LogDropTest, RefusesASourceThatDoesNotLetCopy) {
    DraggedData data({log.wstring()});
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
