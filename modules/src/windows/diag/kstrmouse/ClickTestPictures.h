#pragma once
// The click test's pictures: every file, the control that shows it in each layout, and showing,
// hiding and repainting them in the dialog. Files are looked for under the working directory and
// beside the executable; a target the user must hit whose file is missing shows as a plain
// labelled outline instead of nothing.
#include <afxwin.h>

#include <memory>
#include <vector>

#include "LoadedPicture.h"
#include "ksxui/PngControl.h"

class ClickTestPictures {
public:
    // Loads the files; `dialog` is the window whose controls show them.
    ClickTestPictures(CWnd& dialog, bool gaming);
    ~ClickTestPictures();
    ClickTestPictures(const ClickTestPictures&) = delete;
    ClickTestPictures& operator=(const ClickTestPictures&) = delete;

    // Binds each picture of the layout to its control (DoDataExchange).
    void bind(CDataExchange* pDX);
    // Puts the control's picture (or its outline) in, repaints it and shows or hides it.
    void set(int controlId, bool show);
    // Any control of the dialog, shown or hidden as ShowWindow does.
    void show(int controlId, int nCmdShow);
    void hideIfVisible(int controlId);
    // Shows one picture of the mouse area and hides the others; 0 hides them all.
    void showMouse(int controlId);
    // Repaints a control at once, before a pause.
    void drawNow(int controlId);

private:
    struct Picture;
    Picture* pictureFor(int controlId);

    CWnd& m_dialog;
    std::vector<std::unique_ptr<Picture>> m_pictures;
};
