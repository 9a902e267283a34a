#pragma once
// The click test's drag of its drag item: telling a drag from a click, the feedback image that
// follows the pointer and the capture, and the end of a drag however the test ends.
#include <afxcmn.h>
#include <afxwin.h>

class DragTracker {
public:
    DragTracker();
    // Ends a drag still under way.
    ~DragTracker();
    DragTracker(const DragTracker&) = delete;
    DragTracker& operator=(const DragTracker&) = delete;

    // Whether the user drags from `point` (client coordinates of `window`) before releasing the
    // left button. Like the system's DragDetect it ends at the release (which it consumes), at
    // Escape, or when the pointer leaves the drag rectangle; unlike it, it works in client
    // coordinates on Windows and Wine alike (DragDetect compares screen coordinates on one and
    // client coordinates on the other).
    static bool detect(CWnd& window, CPoint point);

    // The feedback image, from a bitmap resource; false when it cannot be made (the drag then
    // works without it).
    bool loadImage(UINT bitmapId);
    // Starts a drag of `window`'s item pressed at `point` (client coordinates).
    void begin(CWnd& window, CPoint point);
    void follow(CPoint point);
    // Ends the drag: the image goes, the capture is given back. Nothing when none is under way.
    void end();
    bool dragging() const { return m_window != nullptr; }

private:
    // A client point relative to the window rectangle, as the drag image wants it.
    CPoint toWindowPoint(CPoint point) const;

    CImageList m_images;
    CWnd* m_window;   // while a drag is under way
};
