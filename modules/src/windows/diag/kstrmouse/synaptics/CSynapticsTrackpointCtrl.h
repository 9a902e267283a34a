#pragma once
// The TrackPoint picture: the stick's reading as a marker and, when shown, the three buttons.
// Packets only update what was seen; a 50 ms timer repaints.
#include <afxwin.h>

#include <string>

#include "ISynapticsControl.h"
#include "LoadedPicture.h"
#include "PaintSurface.h"
#include "ScaledImages.h"
#include "SynapticsDevice.h"
#include "TrackpointModel.h"
#include "harn5/LocalizedString.h"
#include "ksxui/CAutoTimer.h"

class PictureFolder;

class CSynapticsTrackpointCtrl : public CWnd, public ISynapticsControl, public SynapticsDevice {
public:
    // Loads the pictures; the device starts when the window is created. Without
    // bThreeButtonDisplay no buttons are drawn nor needed for completion.
    CSynapticsTrackpointCtrl(long synHandle, bool bThreeButtonDisplay);
    ~CSynapticsTrackpointCtrl() override;

    // Called by the device wrapper for every packet, on the window's thread.
    long OnSynDevicePacket(long sequence) override;
    // Called by the device wrapper when the live device is gone: tells the parent.
    void OnSynDeviceRemoved() override;

    // A stick has no finger to lift: always true.
    bool isFingerPresent() override;
    bool leftButtonPressed() override;
    bool middleButtonPressed() override;
    bool rightButtonPressed() override;
    bool hasMoved() override;
    int getX() override;
    int getY() override;
    int getWidth() override;
    bool isTestComplete() override;
    bool reaquireDevice() override;

protected:
    // WM_CREATE: starts the device and the repaint timer; refuses the window without a device.
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    // WM_DESTROY: stops the repaint timer.
    afx_msg void OnDestroy();
    // The paint covers every pixel: nothing to erase.
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    // WM_PAINT: the stick area and the buttons composed off-screen, then copied.
    afx_msg void OnPaint();
    // WM_TIMER: the repaint timer redraws the whole picture at once.
    afx_msg void OnTimer(UINT_PTR nIDEvent);

    DECLARE_MESSAGE_MAP()

private:
    CSynapticsTrackpointCtrl(long synHandle, bool bThreeButtonDisplay, PictureFolder&& pictures);
    // Blends a button picture onto the picture being composed; its outline, filled while held,
    // when its file is missing.
    void drawButton(const LoadedPicture& picture, const PixelRect& place, const harn5::LocalizedString* label,
                    bool held);

    LoadedPicture m_stick;
    LoadedPicture m_left;
    LoadedPicture m_center;
    LoadedPicture m_right;
    LoadedPicture m_leftPressed;
    LoadedPicture m_centerPressed;
    LoadedPicture m_rightPressed;
    ScaledImages m_scaled;
    PaintSurface m_surface;  // the picture being composed
    CBrush m_areaBrush;
    TrackpointModel m_model;
    long m_synHandle;
    CAutoTimer m_repaintTimer;
};
