#pragma once
// A picture control (a static bound with DDX_Control) that paints a GDI+ image the dialog owns.
// Clicks still pass through to the dialog: the static's own hit test is kept.
#include <afxwin.h>

namespace Gdiplus {
class Image;
}

class PngControl : public CWnd {
public:
    PngControl();
    ~PngControl() override;

    // Makes the control paint `image`, which must outlive the control's use of it.
    // fit: scale the image into the control (never beyond it), keeping its proportions;
    // stretch: fill the whole control, proportions lost (wins over fit);
    // topLeft: anchor at the top left corner instead of the centre.
    // Without fit or stretch the image is drawn at its own size, clipped to the control.
    // Returns 0, or -1 when the image is unusable (missing or broken file): the control then
    // paints its background only.
    int SetImage(Gdiplus::Image& image, bool fit, bool stretch, bool topLeft);

    // Where the image lands in a control of the given size (client pixels); empty when the
    // control has no usable image.
    RECT ImageRect(int width, int height) const;

protected:
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    Gdiplus::Image* m_image;
    bool m_fit;
    bool m_stretch;
    bool m_topLeft;
};
