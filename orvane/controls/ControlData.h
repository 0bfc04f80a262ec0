// What a dialog that is laid out in code holds of each of its controls: where it is, what it shows,
// and its value, which outlives the window.
#pragma once

#include <afxwin.h>

#include <vector>

#include "entry/export.h"

// A text box, check box or icon, and the base of the other kinds. It belongs to its dialog.
//
// Values and texts go to the controls when the dialog opens, and come back when it is ended by OK
// or by UpdateData(TRUE). What is set while the dialog is open shows at once.
class ORVANE_API MControlData {
 public:
  // One window of a control. systemClass is the class's number in dialog templates.
  struct Window {
    WORD systemClass;
    DWORD style;  // without WS_CHILD and WS_VISIBLE
    CRect place;  // in the dialog's units
    UINT id;
    CString text;
  };
  enum : WORD { ButtonClass = 0x0080, EditClass, StaticClass, ListBoxClass };

  explicit MControlData(const Window& window) : m_windows{window} {}
  virtual ~MControlData() = default;
  MControlData(const MControlData&) = delete;
  MControlData& operator=(const MControlData&) = delete;

  // Of the first window.
  UINT GetId() const { return m_windows.front().id; }
  const CString& GetText() const { return m_windows.front().text; }
  void SetText(const char* text);

  BOOL IsEnabled() const { return m_enabled; }
  void Enable(BOOL enabled);

  // A check box: 0, 1, or 2 for undetermined. A radio group or list: the number of the chosen item
  // from 0, -1: none. 0 for the others.
  int GetVal() const { return m_value; }
  void SetVal(int value);

  // An icon, which stays the caller's, and is not destroyed while it is shown; null: none.
  void SetIcon(HICON icon);

  // --- For the dialog ---

  const std::vector<Window>& Windows() const { return m_windows; }
  // The windows are there, or null: there is none any more.
  void Attach(HWND dialog);
  virtual void ToWindow();
  virtual void FromWindow();

 protected:
  MControlData() = default;
  // A window of the open dialog. Null: it is not open.
  HWND Handle(size_t number = 0) const;
  bool IsOpen() const { return m_dialog != nullptr; }
  void AddWindow(const Window& window) { m_windows.push_back(window); }
  void StoreValue(int value) { m_value = value; }
  void StoreText(const CString& text) { m_windows.front().text = text; }

 private:
  std::vector<Window> m_windows;
  HWND m_dialog = nullptr;
  HICON m_icon = nullptr;
  BOOL m_enabled = TRUE;
  int m_value = 0;
};

// A button that the dialog may end with.
class ORVANE_API MPushButtonData : public MControlData {
 public:
  using MControlData::MControlData;
};

// Radio buttons, one below the other.
class ORVANE_API MRadioGroupData : public MControlData {
 public:
  // The place is divided among the texts, of which there is at least one. Ids count up from id.
  MRadioGroupData(const CRect& place, const std::vector<CString>& texts, int value, UINT id);
  void ToWindow() override;
  void FromWindow() override;
};

// An edit; its text is its value.
class ORVANE_API MEditData : public MControlData {
 public:
  using MControlData::MControlData;
  // The longest text that the user can type, in bytes; 0: the system's limit.
  void SetLimit(int bytes) { m_limit = bytes; }
  void ToWindow() override;
  void FromWindow() override;

 private:
  int m_limit = 0;
};

// A list box with one choice.
class ORVANE_API MListData : public MControlData {
 public:
  MListData(const Window& window, const std::vector<CString>& items, int value)
      : MControlData(window), m_items(items) {
    StoreValue(value);
  }
  const std::vector<CString>& Items() const { return m_items; }
  // The chosen item; empty: none is chosen.
  CString GetSelected() const;
  void ToWindow() override;
  void FromWindow() override;

 private:
  std::vector<CString> m_items;
};
