// The bar for finding texts, at the upper edge of the difference window.
#pragma once

#include <afxwin.h>

#include <functional>
#include <string>

class FindBar : public CDialog {
 public:
  // onFind: the user wants the next place, or the previous one. onClose: the bar is to go.
  FindBar(std::function<void(bool forward)> onFind, std::function<void()> onClose);

  // Hidden at first.
  BOOL Create(CWnd* parent, bool matchCase, bool bothSides);
  int Height() const { return m_height; }  // pixels
  // The width that all controls need, in pixels; a search's result is beyond it.
  int LeastWidth() const { return m_leastWidth; }
  // Shows what came of the last search.
  void ShowResult(const CString& result);
  // Puts the focus into the bar, with the text selected.
  void Edit();

  std::string text() const;  // UTF-8
  bool matchCase() const;
  bool bothSides() const;
  bool HasFocus() const;

  BOOL PreTranslateMessage(MSG* message) override;

 protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;
  afx_msg void OnPrevious();
  DECLARE_MESSAGE_MAP()

 private:
  std::function<void(bool forward)> m_onFind;
  std::function<void()> m_onClose;
  HWND m_text = nullptr;  // the edit, a child of the bar
  int m_height = 0;
  int m_leastWidth = 0;
};
