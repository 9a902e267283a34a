#pragma once
// A picture control (a static bound with DDX_Control) that paints a GDI+ image the dialog owns.
// Clicks still pass through to the dialog: the static's own hit test is kept.
#include <afxwin.h>

#include <string>

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
    // While the control has no usable image it paints a plain outline of itself with this
    // label: a target the user must hit stays visible without its file. Empty: nothing.
    void SetPlaceholder(const std::wstring& label);

    // Where the image lands in a control of the given size (client pixels); empty when the
    // control has no usable image.
    RECT ImageRect(int width, int height) const;

protected:
    afx_msg void OnPaint();
    // Paints into the given DC, as WM_PAINT paints on the screen.
    afx_msg LRESULT OnPrintClient(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void Paint(HDC dc);

    Gdiplus::Image* m_image;
    std::wstring m_placeholder;
    bool m_fit;
    bool m_stretch;
    bool m_topLeft;
};
