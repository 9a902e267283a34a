#pragma once
// The touchpad picture: the pad with a finger marker and the two buttons, repainted with every
// packet. It receives the device's packets itself and tells its parent of each one.
#include <afxwin.h>

#include "ISynapticsControl.h"
#include "LoadedPicture.h"
#include "PaintSurface.h"
#include "ScaledImages.h"
#include "SynapticsDevice.h"
#include "TouchPadModel.h"

class PictureFolder;

class CSynapticsTouchPadCtrl : public CWnd, public SynapticsDevice, public ISynapticsControl {
public:
    // Loads the pictures; the device starts when the window is created. Buttons not shown are
    // neither drawn nor demanded.
    CSynapticsTouchPadCtrl(long synHandle, bool bButtonsShown);
    ~CSynapticsTouchPadCtrl() override;

    // Called by the device wrapper for every packet, on the window's thread.
    long OnSynDevicePacket(long sequence) override;
    // Called by the device wrapper when the live device is gone: tells the parent.
    void OnSynDeviceRemoved() override;

    bool isFingerPresent() override;
    // The middle button counts as both left and right.
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
    // WM_CREATE: starts the device; refuses the window when it cannot be started.
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    // WM_DESTROY: the pad's size and the frames it garbled go to the run's report.
    afx_msg void OnDestroy();
    // The paint covers every pixel: nothing to erase.
    afx_msg BOOL OnEraseBkgnd(CDC* pDC);
    // WM_PAINT: the pad, the finger marker and the buttons composed off-screen, then copied.
    afx_msg void OnPaint();

    DECLARE_MESSAGE_MAP()

private:
    CSynapticsTouchPadCtrl(long synHandle, bool bButtonsShown, PictureFolder&& pictures);

    TouchPadModel m_model;
    LoadedPicture m_reticle;
    LoadedPicture m_pad;
    LoadedPicture m_left;
    LoadedPicture m_leftPressed;
    LoadedPicture m_right;
    LoadedPicture m_rightPressed;
    ScaledImages m_scaled;
    PaintSurface m_bases[2][2];  // pad and buttons, by left and right button held
    PaintSurface m_surface;      // the picture being composed
    long m_synHandle;
    bool m_started = false;   // the device started: there are figures to report
};
