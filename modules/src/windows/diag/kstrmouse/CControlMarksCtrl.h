#pragma once
// The controls that leave no lasting picture of their own (each tilt direction, each side
// button) as a grid of marks: not used yet, in use now, used. A mark stays once used, so a
// 100 ms arrow that was missed still shows what happened.
#include <afxwin.h>

#include <cstdint>
#include <string>
#include <vector>

class CControlMarksCtrl : public CWnd {
public:
    struct Mark {
        std::wstring label;
        std::uint32_t state;   // a MouseControlState; an absent control has no mark
        bool operator==(const Mark& other) const { return label == other.label && state == other.state; }
    };

    // Once the window exists: the marks in reading order, one to a row; the control hides itself when none is present.
    // Its window text names them with their state, for readers that cannot see the picture.
    void show(const std::vector<Mark>& marks);

protected:
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    void PaintMark(HDC dc, const RECT& place, const Mark& mark) const;

    std::vector<Mark> m_marks;   // the present ones only
};
