#pragma once
// Common controls of the framework subset.
#include <commctrl.h>

#include "afxwin.h"
#include "afx/CProgressCtrl.h"
