#pragma once
// OLE support of the framework subset.
#include <ole2.h>

#include "afxwin.h"
#include "afx/AfxOle.h"
