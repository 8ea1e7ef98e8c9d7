#pragma once

#include <windows.h>

// A library of Windows, loaded for as long as this lives. Windows looks for most libraries beside the program
// before it looks in its own folder. So this one is not linked but named in full, and what it needs itself
// comes from there too. The library may be missing; then its functions are null.
class SystemLibrary {
public:
    explicit SystemLibrary(const wchar_t* name);
    ~SystemLibrary();
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    template <typename Signature>
    Signature* Function(const char* name) const {
        return reinterpret_cast<Signature*>(reinterpret_cast<void*>(Find(name)));
    }

private:
    FARPROC Find(const char* name) const;

    HMODULE m_module;
};
