#pragma once
// OLE support of the framework subset.
#include "afxwin.h"

#include <ole2.h>

#include "afx/AfxOle.h"
