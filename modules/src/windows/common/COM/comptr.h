#pragma once
// COM for the calling thread, as a single-threaded apartment, for the lifetime of the object.
#include <windows.h>

class COMInitializer {
public:
    // CoInitialize; its answer is kept and logged on "comptr".
    COMInitializer();
    // CoUninitialize when the initialisation succeeded (already initialised included). Never
    // lets an exception out.
    ~COMInitializer();
    COMInitializer(const COMInitializer&) = delete;
    COMInitializer& operator=(const COMInitializer&) = delete;

private:
    HRESULT m_hr;
};
