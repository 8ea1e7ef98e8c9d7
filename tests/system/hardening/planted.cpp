// A library that leaves a mark when a process loads it: an empty file beside it, under its own name with
// ".loaded" after it. Copies of it stand in for libraries that somebody has put where the program might look
// for its own.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE self, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t path[1024];
    const DWORD length = ::GetModuleFileNameW(self, path, 1000);
    ::lstrcpyW(path + length, L".loaded");
    const HANDLE mark = ::CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (mark != INVALID_HANDLE_VALUE) ::CloseHandle(mark);
    return TRUE;
}
