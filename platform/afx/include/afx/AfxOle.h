#pragma once
// OLE start-up for the process's main thread.
#include <windows.h>

// OleInitialize on the calling thread; the matching OleUninitialize runs when the process
// ends. Later calls answer TRUE without initialising again. FALSE when the thread cannot
// enter a single-threaded apartment (it already is in a multithreaded one).
BOOL AfxOleInit();

// Allows dialogs to host OLE controls. The dialogs here host none, so there is nothing to
// prepare; pOccManager is not used.
void AfxEnableControlContainer(void* pOccManager = nullptr);
