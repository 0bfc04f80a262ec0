#include "foldercmp/AboutDialog.h"

#include "foldercmp/resource.h"
#include "resources/resource.h"

BEGIN_MESSAGE_MAP(AboutDialog, CDialog)
ON_BN_CLICKED(IDC_ABOUT_LIBRARY, &AboutDialog::OnLibrary)
END_MESSAGE_MAP()

AboutDialog::AboutDialog(CWnd* owner) : CDialog(IDD_ABOUT_PROGRAM, owner) {}

BOOL AboutDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  CString name;
  GetDlgItemText(IDC_ABOUT_VERSION, name);
  SetDlgItemText(IDC_ABOUT_VERSION, name + " " ORVANE_VERSION);
  return TRUE;
}

void AboutDialog::OnLibrary() { CDialog(IDD_ABOUT_LIBRARY, this).DoModal(); }
