#pragma once
// Root of every class that can own a message map (windows and the application).
#include <windows.h>

#include "afx/AfxMsgMap.h"

class CCmdTarget {
public:
    CCmdTarget();
    virtual ~CCmdTarget();
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    // The first entry for the message (and, for WM_COMMAND, code and id) in this object's
    // maps, most derived class first; null when no class handles it.
    const AFX_MSGMAP_ENTRY* FindMessageEntry(UINT message, UINT code, UINT id) const;
};
