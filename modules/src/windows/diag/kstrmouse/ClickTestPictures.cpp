#include "ClickTestPictures.h"

#include <string>

#include "PictureFolder.h"
#include "Registration.h"
#include "harn5/ProcessEnvironment.h"
#include "resource.h"

namespace texts = kstrmouse::texts;

struct ClickTestPictures::Picture {
    std::unique_ptr<LoadedPicture> file;
    PngControl control;
    int controlId = 0;  // 0: not shown in this layout
};

namespace {

// Every picture file, in loading order, with its control in each layout (0: not shown there).
// The drag step has its own copies of the double-click target and success pictures.
struct PictureFile {
    const char* name;
    int defaultControl;
    int gamingControl;
};
const PictureFile kPictureFiles[] = {
    {"mouse_default.png", IDC_CT_MOUSE_START, 0},
    {"mouse_left_clicked.png", IDC_CT_LEFT_PRESSED, 0},
    {"mouse_left_click_success.png", IDC_CT_LEFT_SUCCESS, 0},
    {"mouse_right_clicked.png", IDC_CT_RIGHT_PRESSED, 0},
    {"mouse_right_click_success.png", IDC_CT_RIGHT_SUCCESS, 0},
    {"mouse_middle_clicked.png", IDC_CT_MIDDLE_PRESSED, 0},
    {"mouse_click_final_success.png", IDC_CT_MIDDLE_SUCCESS, 0},
    {"mouse_click_final_success_middle_skipped.png", IDC_CT_MIDDLE_SKIPPED, 0},
    {"mouse_side_button_default.png", 0, IDC_CT_MOUSE_START},
    {"mouse_side_button_left_clicked.png", 0, IDC_CT_LEFT_PRESSED},
    {"mouse_side_button_left_success.png", 0, IDC_CT_LEFT_SUCCESS},
    {"mouse_side_button_right_clicked.png", 0, IDC_CT_RIGHT_PRESSED},
    {"mouse_side_button_right_click_success.png", 0, IDC_CT_RIGHT_SUCCESS},
    {"mouse_side_button_middle_clicked.png", 0, IDC_CT_MIDDLE_PRESSED},
    {"mouse_side_button_middle_success.png", 0, IDC_CT_MIDDLE_SUCCESS},
    {"mouse_side_button_middle_skipped.png", 0, IDC_CT_MIDDLE_SKIPPED},
    {"mouse_side_button_1_clicked.png", 0, IDC_CT_SIDE1_PRESSED},
    {"mouse_side_button_1_clicked_middle_skipped.png", 0, IDC_CT_SIDE1_PRESSED_SKIPPED},
    {"mouse_side_button_1_success.png", 0, IDC_CT_SIDE1_SUCCESS},
    {"mouse_side_button_1_success_middle_skipped.png", 0, IDC_CT_SIDE1_SUCCESS_SKIPPED},
    {"mouse_side_button_2_clicked.png", 0, IDC_CT_SIDE2_PRESSED},
    {"mouse_side_button_2_clicked_middle_skipped.png", 0, IDC_CT_SIDE2_PRESSED_SKIPPED},
    {"mouse_side_button_2_success.png", 0, IDC_CT_SIDE2_SUCCESS},
    {"mouse_side_button_2_success_middle_skipped.png", 0, IDC_CT_SIDE2_SUCCESS_SKIPPED},
    {"double_click_drag_target.png", IDC_CT_DOUBLE_CLICK_TARGET, IDC_CT_DOUBLE_CLICK_TARGET},
    {"double_click_drag_target_hover.png", IDC_CT_DOUBLE_CLICK_HOVER, IDC_CT_DOUBLE_CLICK_HOVER},
    {"double_click_drag_success.png", IDC_CT_DOUBLE_CLICK_SUCCESS, IDC_CT_DOUBLE_CLICK_SUCCESS},
    {"drag_item.png", IDC_CT_DRAG_ITEM, IDC_CT_DRAG_ITEM},
    {"double_click_drag_target.png", IDC_CT_DROP_AREA, IDC_CT_DROP_AREA},
    {"double_click_drag_success.png", IDC_CT_DROP_SUCCESS, IDC_CT_DROP_SUCCESS},
    {"close.png", IDC_CT_CLOSE, IDC_CT_CLOSE},
    {"scroll_up_down_success.png", IDC_CT_WHEEL_SUCCESS, IDC_CT_WHEEL_SUCCESS},
    {"scroll_up_indicator.png", IDC_CT_WHEEL_UP, IDC_CT_WHEEL_UP},
    {"scroll_down_indicator.png", IDC_CT_WHEEL_DOWN, IDC_CT_WHEEL_DOWN},
};
constexpr const char* kPictureFolder = "resources//kstrmouse//";

// The mouse area: these pictures lie on one rectangle and one shows at a time.
const int kMousePictures[] = {
    IDC_CT_MOUSE_START, IDC_CT_LEFT_PRESSED, IDC_CT_LEFT_SUCCESS, IDC_CT_RIGHT_PRESSED,
    IDC_CT_RIGHT_SUCCESS, IDC_CT_MIDDLE_PRESSED, IDC_CT_MIDDLE_SUCCESS, IDC_CT_MIDDLE_SKIPPED,
    IDC_CT_SIDE1_PRESSED, IDC_CT_SIDE1_PRESSED_SKIPPED, IDC_CT_SIDE1_SUCCESS, IDC_CT_SIDE1_SUCCESS_SKIPPED,
    IDC_CT_SIDE2_PRESSED, IDC_CT_SIDE2_PRESSED_SKIPPED, IDC_CT_SIDE2_SUCCESS, IDC_CT_SIDE2_SUCCESS_SKIPPED,
};

// What the user must hit: without its file, a labelled outline shows where.
std::wstring targetLabel(int controlId)
{
    const harn5::LocalizedString* key = nullptr;
    switch (controlId) {
    case IDC_CT_DOUBLE_CLICK_TARGET: key = texts::PictureDoubleClickTarget; break;
    case IDC_CT_DRAG_ITEM: key = texts::PictureDragItem; break;
    case IDC_CT_DROP_AREA: key = texts::PictureDropArea; break;
    case IDC_CT_CLOSE: return L"X";
    default: return {};
    }
    return reinterpret_cast<const wchar_t*>(key->localizedString().getUCS2Buffer());
}

}  // namespace

