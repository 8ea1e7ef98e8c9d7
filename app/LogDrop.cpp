#include "app/LogDrop.h"

#include <shellapi.h>

#include <string>

#include "base/FileOperations.h"

namespace plotvane {

void LogDrop::Open(HWND window) {
    if (m_window) return;
    m_ole.emplace(L"ole32.dll");
    m_shell.emplace(L"shell32.dll");
    auto* const begin = m_ole->Function<HRESULT WINAPI(void*)>("OleInitialize");
    auto* const take = m_ole->Function<HRESULT WINAPI(HWND, IDropTarget*)>("RegisterDragDrop");
    if (!begin || !take || FAILED(begin(nullptr))) return;
    m_window = window;
    take(window, this);
}

void LogDrop::Close() {
    if (!m_window) return;
    auto* const revoke = m_ole->Function<HRESULT WINAPI(HWND)>("RevokeDragDrop");
    auto* const end = m_ole->Function<void WINAPI()>("OleUninitialize");
    if (revoke) revoke(m_window);
    m_window = nullptr;
    if (end) end();
}

HRESULT LogDrop::QueryInterface(REFIID id, void** object) {
    const bool isKnown = id == IID_IUnknown || id == IID_IDropTarget;
    *object = isKnown ? static_cast<IDropTarget*>(this) : nullptr;
    return isKnown ? S_OK : E_NOINTERFACE;
}

HRESULT LogDrop::DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) {
    m_isOneFile = data && OnlyFileOf(*data);
    *effect = EffectOf(*effect);
    return S_OK;
}

HRESULT LogDrop::DragOver(DWORD, POINTL, DWORD* effect) {
    *effect = EffectOf(*effect);
    return S_OK;
}

HRESULT LogDrop::DragLeave() {
    m_isOneFile = false;
    return S_OK;
}

HRESULT LogDrop::Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) {
    const auto file = data ? OnlyFileOf(*data) : std::nullopt;
    m_isOneFile = file.has_value();
    *effect = EffectOf(*effect);
    m_isOneFile = false;
    if (*effect != DROPEFFECT_NONE) m_onDrop(*file);
    return S_OK;
}

// Asks each time, because a run may begin or end while the pointer is over the window.
DWORD LogDrop::EffectOf(DWORD allowed) const {
    return m_isOneFile && m_mayLoad() ? allowed & DROPEFFECT_COPY : DWORD{DROPEFFECT_NONE};
}

std::optional<std::filesystem::path> LogDrop::OnlyFileOf(IDataObject& data) const {
    constexpr UINT kAll = 0xFFFFFFFF;
    auto* const query = m_shell->Function<UINT WINAPI(HDROP, UINT, LPWSTR, UINT)>("DragQueryFileW");
    auto* const release = m_ole->Function<void WINAPI(STGMEDIUM*)>("ReleaseStgMedium");
    FORMATETC format{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (!query || !release || FAILED(data.GetData(&format, &medium))) return std::nullopt;
    std::wstring path;
    const auto files = static_cast<HDROP>(medium.hGlobal);
    if (medium.tymed == TYMED_HGLOBAL && query(files, kAll, nullptr, 0) == 1) {
        path.resize(query(files, 0, nullptr, 0) + 1);  // with room for the NUL
        path.resize(query(files, 0, path.data(), static_cast<UINT>(path.size())));
    }
    release(&medium);
    if (path.empty() || IsFolder(path)) return std::nullopt;
    return std::filesystem::path(path);
}

}  // namespace plotvane
