#pragma once
// Gives a dialog the reading direction of the host's language.
#include <windows.h>

class KSXLangExt {
public:
    // Right-to-left languages: the dialog is mirrored (WS_EX_LAYOUTRTL) and its controls read
    // right to left (WS_EX_RTLREADING); otherwise both are cleared. The dialog is redrawn.
    void ApplyLanguage(HWND hDlg);

protected:
    KSXLangExt() = default;
    ~KSXLangExt() = default;
};
