// The dialog in which the user says which documents are compared, and how.
#pragma once

#include <afxwin.h>

#include "controls/MDialog.h"
#include "dircmp/DirCmpPrm.h"

class OptionsDialog : public MDialog {
 public:
  OptionsDialog(CWnd* owner, const DirCmpPrm& prm, bool marksColours);

  // After DoModal has given IDOK.
  DirCmpPrm Options() const;
  bool MarksColours() const { return m_colours->GetVal() != 0; }

 protected:
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  void OnOK() override;

 private:
  // Which of the types are compared, in the order of the radio buttons.
  enum TypeChoice { kAllTypes, kOnlyListed, kAllButListed };

  void AddTypes(const DirCmpPrm& prm);
  void AddComparison(const DirCmpPrm& prm);
  void AddButtons();
  MControlData& AddCheck(UINT textId, bool isOn);
  void AddLabel(UINT textId);
  // A place for a control of a height, below what there is; and a gap.
  int NextLine(int height);
  void Gap();

  DirCmpPrm m_prm;
  int m_bottom;  // of what there is, in dialog units
  MRadioGroupData* m_typeChoice;
  MEditData* m_types;
  MControlData* m_subFolders;
  MControlData* m_ignoreCase;
  MRadioGroupData* m_whiteSpace;
  MControlData* m_olderOnLeft;
  MControlData* m_colours;
};
