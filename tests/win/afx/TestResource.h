#pragma once
// Dialog templates and control ids of the framework tests.
#define IDD_BASIC 100
#define IDD_MISSING 999

#define IDC_ACTION 1001
#define IDC_EDIT 1002
#define IDC_LABEL 1003
#define IDC_OWNERDRAW 1004
#define IDC_PROGRESS 1005
#define IDC_ABSENT 4242
