// A button that stands for a file.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// A click opens the file. It is of use without a window, too: as a file together with the way to
// launch it.
class ORVANE_API MFileViewButton : public CButton {
 public:
  // viewer: the program that shows files to the user who only wants to look at them; empty: the
  // system's editor for plain text.
  explicit MFileViewButton(const char* path = nullptr, const char* viewer = nullptr)
      : m_path(path), m_viewer(viewer) {}

  void SetFile(const char* path) { m_path = path; }
  const CString& GetFile() const { return m_path; }
  void SetViewer(const char* program) { m_viewer = program; }

  // Opens the file with the program that is associated with its type; shows it in the viewer. 1, or
  // 0 when there is no file or the program could not be started; the user is not told.
  virtual int Open();
  virtual int View();

 protected:
  afx_msg void OnClicked() { Open(); }
  DECLARE_MESSAGE_MAP()

 private:
  CString m_path;
  CString m_viewer;
};
