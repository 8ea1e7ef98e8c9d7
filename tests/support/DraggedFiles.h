#pragma once

#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace plotvane::test {

// Files as another program offers them to a drop; without a file, something that is none. Nobody owns it by
// its references: it must outlive them.
class DraggedFiles final : public IDataObject {
public:
    explicit DraggedFiles(std::vector<std::filesystem::path> files) : m_files(std::move(files)) {}

    HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
        const bool isKnown = id == IID_IUnknown || id == IID_IDataObject;
        *object = isKnown ? static_cast<IDataObject*>(this) : nullptr;
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override { return 1; }
    ULONG WINAPI Release() override { return 1; }

    HRESULT WINAPI GetData(FORMATETC* format, STGMEDIUM* medium) override {
        if (QueryGetData(format) != S_OK) return DV_E_FORMATETC;
        std::wstring names;
        for (const std::filesystem::path& file : m_files) names += file.wstring() + L'\0';
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
    HRESULT WINAPI QueryGetData(FORMATETC* format) override {
        return format->cfFormat == CF_HDROP && !m_files.empty() ? S_OK : DV_E_FORMATETC;
    }
    HRESULT WINAPI EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override {
        if (direction != DATADIR_GET) return E_NOTIMPL;
        const FORMATETC files{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        return ::SHCreateStdEnumFmtEtc(m_files.empty() ? 0 : 1, &files, formats);
    }
    HRESULT WINAPI GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT WINAPI GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT WINAPI DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
        return OLE_E_ADVISENOTSUPPORTED;
    }
    HRESULT WINAPI DUnadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    HRESULT WINAPI EnumDAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }

private:
    std::vector<std::filesystem::path> m_files;
};

}  // namespace plotvane::test
