#pragma once
// The framework subset: application, windows, dialogs, data exchange, message maps.
#include <windows.h>

#include "afx/AfxMessageBox.h"
#include "afx/AfxMsgMap.h"
#include "afx/AfxRegisterWndClass.h"
#include "afx/AfxWinMain.h"
#include "afx/CBitmap.h"
#include "afx/CBrush.h"
#include "afx/CButton.h"
#include "afx/CCmdTarget.h"
#include "afx/CCommandLineInfo.h"
#include "afx/CDC.h"
#include "afx/CDataExchange.h"
#include "afx/CDialog.h"
#include "afx/CPaintDC.h"
#include "afx/CPoint.h"
#include "afx/CRect.h"
#include "afx/CSize.h"
#include "afx/CUserException.h"
#include "afx/CWinApp.h"
#include "afx/CWinThread.h"
#include "afx/CWnd.h"
