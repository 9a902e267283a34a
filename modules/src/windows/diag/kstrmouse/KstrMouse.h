#pragma once
// The module's application object and the entry points of the two mouse tests.
#include <afxwin.h>


#include "harn5/DiagDevice.h"
#include "harn5/LocalizedString.h"
#include "harn5/TestResult.h"

// Started by the framework: hands the command line to the host and runs it.
class CKstrMouseGUIApp : public CWinApp {
public:
    CKstrMouseGUIApp();

    BOOL InitInstance() override;
    int Run() override;

    // Every registration ran before this object was constructed.
    bool registeredFirst() const;

private:
    // The command line and the version, as the host takes them.
    void handCommandLineToHost();
    bool m_registeredFirst;
};

// The application object, constructed after every registration.
extern CKstrMouseGUIApp theApp;

// Called back by the host before the first test: OLE for the classic test and GDI+ for the click
// test, when the run has them, stay up for the life of the process.
void moduleInit();

harn5::TestResult MouseTest(const harn5::DiagDevice& device);
harn5::TestResult MouseInteractiveTest(const harn5::DiagDevice& device);

// Control helpers of the click test, called with the thread's main window (the running dialog).
// Disables a visible, enabled child; true when it did.
bool disableControl(CWnd* parent, int controlId);
// Makes a child visible and enabled; false when there is no parent or no such child.
bool enableControl(CWnd* parent, int controlId);
// Sets a child's text to the localized text of `key`, when both exist.
void setLocalizedString(CWnd* parent, int controlId, const harn5::LocalizedString* key);
