#include "afx/AfxOle.h"

#include <memory>

#include <ole2.h>

namespace {

// Owns the thread's OLE initialisation until the process ends.
class OleSession {
public:
    OleSession() = default;
    ~OleSession() { ::OleUninitialize(); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
};

}  // namespace

BOOL AfxOleInit()
{
    static std::unique_ptr<OleSession> session;
    if (session) {
        return TRUE;
    }
    if (FAILED(::OleInitialize(nullptr))) {
        return FALSE;
    }
    session = std::make_unique<OleSession>();
    return TRUE;
}

void AfxEnableControlContainer(void*) {}
