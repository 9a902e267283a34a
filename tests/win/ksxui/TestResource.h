#pragma once
// Dialog template and control ids of the dialog support library's tests.
#define IDD_KSXUI 200
#define IDC_TEXT 2001
#define IDC_NOTE 2002
#define IDD_KSXUI_PICTURES 201
#define IDC_PICTURE 2003
#define IDB_KSXUI_PICTURE 300
