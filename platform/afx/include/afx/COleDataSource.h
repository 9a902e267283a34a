#pragma once
// The giving side of a data transfer: global memory blocks offered by format, and the drag
// and drop operation that offers them.
#include <windows.h>

#include <ole2.h>

#include "afx/AfxDropEffect.h"

class AfxDataObject;
class COleDropSource;

class COleDataSource {
public:
    COleDataSource();
    // Frees every cached block.
    virtual ~COleDataSource();
    COleDataSource(const COleDataSource&) = delete;
    COleDataSource& operator=(const COleDataSource&) = delete;

    // Offers hGlobal under the format (replacing an earlier block of the same format and
    // aspect); the data source takes ownership of the block and frees it on Empty or
    // destruction. Receivers get a copy.
    void CacheGlobalData(CLIPFORMAT cfFormat, HGLOBAL hGlobal, LPFORMATETC lpFormatEtc = nullptr);
    // Frees every cached block; the source then offers nothing.
    void Empty();

    // Runs an OLE drag and drop of the cached data: waits for the drag to begin (outside
    // lpRectStartDrag, screen coordinates, or a small rectangle around the pointer), then
    // runs the system's drag loop. Returns the effect of an accepted drop, else
    // DROPEFFECT_NONE (cancelled, refused, or the drag never began).
    DROPEFFECT DoDragDrop(DWORD dwEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK,
                          LPCRECT lpRectStartDrag = nullptr, COleDropSource* pDropSource = nullptr);

    // The IDataObject that offers the cache, with a reference the caller releases.
    LPDATAOBJECT GetDataObject();

private:
    AfxDataObject* m_pDataObject;
};
