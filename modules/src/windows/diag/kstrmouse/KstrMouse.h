#pragma once
// The module's application object and the entry points of the two mouse tests.
#include <afxwin.h>

#include "harn5/DiagDevice.h"
#include "harn5/TestResult.h"

// Started by the framework: prepares OLE, hands the command line to the host and runs it.
class CKstrMouseGUIApp : public CWinApp {
public:
    CKstrMouseGUIApp();

    BOOL InitInstance() override;
    int Run() override;
};

// Called back by the host before the first test: GDI+ stays up for the life of the process.
void moduleInit();

harn5::TestResult MouseTest(const harn5::DiagDevice& device);
harn5::TestResult MouseInteractiveTest(const harn5::DiagDevice& device);
