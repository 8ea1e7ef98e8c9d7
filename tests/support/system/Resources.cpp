#include "tests/support/system/Resources.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "tests/support/system/Handle.h"

namespace plotvane::test {

namespace {

constexpr int kLooks = 8;
constexpr DWORD kBetweenLooksMs = 7;  // out of step with twenty records per second

// The commit charge. The field named "private" has the same value on Windows but is 0 under Wine.
std::size_t PrivateKilobytesOf(HANDLE process) {
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(process, &counters, sizeof counters);
    return counters.PagefileUsage / 1024;
}

// Wine's GetProcessHandleCount returns 0, but its list of the system's handles includes those of the process.
int CountListedHandles(DWORD processId) {
    constexpr std::size_t kMost = 20'000;  // handles in the whole system
    static std::vector<std::byte> list(sizeof(SYSTEM_HANDLE_INFORMATION) +
                                       kMost * sizeof(SYSTEM_HANDLE_ENTRY));
    ULONG length = 0;
    if (::NtQuerySystemInformation(SystemHandleInformation, list.data(), static_cast<ULONG>(list.size()),
                                   &length) < 0) {
        return 0;
    }
    const auto* const all = reinterpret_cast<const SYSTEM_HANDLE_INFORMATION*>(list.data());
    return static_cast<int>(
        std::count_if(all->Handle, all->Handle + all->Count,
                      [&](const SYSTEM_HANDLE_ENTRY& entry) { return entry.OwnerPid == processId; }));
}

int HandlesOf(HANDLE process, DWORD processId) {
    DWORD count = 0;
    ::GetProcessHandleCount(process, &count);
    return count > 0 ? static_cast<int>(count) : CountListedHandles(processId);
}

// An entry of the table in which GDI keeps a process's handles.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t upper;
    std::uint16_t type;  // 0: free
    std::uint64_t user;
};
static_assert(sizeof(GdiEntry) == 24);

// Wine's GetGuiResources always returns 0. But its GDI keeps a table for each process in the same place as
// Windows, so this counts the used entries. GDI uses the lowest entries first. A process with more objects
// than this many fails every check anyway.
int CountGdiTable(HANDLE process) {
    constexpr std::uintptr_t kTableInPeb = 0xF8;
    PROCESS_BASIC_INFORMATION basic{};
    if (::NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) < 0)
        return 0;
    std::uintptr_t table = 0;
    const auto place = reinterpret_cast<std::uintptr_t>(basic.PebBaseAddress) + kTableInPeb;
    if (!::ReadProcessMemory(process, reinterpret_cast<void*>(place), &table, sizeof table, nullptr))
        return 0;
    static std::array<GdiEntry, 8192> entries;
    if (!::ReadProcessMemory(process, reinterpret_cast<void*>(table), entries.data(), sizeof entries,
                             nullptr))
        return 0;
    return static_cast<int>(
        std::ranges::count_if(entries, [](const GdiEntry& entry) { return entry.type != 0; }));
}

struct WindowCount {
    DWORD processId;
    int windows = 0;
};

BOOL CALLBACK CountOne(HWND, LPARAM count) {
    ++reinterpret_cast<WindowCount*>(count)->windows;
    return TRUE;
}

BOOL CALLBACK CountIfOwn(HWND window, LPARAM count) {
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner != reinterpret_cast<WindowCount*>(count)->processId) return TRUE;
    CountOne(window, count);
    ::EnumChildWindows(window, CountOne, count);
    return TRUE;
}

int CountWindows(DWORD processId) {
    WindowCount count{processId};
    ::EnumWindows(CountIfOwn, reinterpret_cast<LPARAM>(&count));
    return count.windows;
}

Resources Look(HANDLE process, DWORD processId) {
    Resources seen;
    seen.privateKilobytes = PrivateKilobytesOf(process);
    seen.handles = HandlesOf(process, processId);
    seen.gdiObjects = static_cast<int>(::GetGuiResources(process, GR_GDIOBJECTS));
    if (seen.gdiObjects == 0) seen.gdiObjects = CountGdiTable(process);
    seen.userObjects = static_cast<int>(::GetGuiResources(process, GR_USEROBJECTS));
    if (seen.userObjects == 0) seen.userObjects = CountWindows(processId);
    return seen;
}

template <typename Figure>
void Compare(std::string& grown, const char* name, Figure before, Figure after, Figure allowed) {
    if (after <= before + allowed) return;
    grown.append(grown.empty() ? "" : ", ").append(name);
    grown.append(" from ").append(std::to_string(before)).append(" to ").append(std::to_string(after));
}

}  // namespace

Resources ResourcesOf(DWORD processId) {
    const Handle process(::OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    if (!process.Get()) return {};
    Resources least = Look(process.Get(), processId);
    for (int look = 1; look < kLooks; ++look) {
        ::Sleep(kBetweenLooksMs);
        const Resources seen = Look(process.Get(), processId);
        least.privateKilobytes = std::min(least.privateKilobytes, seen.privateKilobytes);
        least.gdiObjects = std::min(least.gdiObjects, seen.gdiObjects);
        least.userObjects = std::min(least.userObjects, seen.userObjects);
        least.handles = std::min(least.handles, seen.handles);
    }
    return least;
}

GrowthAllowance WithRecording(GrowthAllowance allowed, int samples) {
    constexpr int kSamplesOfAPiece = 2048;
    constexpr std::size_t kKilobytesOfAPiece = 226;
    allowed.privateKilobytes += static_cast<std::size_t>(samples / kSamplesOfAPiece + 1) * kKilobytesOfAPiece;
    return allowed;
}

std::string GrownBeyond(const Resources& before, const Resources& after, const GrowthAllowance& allowed) {
    std::string grown;
    Compare(grown, "private kilobytes", before.privateKilobytes, after.privateKilobytes,
            allowed.privateKilobytes);
    Compare(grown, "GDI objects", before.gdiObjects, after.gdiObjects, allowed.gdiObjects);
    Compare(grown, "user objects", before.userObjects, after.userObjects, allowed.userObjects);
    Compare(grown, "handles", before.handles, after.handles, allowed.handles);
    return grown;
}

}  // namespace plotvane::test
