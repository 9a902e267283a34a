#include "afx/CCommandLineInfo.h"

CCommandLineInfo::CCommandLineInfo() = default;

CCommandLineInfo::~CCommandLineInfo() = default;

void CCommandLineInfo::ParseParam(const wchar_t*, BOOL, BOOL)
{
    // Shell commands (open, print, embedding) are not supported: the module's parameters
    // are all the host library's, collected by a subclass.
}
