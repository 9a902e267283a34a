#pragma once
// Dialog template and control ids of the dialog support library's tests.
#define IDD_KSXUI 200
#define IDC_TEXT 2001
#define IDC_NOTE 2002
