#pragma once
// What the classic test's dialog shows of the mouse: the picture of the held buttons, the marks
// of the tilt directions and side buttons, the wheel's arrows and bar, the pointer position, the
// double-click faces and the drag-and-drop pictures. The dialog keeps the states; the panel shows
// them and touches only what changes (each window call is dear, and most of this runs at every
// press).
#include <afxwin.h>

#include "CControlMarksCtrl.h"
#include "Mouse.h"
#include "MouseWheelBar.h"

class MouseStatusPanel {
public:
    explicit MouseStatusPanel(CWnd& dialog);

    // Binds the wheel bar and the marks (DoDataExchange); once bound, the bar gets its label.
    void bind(CDataExchange* pDX);
    void initialiseWheelBar();

    // The picture of the mouse's picture set that fits its button states.
    void showButtons(const Mouse& mouse);
    // Side buttons asked for by name show from the start, counted by the system or not.
    void showMarks(const Mouse& mouse, bool sideButtonsAsked);
    // One wheel notch: its arrow, the scale and the bar's step; away from the user is up.
    void showWheelNotch(bool towardUser);
    void showTilt(bool left);
    void hideTilt();
    void showPosition(POINT cursor);
    // The double-click faces swap.
    void swapFaces();
    // The empty drop target and the drag source return.
    void resetDragPictures();
    // A control shown or hidden, left alone when it is so already.
    void show(int id, int nCmdShow);

private:
    void setText(int id, LPCTSTR text);

    CWnd& m_dialog;
    MouseWheelBar m_wheelBar;
    CControlMarksCtrl m_marks;
};
