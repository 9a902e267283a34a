#pragma once
// The classic test's drag-and-drop source: where a press arms a drag, and the system's drag of a
// block in the bitmap format, all that the drop target looks at.
#include <afxole.h>
#include <afxwin.h>

class MouseDragSource {
public:
    // Whether p (client coordinates of the running dialog) lies on the source picture, widened
    // by 2 pixels.
    static bool contains(CPoint p);
    // Runs the system's drag loop; returns once it ended, having taken the button's release.
    // False when there was no memory for the data, and so no drag.
    bool drag();

private:
    COleDataSource m_dataSource;
};
