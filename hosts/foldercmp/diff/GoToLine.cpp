#include "foldercmp/diff/GoToLine.h"

#include <algorithm>
#include <cstdlib>

#include "controls/MDialog.h"
#include "foldercmp/diff/diff_ids.h"
#include "settings/MString.h"

std::optional<int> AskForLine(int lines) {
  CString last, label;
  last.Format("%d", lines);
  AfxFormatString1(label, IDS_DIFF_GO_TO_LINE, last);

  MDialog dialog(AfxGetMainWnd());
  dialog.SetDialog(MDialog::kCentred, MDialog::kCentred, 150, 54,
                   MString::Loaded(IDS_DIFF_GO_TO_TITLE), 1, 1);
  dialog.SetTextBox(7, 9, 80, 8, label);
  MEditData& number = dialog.SetEdit(90, 7, 53, 12, "", ES_NUMBER | ES_AUTOHSCROLL);
  number.SetLimit(9);
  dialog.SetOkButton(41, 33, 50, 14, MString::Loaded(IDS_DIFF_OK));
  dialog.SetCancelButton(93, 33, 50, 14, MString::Loaded(IDS_DIFF_CANCEL));
  if (dialog.DoModal() != IDOK || number.GetText().IsEmpty()) return {};
  return std::clamp(std::atoi(number.GetText()), 1, std::max(1, lines)) - 1;
}
