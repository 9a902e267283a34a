#pragma once
// Templates, controls and bitmaps of the drag-and-drop and extension-control tests.
#define IDD_CONTROLS 100

#define IDC_FACE 1001
#define IDC_HALF 1002
#define IDC_NOPICTURE 1003
#define IDC_PLAIN_FACE 1004
#define IDC_NOTE 1005

#define IDB_DRAG 192
