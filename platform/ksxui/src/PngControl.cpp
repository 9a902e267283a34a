#include "ksxui/PngControl.h"

#include <objidl.h>
#include <gdiplus.h>
#include <uxtheme.h>

#include <algorithm>

#include "ksxui/PictureOutline.h"

BEGIN_MESSAGE_MAP(PngControl, CWnd)
    ON_WM_PAINT()
    ON_MESSAGE(WM_PRINTCLIENT, &PngControl::OnPrintClient)
END_MESSAGE_MAP()

PngControl::PngControl() : m_image(nullptr), m_fit(true), m_stretch(false), m_topLeft(false) {}

PngControl::~PngControl() = default;

int PngControl::SetImage(Gdiplus::Image& image, bool fit, bool stretch, bool topLeft)
{
    m_fit = fit;
    m_stretch = stretch;
    m_topLeft = topLeft;
    if (image.GetLastStatus() != Gdiplus::Ok || image.GetWidth() == 0 || image.GetHeight() == 0) {
        m_image = nullptr;
        return -1;
    }
    m_image = &image;
    return 0;
}

void PngControl::SetPlaceholder(const std::wstring& label)
{
    m_placeholder = label;
}

RECT PngControl::ImageRect(int width, int height) const
{
    if (m_image == nullptr || width <= 0 || height <= 0) {
        return RECT{};
    }
    const double imageWidth = m_image->GetWidth();
    const double imageHeight = m_image->GetHeight();
    double drawnWidth = imageWidth;
    double drawnHeight = imageHeight;
    if (m_stretch) {
        drawnWidth = width;
        drawnHeight = height;
    } else if (m_fit) {
        const double scale = std::min(width / imageWidth, height / imageHeight);
        drawnWidth = imageWidth * scale;
        drawnHeight = imageHeight * scale;
    }
    const int w = static_cast<int>(drawnWidth + 0.5);
    const int h = static_cast<int>(drawnHeight + 0.5);
    const int left = m_topLeft ? 0 : (width - w) / 2;
    const int top = m_topLeft ? 0 : (height - h) / 2;
    return RECT{left, top, left + w, top + h};
}

void PngControl::OnPaint()
{
    CPaintDC paint(this);
    Paint(paint.m_hDC);
}

LRESULT PngControl::OnPrintClient(WPARAM wParam, LPARAM /*lParam*/)
{
    Paint(reinterpret_cast<HDC>(wParam));
    return 0;
}

void PngControl::Paint(HDC dc)
{
    RECT client{};
    ::GetClientRect(m_hWnd, &client);
    // What the parent draws under the control shows through the image's transparent parts;
    // a parent that cannot print itself gives its static background colour instead.
    if (FAILED(::DrawThemeParentBackground(m_hWnd, dc, &client))) {
        HBRUSH background = reinterpret_cast<HBRUSH>(
            ::SendMessageW(::GetParent(m_hWnd), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                           reinterpret_cast<LPARAM>(m_hWnd)));
        ::FillRect(dc, &client, background != nullptr ? background : ::GetSysColorBrush(COLOR_3DFACE));
    }
    if (m_image == nullptr && !m_placeholder.empty()) {
        PictureOutline::draw(dc, client, m_placeholder);
        return;
    }
    const RECT target = ImageRect(client.right, client.bottom);
    if (target.right > target.left && target.bottom > target.top) {
        Gdiplus::Graphics graphics(dc);
        graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
        graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
        graphics.DrawImage(m_image, Gdiplus::Rect(target.left, target.top, target.right - target.left,
                                                  target.bottom - target.top));
    }
}
