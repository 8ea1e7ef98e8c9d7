#pragma once

#include <windows.h>

#include <oleidl.h>

#include <filesystem>
#include <functional>
#include <optional>

#include "framework/SystemLibrary.h"

namespace plotvane {

// Lets the user drop a log on a window. The pointer refuses what cannot be loaded: several files, a folder,
// anything at a moment when no log may be loaded.
class LogDrop : private IDropTarget {
public:
    using MayLoad = std::function<bool()>;
    // Called while the program from which the file comes waits for an answer, so it must return at once.
    using OnDrop = std::function<void(std::filesystem::path)>;

    LogDrop(MayLoad mayLoad, OnDrop onDrop) : m_mayLoad(std::move(mayLoad)), m_onDrop(std::move(onDrop)) {}
    ~LogDrop() { Close(); }
    LogDrop(const LogDrop&) = delete;
    LogDrop& operator=(const LogDrop&) = delete;

    // Takes drops on the window from now on. If Windows cannot do that, it refuses every drop, as before.
    void Open(HWND window);

    // Call it before the window is destroyed. Does nothing the second time.
    void Close();

    // What Windows calls; also for tests.
    IDropTarget& Target() { return *this; }

private:
    // IUnknown. Windows lets go of this in Close; nobody else owns it.
    HRESULT WINAPI QueryInterface(REFIID id, void** object) override;
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }

    // IDropTarget. The data comes from any program.
    HRESULT WINAPI DragEnter(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override;
    HRESULT WINAPI DragOver(DWORD keys, POINTL place, DWORD* effect) override;
    HRESULT WINAPI DragLeave() override;
    HRESULT WINAPI Drop(IDataObject* data, DWORD keys, POINTL place, DWORD* effect) override;

    std::optional<std::filesystem::path> OnlyFileOf(IDataObject& data) const;
    DWORD EffectOf(DWORD allowed) const;

    MayLoad m_mayLoad;
    OnDrop m_onDrop;
    HWND m_window = nullptr;   // while it takes drops
    bool m_isOneFile = false;  // what is dragged over the window
    // Loaded with Open: a live drive needs neither.
    std::optional<SystemLibrary> m_ole;
    std::optional<SystemLibrary> m_shell;
};

}  // namespace plotvane
