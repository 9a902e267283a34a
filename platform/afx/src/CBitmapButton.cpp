#include "afx/CBitmapButton.h"

#include <string>

namespace {

// A memory DC compatible with the target, with a bitmap selected, both released in turn.
class SelectedBitmap {
public:
    SelectedBitmap(HDC hdcTarget, HBITMAP hBitmap)
        : m_hdc(::CreateCompatibleDC(hdcTarget)),
          m_hOld(m_hdc != nullptr ? ::SelectObject(m_hdc, hBitmap) : nullptr)
    {
    }
    ~SelectedBitmap()
    {
        if (m_hdc != nullptr) {
            ::SelectObject(m_hdc, m_hOld);
            ::DeleteDC(m_hdc);
        }
    }
    SelectedBitmap(const SelectedBitmap&) = delete;
    SelectedBitmap& operator=(const SelectedBitmap&) = delete;

    HDC Get() const { return m_hOld != nullptr ? m_hdc : nullptr; }

private:
    HDC m_hdc;
    HGDIOBJ m_hOld;
};

// Loads an optional bitmap: TRUE when none is named or it loaded.
BOOL LoadNamed(CBitmap& bitmap, LPCTSTR lpszName)
{
    bitmap.DeleteObject();
    return lpszName == nullptr || bitmap.LoadBitmap(lpszName);
}

LPCTSTR ResourceName(UINT nID)
{
    return nID != 0 ? MAKEINTRESOURCEW(nID) : nullptr;
}

}  // namespace

CBitmapButton::CBitmapButton() = default;

CBitmapButton::~CBitmapButton() = default;

BOOL CBitmapButton::LoadBitmaps(LPCTSTR lpszBitmapResource, LPCTSTR lpszBitmapResourceSel,
                                LPCTSTR lpszBitmapResourceFocus,
                                LPCTSTR lpszBitmapResourceDisabled)
{
    BOOL allLoaded = lpszBitmapResource != nullptr && m_bitmap.LoadBitmap(lpszBitmapResource);
    if (!allLoaded) {
        m_bitmap.DeleteObject();
    }
    // Each is attempted so that a missing one does not hide the others.
    allLoaded = LoadNamed(m_bitmapSel, lpszBitmapResourceSel) && allLoaded;
    allLoaded = LoadNamed(m_bitmapFocus, lpszBitmapResourceFocus) && allLoaded;
    allLoaded = LoadNamed(m_bitmapDisabled, lpszBitmapResourceDisabled) && allLoaded;
    return allLoaded;
}

BOOL CBitmapButton::LoadBitmaps(UINT nIDBitmapResource, UINT nIDBitmapResourceSel,
                                UINT nIDBitmapResourceFocus, UINT nIDBitmapResourceDisabled)
{
    return LoadBitmaps(ResourceName(nIDBitmapResource), ResourceName(nIDBitmapResourceSel),
                       ResourceName(nIDBitmapResourceFocus),
                       ResourceName(nIDBitmapResourceDisabled));
}

BOOL CBitmapButton::AutoLoad(UINT nID, CWnd* pParent)
{
    if (pParent == nullptr || pParent->GetSafeHwnd() == nullptr) {
        return FALSE;
    }
    HWND hButton = ::GetDlgItem(pParent->GetSafeHwnd(), static_cast<int>(nID));
    if (hButton == nullptr ||
        (::GetWindowLongPtrW(hButton, GWL_STYLE) & BS_TYPEMASK) != BS_OWNERDRAW) {
        return FALSE;
    }
    if (!SubclassDlgItem(nID, pParent)) {
        return FALSE;
    }
    const int length = GetWindowTextLength();
    std::wstring name(static_cast<size_t>(length) + 1, L'\0');
    GetWindowText(name.data(), length + 1);
    name.resize(static_cast<size_t>(length));

    if (name.empty() || !LoadBitmaps((name + L"U").c_str())) {
        return FALSE;
    }
    // Only the up picture is required; the others are shown when the module has them.
    m_bitmapSel.LoadBitmap((name + L"D").c_str());
    m_bitmapFocus.LoadBitmap((name + L"F").c_str());
    m_bitmapDisabled.LoadBitmap((name + L"X").c_str());
    SizeToContent();
    return TRUE;
}

void CBitmapButton::SizeToContent()
{
    BITMAP bm{};
    if (m_hWnd == nullptr || m_bitmap.GetBitmap(&bm) == 0) {
        return;
    }
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, bm.bmWidth, bm.bmHeight,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CBitmapButton::DrawItem(LPDRAWITEMSTRUCT lpDIS)
{
    if (lpDIS == nullptr) {
        return;
    }
    const CBitmap* pBitmap = &m_bitmap;
    const UINT state = lpDIS->itemState;
    if ((state & ODS_SELECTED) != 0 && m_bitmapSel.GetSafeHandle() != nullptr) {
        pBitmap = &m_bitmapSel;
    } else if ((state & ODS_FOCUS) != 0 && m_bitmapFocus.GetSafeHandle() != nullptr) {
        pBitmap = &m_bitmapFocus;
    } else if ((state & ODS_DISABLED) != 0 && m_bitmapDisabled.GetSafeHandle() != nullptr) {
        pBitmap = &m_bitmapDisabled;
    }
    if (pBitmap->GetSafeHandle() == nullptr) {
        return;
    }
    SelectedBitmap source(lpDIS->hDC, *pBitmap);
    if (source.Get() == nullptr) {
        return;
    }
    const RECT& rc = lpDIS->rcItem;
    ::BitBlt(lpDIS->hDC, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, source.Get(), 0,
             0, SRCCOPY);
}
