#include "foldercmp/OptionsDialog.h"

#include <algorithm>

#include "foldercmp/HostTexts.h"
#include "foldercmp/TypeList.h"
#include "foldercmp/resource.h"
#include "messages/message.h"

namespace {

// Lengths are in dialog units.
constexpr int kMargin = 7, kGap = 7, kBetween = 3, kIndent = 10;
constexpr int kLine = 10, kEditHeight = 12, kButtonHeight = 14, kLeastButton = 50;
constexpr int kWidth = 210, kInside = kWidth - 2 * kMargin;
constexpr UINT kTypeChoiceId = 2000, kTypesId = 2010;
constexpr int kMostTypes = 250;  // what a registry value is read back from

std::vector<CString> texts(UINT firstId, UINT count) {
  std::vector<CString> list;
  for (UINT id = firstId; id < firstId + count; ++id) list.push_back(MString::Loaded(id));
  return list;
}

}  // namespace

OptionsDialog::OptionsDialog(CWnd* owner, const DirCmpPrm& prm, bool marksColours)
    : MDialog(owner), m_prm(prm), m_bottom(kMargin - kBetween) {
  SetUnits(MDialogUnits::OfDialog);
  AddTypes(prm);
  Gap();
  AddComparison(prm);
  Gap();
  m_olderOnLeft = &AddCheck(IDS_OPTIONS_OLDER_LEFT, prm.m_olderOnLeft != 0);
  m_colours = &AddCheck(IDS_OPTIONS_COLOURS, marksColours);
  Gap();
  AddButtons();
  SetDialog(kCentred, kCentred, kWidth, m_bottom + kMargin, MString::Loaded(IDS_OPTIONS_TITLE), 1,
            1);
}

int OptionsDialog::NextLine(int height) {
  const int top = m_bottom + kBetween;
  m_bottom = top + height;
  return top;
}

void OptionsDialog::Gap() { m_bottom += kGap - kBetween; }

void OptionsDialog::AddLabel(UINT textId) {
  const CString text = MString::Loaded(textId);
  const int height = GetTextSize(text, MControlKind::TextBox, kInside).cy;
  SetTextBox(kMargin, NextLine(height), kInside, height, text);
}

MControlData& OptionsDialog::AddCheck(UINT textId, bool isOn) {
  const CString text = MString::Loaded(textId);
  const int height = std::max<int>(kLine, GetTextSize(text, MControlKind::CheckBox, kInside).cy);
  return SetCheckButton(kMargin, NextLine(height), kInside, height, text, isOn);
}

void OptionsDialog::AddTypes(const DirCmpPrm& prm) {
  const TypeChoice choice = prm.m_typeList.IsEmpty()        ? kAllTypes
                            : prm.m_excludeListedTypes == 0 ? kOnlyListed
                                                            : kAllButListed;
  AddLabel(IDS_OPTIONS_DOCUMENTS);
  const int radios = 3 * (kLine + kBetween);
  m_typeChoice = &SetRadioGroup(kMargin + kIndent, NextLine(radios), kInside - kIndent, radios,
                                texts(IDS_OPTIONS_ALL_TYPES, 3), choice, kTypeChoiceId);
  const int left = kMargin + 2 * kIndent, width = kInside - 2 * kIndent;
  m_types = &SetEdit(left, NextLine(kEditHeight), width, kEditHeight, prm.m_typeList,
                     ES_AUTOHSCROLL, kTypesId);
  m_types->SetLimit(kMostTypes);
  m_types->Enable(choice != kAllTypes);
  const CString hint = MString::Loaded(IDS_OPTIONS_TYPES_HINT);
  const int height = GetTextSize(hint, MControlKind::TextBox, width).cy;
  SetTextBox(left, NextLine(height), width, height, hint);
  m_subFolders = &AddCheck(IDS_OPTIONS_SUB_FOLDERS, (prm.m_scanFlags & kScanSubFolders) != 0);
}

void OptionsDialog::AddComparison(const DirCmpPrm& prm) {
  AddLabel(IDS_OPTIONS_WHITE_SPACE);
  const int radios = 3 * (kLine + kBetween);
  m_whiteSpace = &SetRadioGroup(kMargin + kIndent, NextLine(radios), kInside - kIndent, radios,
                                texts(IDS_OPTIONS_SPACE_FIRST, 3), prm.m_whiteSpaceMode);
  m_ignoreCase = &AddCheck(IDS_OPTIONS_IGNORE_CASE, prm.m_ignoreCase != 0);
}

void OptionsDialog::AddButtons() {
  const CString ok = MString::Loaded(IDS_BUTTON_PLAIN_OK),
                cancel = MString::Loaded(IDS_BUTTON_PLAIN_CANCEL);
  const int width =
      std::max({kLeastButton, static_cast<int>(GetTextSize(ok, MControlKind::PushButton).cx),
                static_cast<int>(GetTextSize(cancel, MControlKind::PushButton).cx)});
  const int top = NextLine(kButtonHeight), right = kWidth - kMargin;
  SetOkButton(right - 2 * width - kBetween, top, width, kButtonHeight, ok);
  SetCancelButton(right - width, top, width, kButtonHeight, cancel);
}

DirCmpPrm OptionsDialog::Options() const {
  DirCmpPrm prm = m_prm;
  const int choice = m_typeChoice->GetVal();
  prm.m_typeList = choice == kAllTypes ? CString() : NormalizedTypeList(m_types->GetText());
  prm.m_excludeListedTypes = choice == kAllButListed && !prm.m_typeList.IsEmpty();
  prm.m_scanFlags = m_subFolders->GetVal() != 0 ? kScanSubFolders : 0;
  prm.m_ignoreCase = m_ignoreCase->GetVal();
  prm.m_whiteSpaceMode = m_whiteSpace->GetVal();
  prm.m_olderOnLeft = m_olderOnLeft->GetVal();
  return prm;
}

// The edit can be used when there is a list to be made.
BOOL OptionsDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
  const UINT id = LOWORD(wParam);
  if (HIWORD(wParam) == BN_CLICKED && id >= kTypeChoiceId && id <= kTypeChoiceId + kAllButListed)
    m_types->Enable(id != kTypeChoiceId + kAllTypes);
  return MDialog::OnCommand(wParam, lParam);
}

void OptionsDialog::OnOK() {
  CString types;
  GetDlgItemText(kTypesId, types);
  const bool needsTypes = !IsDlgButtonChecked(kTypeChoiceId + kAllTypes);
  if (needsTypes && NormalizedTypeList(types).IsEmpty()) {
    Message::DisplayMessage(Message::MSG_INFO, IDS_OPTIONS_NO_TYPES);
    if (CWnd* const edit = GetDlgItem(kTypesId)) edit->SetFocus();
    return;
  }
  MDialog::OnOK();
}
