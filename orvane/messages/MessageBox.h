// A message box that is laid out when it is shown: lines of text, up to three check boxes, a row of
// buttons.
#pragma once

#include <afxwin.h>

#include <vector>

#include "controls/MDialog.h"
#include "entry/export.h"

class ORVANE_API MMessageBox : public MDialog {
 public:
  enum MessageButtonStyle {
    MB_STYLE_OK,
    MB_STYLE_OK_CANCEL,
    MB_STYLE_OK_STOP,
    MB_STYLE_YES_NO,
    MB_STYLE_OK_RETRY
  };
  static const int kCheckBoxes = 3;
  static const int kMostLines = 20;

  MMessageBox() = default;
  MMessageBox(const char* title, const char* text) { Initialize(title, text); }

  // title: null or empty for the program's name. The text is shown in lines that end with CR, LF or
  // both; past the 20th they are left out (ASSERT). Lines that are too long for the screen are
  // broken, and what has no room even then can be scrolled.
  void Initialize(const char* title, const char* text);
  void SetButtonStyle(MessageButtonStyle style) { m_buttonStyle = style; }
  // An icon of the system (IDI_...), or one in the program or its extension modules. null: none.
  void SetIcon(const char* resourceName);

  // Check boxes have the indices 0 to 2 (ASSERT otherwise, and nothing is done). style: one of a
  // button; it makes a check box whatever it is, with three values when it asks for them. A check
  // box without text is not shown.
  void SetCheckBox(int index, const char* text, DWORD style = BS_AUTOCHECKBOX);
  void SetCheckBox(const char* text, DWORD style = BS_AUTOCHECKBOX) { SetCheckBox(0, text, style); }
  // The value before and after the box is shown, whichever button was pressed: 0, 1, or 2 for
  // undetermined.
  void SetVal(int index, int value);
  int GetVal(int index) const;
  void EnableCheckBox(int index, BOOL enable);

  // Shows it. IDOK: the first button; IDCANCEL: the second one, Escape or the close box, which mean
  // OK when there is no second button. IDOK at once where no window may be shown
  // (AssertVerifyTrace::BlockGui); -1: the box could not be created.
  int DoModal() override;
  BOOL OnInitDialog() override;

 protected:
  void OnCancel() override;

 private:
  struct CheckBox {
    CString text;
    DWORD style = BS_AUTOCHECKBOX;
    BOOL enabled = TRUE;
    int value = 0;
    MControlData* control = nullptr;  // while the box is shown
  };
  // The sizes of everything, for one width of the lines.
  struct Sizes {
    std::vector<CSize> lines;
    CSize text;
    CSize checks[kCheckBoxes];
    CSize button;
    int left;  // of the text
    CSize whole;
  };

  static bool IsIndex(int index);
  HICON Icon() const;
  void SplitLines();
  // lineWidth: lines and check boxes are broken so as to be no wider.
  Sizes CalcSize(int lineWidth) const;
  // Sizes that fit on the screen. Of a text that does not with any width, the block is lower than
  // the lines are together.
  Sizes FittingSizes() const;
  void AddText(const Sizes& sizes);
  void AddControls(const Sizes& sizes);

  CString m_title;
  CString m_text;
  std::vector<CString> m_lines;
  MessageButtonStyle m_buttonStyle = MB_STYLE_OK;
  CheckBox m_checkBoxes[kCheckBoxes];
  const char* m_iconId = nullptr;  // a number in a pointer, or null
  CString m_iconName;
};
