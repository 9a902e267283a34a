#pragma once
// Common controls of the framework subset.
#include "afxwin.h"

#include <commctrl.h>

#include "afx/CImageList.h"
#include "afx/CProgressCtrl.h"
