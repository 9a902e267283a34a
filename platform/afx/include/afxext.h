#pragma once
// Extension controls of the framework subset.
#include "afxwin.h"

#include "afx/CBitmapButton.h"
