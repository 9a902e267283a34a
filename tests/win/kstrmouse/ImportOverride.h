#pragma once
// Makes the test executable's import slot of a system function (`__imp_Name`) call a replacement
// for the scope. The module's code is linked into the test executable, so its calls go through
// the same slot: a failure can be injected without any seam in the shipped module.
#include <windows.h>

namespace mousetest {

template <typename Fn>
class ImportOverride {
public:
    ImportOverride(Fn& slot, Fn replacement) : m_slot(slot), m_real(slot) { Write(replacement); }
    ~ImportOverride() { Write(m_real); }
    ImportOverride(const ImportOverride&) = delete;
    ImportOverride& operator=(const ImportOverride&) = delete;

    // What the slot held before: the system's own function.
    Fn real() const { return m_real; }

private:
    void Write(Fn function)
    {
        DWORD protection = 0;
        ::VirtualProtect(&m_slot, sizeof(function), PAGE_READWRITE, &protection);
        m_slot = function;
        ::VirtualProtect(&m_slot, sizeof(function), protection, &protection);
    }

    Fn& m_slot;
    Fn m_real;
};

}  // namespace mousetest
