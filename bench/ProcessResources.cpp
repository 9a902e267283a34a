#include "ProcessResources.h"

#include <psapi.h>
#include <winternl.h>

#include <vector>

namespace {

// The process's GDI handle table as Wine maps it into the process (x64 PEB field), in Wine's
// layout; only read where GetGuiResources does not count.
constexpr std::size_t kPebGdiSharedHandleTable = 0xF8;
constexpr std::size_t kGdiHandleCount = 0x10000;

struct GdiHandleEntry {
    ULONG64 object;
    ULONG owner;
    UCHAR type;   // 0: free
    UCHAR extType;
    USHORT unique;
    ULONG64 user;
};
static_assert(sizeof(GdiHandleEntry) == 24);

unsigned countGdiHandleTable(HANDLE process)
{
    PROCESS_BASIC_INFORMATION basic{};
    ULONG length = 0;
    if (NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof(basic), &length) != 0) {
        return 0;
    }
    ULONG_PTR table = 0;
    SIZE_T read = 0;
    const auto* field = reinterpret_cast<const BYTE*>(basic.PebBaseAddress) + kPebGdiSharedHandleTable;
    if (!ReadProcessMemory(process, field, &table, sizeof(table), &read) || table == 0) {
        return 0;
    }
    std::vector<GdiHandleEntry> entries(kGdiHandleCount);
    if (!ReadProcessMemory(process, reinterpret_cast<const void*>(table), entries.data(),
                           entries.size() * sizeof(GdiHandleEntry), &read)) {
        return 0;
    }
    unsigned count = 0;
    for (std::size_t i = 0; i < read / sizeof(GdiHandleEntry); ++i) {
        count += entries[i].type != 0 ? 1 : 0;
    }
    return count;
}

struct WindowCount {
    DWORD processId;
    unsigned count;
};

BOOL CALLBACK countChild(HWND, LPARAM param)
{
    ++reinterpret_cast<WindowCount*>(param)->count;
    return TRUE;
}

void countTree(HWND window, WindowCount& windows)
{
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == windows.processId) {
        ++windows.count;
        EnumChildWindows(window, &countChild, reinterpret_cast<LPARAM>(&windows));
    }
}

unsigned countWindows(DWORD processId)
{
    WindowCount windows{processId, 0};
    EnumWindows(
        [](HWND window, LPARAM param) -> BOOL {
            countTree(window, *reinterpret_cast<WindowCount*>(param));
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    for (HWND messageOnly = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr); messageOnly != nullptr;
         messageOnly = FindWindowExW(HWND_MESSAGE, messageOnly, nullptr, nullptr)) {
        countTree(messageOnly, windows);
    }
    return windows.count;
}

}  // namespace

ProcessResources ProcessResources::of(HANDLE process)
{
    ProcessResources resources;
    PROCESS_MEMORY_COUNTERS memory{};
    memory.cb = sizeof(memory);
    if (GetProcessMemoryInfo(process, &memory, sizeof(memory))) {
        resources.peakWorkingSetKb = memory.PeakWorkingSetSize / 1024;
        resources.workingSetKb = memory.WorkingSetSize / 1024;
    }
    resources.gdiObjects = GetGuiResources(process, GR_GDIOBJECTS);
    if (resources.gdiObjects == 0) {
        resources.gdiObjects = countGdiHandleTable(process);
    }
    resources.userObjects = GetGuiResources(process, GR_USEROBJECTS);
    if (resources.userObjects == 0) {
        resources.userObjects = countWindows(GetProcessId(process));
    }
    return resources;
}
