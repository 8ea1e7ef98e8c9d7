#include "app/AboutDlg.h"

#include "app/Version.h"
#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {

CAboutDlg::CAboutDlg(HWND owner) : CDialog(IDD_ABOUT, owner) {}

BOOL CAboutDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetDlgItemText(IDC_ABOUT_VERSION, LoadText(IDS_VERSION) + " " + kVersion);
    return TRUE;
}

}  // namespace plotvane