ClickTestPictures::ClickTestPictures(CWnd& dialog, bool gaming) : m_dialog(dialog)
{
    PictureFolder folder(kPictureFolder, harn5::ProcessEnvironment::executableFolder());
    for (const PictureFile& file : kPictureFiles) {
        auto picture = std::make_unique<Picture>();
        picture->file = std::make_unique<LoadedPicture>(folder.find(file.name));
        picture->controlId = gaming ? file.gamingControl : file.defaultControl;
        m_pictures.push_back(std::move(picture));
    }
}

ClickTestPictures::~ClickTestPictures()
{
    // Newest picture first; within a picture the control goes before the image it paints.
    while (!m_pictures.empty()) {
        m_pictures.pop_back();
    }
}

void ClickTestPictures::bind(CDataExchange* pDX)
{
    for (const auto& picture : m_pictures) {
        if (picture->controlId != 0) {
            DDX_Control(pDX, picture->controlId, picture->control);
        }
    }
}

void ClickTestPictures::set(int controlId, bool show)
{
    Picture* picture = pictureFor(controlId);
    if (picture == nullptr) {
        return;
    }
    if (Gdiplus::Image* image = picture->file->image()) {
        picture->control.SetImage(*image, true, false, false);
    } else {
        picture->control.SetPlaceholder(targetLabel(controlId));
    }
    picture->control.InvalidateRect(nullptr, TRUE);
    picture->control.ShowWindow(show ? SW_SHOW : SW_HIDE);
}

void ClickTestPictures::show(int controlId, int nCmdShow)
{
    if (CWnd* control = m_dialog.GetDlgItem(controlId)) {
        control->ShowWindow(nCmdShow);
    }
}

void ClickTestPictures::hideIfVisible(int controlId)
{
    CWnd* control = m_dialog.GetDlgItem(controlId);
    // The control's own style: it counts also while the dialog itself is not shown yet.
    if (control != nullptr && (::GetWindowLongW(control->m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0) {
        control->ShowWindow(SW_HIDE);
    }
}

void ClickTestPictures::showMouse(int controlId)
{
    for (const int id : kMousePictures) {
        if (id != controlId) {
            hideIfVisible(id);
        }
    }
    if (controlId != 0) {
        show(controlId, SW_SHOW);
    }
}

void ClickTestPictures::drawNow(int controlId)
{
    if (CWnd* control = m_dialog.GetDlgItem(controlId)) {
        control->UpdateWindow();
    }
}

ClickTestPictures::Picture* ClickTestPictures::pictureFor(int controlId)
{
    for (const auto& picture : m_pictures) {
        if (picture->controlId == controlId) {
            return picture.get();
        }
    }
    return nullptr;
}
