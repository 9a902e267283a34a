#pragma once
// OLE drag and drop of the framework subset.
#include "afxwin.h"

#include <ole2.h>

#include "afx/AfxDropEffect.h"
#include "afx/AfxOle.h"
#include "afx/COleDataObject.h"
#include "afx/COleDataSource.h"
#include "afx/COleDropSource.h"
#include "afx/COleDropTarget.h"
