// A dialog that is laid out in code, without a template in a resource.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

#include "controls/ControlData.h"
#include "controls/DialogMetrics.h"
#include "entry/export.h"

class DialogTemplate;

// The controls are added with their places in the client area, then DoModal or Create opens the
// dialog; it may be opened again. Keys work as in every dialog: Tab in the order of adding, Enter,
// Escape, and letters that follow an "&". Texts are in the system's code page.
//
// Places and sizes are in hundredths of a millimetre, or in dialog units when SetDialog says so.
// Text boxes, check boxes and edits break their texts into lines where the width asks for it, as
// GetTextSize measures them.
class ORVANE_API MDialog : public CDialog {
 public:
  // The ids that controls without an id of their own get count up from here.
  static constexpr UINT kFirstId = 1000;
  // For the position in SetDialog: in the middle of the owner, or of the work area.
  static constexpr int kCentred = -1;

  // owner: null for the main window.
  explicit MDialog(CWnd* owner = nullptr);
  ~MDialog() override;

  // --- Layout ---

  // The dialog itself; call it first. x, y: the place in the owner's client area, or on the screen
  // when there is no owner; both kCentred: see there. Wherever it is put, it is moved into the work
  // area. width, height: of the client area. interactive: the caption has a close box, which does
  // what Escape does. inDialogUnits: what all lengths are given in.
  void SetDialog(int x, int y, int width, int height, const char* caption, int interactive = 1,
                 int inDialogUnits = 0);
  void SetUnits(MDialogUnits units) { m_units = units; }
  MDialogUnits GetUnits() const { return m_units; }
  // Removes all controls; what was returned for them ends. Not while the dialog is open.
  void RemoveControls();

  // The size that a control of a kind needs to show a text whole, at the screen's resolution.
  // width: the text may be broken into lines so that the control is no wider than this; 0: it is
  // broken only at line breaks. (0, 0) for a text box with an empty text or null.
  CSize GetTextSize(const char* text, MControlKind kind = MControlKind::TextBox,
                    int width = 0) const;
  // The size of the client area of a dialog that fills the work area of its screen.
  CSize GetLargestSize() const;

  // --- Controls: what is returned belongs to the dialog ---

  // A text, in which "&" is an ordinary character. alignment: SS_LEFT, SS_CENTER or SS_RIGHT.
  MControlData& SetTextBox(int x, int y, int width, int height, const char* text,
                           DWORD alignment = SS_LEFT, UINT id = 0);
  // An icon, in the middle of its place.
  MControlData& SetIconBox(int x, int y, int width, int height, HICON icon, UINT id = 0);
  // style: a button style, BS_AUTO3STATE for a third value.
  MControlData& SetCheckButton(int x, int y, int width, int height, const char* text, int value = 0,
                               DWORD style = BS_AUTOCHECKBOX, UINT id = 0);
  // Radio buttons, one below the other; the ids are those from id on.
  MRadioGroupData& SetRadioGroup(int x, int y, int width, int height,
                                 const std::vector<CString>& texts, int value = 0, UINT id = 0);
  // style: further edit styles.
  MEditData& SetEdit(int x, int y, int width, int height, const char* text,
                     DWORD style = ES_AUTOHSCROLL, UINT id = 0);
  // value: the number of the chosen item, -1 for none.
  MListData& SetList(int x, int y, int width, int height, const std::vector<CString>& items,
                     int value = -1, UINT id = 0);
  // Enter presses the OK button unless the focus is on another one, Escape does the Cancel button.
  MPushButtonData& SetOkButton(int x, int y, int width, int height, const char* text);
  MPushButtonData& SetCancelButton(int x, int y, int width, int height, const char* text);
  // A button without a role, see OnPushButton.
  MPushButtonData& SetPushButton(int x, int y, int width, int height, const char* text,
                                 UINT id = 0);

  // --- Life ---

  // Shows the dialog until it is ended: IDOK, IDCANCEL, or what OnPushButton gave. -1: it could not
  // be shown, it is open already, or no dialog may be shown (AssertVerifyTrace::BlockGui).
  int DoModal() override;
  // Opens it modeless, still hidden; it is destroyed by OK and Cancel. FALSE in the cases above.
  BOOL Create(CWnd* owner = nullptr);

  BOOL OnInitDialog() override;
  BOOL CheckAutoCenter() override { return FALSE; }  // OnInitDialog has placed it

 protected:
  // A button without a role was pressed: ends the dialog with the button's id.
  virtual void OnPushButton(MPushButtonData& button);
  // OnOK takes the values and ends the dialog; it does nothing when there is no OK button. Both
  // destroy the window of a modeless dialog.
  void OnOK() override;
  void OnCancel() override;
  // Ends the dialog, modal or modeless.
  void Finish(int result);

  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  void PostNcDestroy() override;

 private:
  DialogMetrics& Metrics() const;
  UINT NextId(UINT wanted, UINT count = 1);
  template <class Data>
  Data& Keep(std::unique_ptr<Data> data);
  MPushButtonData& AddButton(const CRect& place, const char* text, DWORD style, UINT id);
  // What stands between the places and the screen.
  void Place();
  DialogTemplate Template() const;
  DWORD Style() const;
  HWND OwnerWindow() const;

  CString m_caption;
  CRect m_place;
  MDialogUnits m_units = MDialogUnits::HundredthsOfMillimetre;
  int m_interactive = 1;
  bool m_modal = false;
  UINT m_nextId = kFirstId;
  std::vector<std::unique_ptr<MControlData>> m_controls;
  mutable std::unique_ptr<DialogMetrics> m_metrics;
};
