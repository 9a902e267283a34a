#pragma once
// What a process holds at a moment: its working set (and the peak so far) and its GDI and USER
// objects. Wine answers GetGuiResources with 0, so there the GDI objects are counted in the
// process's handle table and the USER objects are its windows.
#include <windows.h>

#include <cstddef>

struct ProcessResources {
    std::size_t peakWorkingSetKb = 0;
    std::size_t workingSetKb = 0;
    unsigned gdiObjects = 0;
    unsigned userObjects = 0;

    // `process` needs PROCESS_QUERY_INFORMATION and PROCESS_VM_READ.
    static ProcessResources of(HANDLE process);
};
