#pragma once
// The dialog of the touchpad and TrackPoint tests: instructions, the device picture, a live
// status panel and the verdict buttons. It picks the device control by the device's type.
#include <memory>

#include "ISynapticsControl.h"
#include "RemovalWatch.h"
#include "harn5/TestResult.h"
#include "ksx/String.h"
#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"
#include "ksxui/StaticEdit.h"
#include "padkit/SynDeviceType.h"

class CSynapticsDlg : public KSXDialog {
public:
    // Builds the device control for the handle's type; no window yet.
    CSynapticsDlg(long synHandle, bool bThreeButtonDisplay);
    ~CSynapticsDlg() override;

    // CANNOTRUN until Pass, Fail or Cancel decides.
    harn5::TestResult m_result;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    // Re-acquires the device when the machine resumes, before the base procedure.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnInitDialog() override;
    // Cancel, Esc and the close box: USERABORTED.
    void OnCancel() override;

    // WM_CREATE: starts the status refresh.
    afx_msg int OnCreate(LPCREATESTRUCT lpCreateStruct);
    // WM_DESTROY: stops the refresh and destroys the device picture.
    afx_msg void OnDestroy();
    // WM_TIMER: the status rows follow the device.
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnBnClickedPass();
    afx_msg void OnBnClickedFail();
    // WM_SYN_PACKET from the device control: may release Pass.
    afx_msg LRESULT OnSynPacket(WPARAM wParam, LPARAM lParam);
    // WM_SYN_DEVICE_REMOVED from the device control: the run ends with FAIL, unless the machine
    // has just slept and the device may come back.
    afx_msg LRESULT OnSynDeviceRemoved(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void placeDeviceControl();
    void setTexts();
    void setItemText(int nID, const ksx::String& text);
    void showButtonRows(bool bShow);
    // Tries the device again while a removal waits; ends the run when its time is over.
    void tryDeviceAgain();
    void deviceCameBack();
    void endWithRemovedDevice();

    SynDeviceType m_synCtrlType;
    std::unique_ptr<CWnd> m_pSynCtrlWnd;
    ISynapticsControl* m_pSynCtrl;   // the same object as m_pSynCtrlWnd, or null
    StaticEdit m_instructions;
    HICON m_hIcon;
    bool m_bThreeButtonDisplay;
    CAutoTimer m_statusTimer;
    RemovalWatch m_removal;
    CAutoTimer m_returnTimer;        // runs while a removal waits
    bool m_bPassWasEnabled = false;  // before the wait took it
};
