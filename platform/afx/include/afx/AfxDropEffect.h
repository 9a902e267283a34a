#pragma once
// The effect of a drag and drop operation: DROPEFFECT_NONE, or DROPEFFECT_COPY, _MOVE and
// _LINK, with DROPEFFECT_SCROLL.
#include <windows.h>

#include <ole2.h>

typedef DWORD DROPEFFECT;
