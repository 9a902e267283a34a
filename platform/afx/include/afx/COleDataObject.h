#pragma once
// The receiving side of a data transfer: a borrowed or owned IDataObject pointer and the
// reads a drop target makes from it.
#include <windows.h>

#include <ole2.h>

class COleDataObject {
public:
    COleDataObject();
    // Releases the interface when it was attached with bAutoRelease.
    ~COleDataObject();
    COleDataObject(const COleDataObject&) = delete;
    COleDataObject& operator=(const COleDataObject&) = delete;

    // Takes lpDataObject (releasing any interface held before); with bAutoRelease the
    // reference passes to this object and is released by Release or the destructor.
    void Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease = TRUE);
    // Gives the interface up without releasing it.
    LPDATAOBJECT Detach();
    // Releases the interface when owned, and forgets it in any case.
    void Release();
    // The interface, with an extra reference when bAddRef.
    LPDATAOBJECT GetIDataObject(BOOL bAddRef);

    // Whether the data is offered in the format (global memory unless lpFormatEtc says).
    BOOL IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = nullptr);
    // The data in the format; the caller frees the medium with ReleaseStgMedium.
    BOOL GetData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc = nullptr);
    // A global memory block holding the data; the caller owns it (GlobalFree). Null when the
    // format is not offered as global memory.
    HGLOBAL GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = nullptr);

protected:
    LPDATAOBJECT m_lpDataObject;
    BOOL m_bAutoRelease;
};
