#pragma once
// The coverage map on screen: the pad's cells, covered or not yet, and the fingers down as dots,
// drawn by the portable picture of the map so that the report's picture shows the same. Painted
// from a snapshot the dialog hands it at its refresh, and at once.
#include <afxwin.h>

#include <vector>

#include "touchq/CoverageMap.h"
#include "touchq/CoverageRaster.h"

class CCoverageMapCtrl : public CWnd {
public:
    // A new picture of the map with these fingers down.
    void show(const touchq::CoverageMap& map, const std::vector<touchq::CoverageRaster::Spot>& fingers);

protected:
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    touchq::IndexedImage m_picture;
};
