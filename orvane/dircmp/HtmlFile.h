// A page that is being written. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>

#include "entry/DestinationFile.h"

class HtmlFile {
 public:
  // Begins a page, with its folders made when missing: head, style sheet, the opened body. Nothing
  // that it needs stands outside of it. title: already HTML. replaces: a file that stands there may
  // go when the page is finished; otherwise it is an error.
  HtmlFile(const CString& path, const std::string& title, bool replaces);

  HtmlFile& operator<<(std::string_view html);

  // Ends the page: 0, or the system's error of the first step that failed. Then, and without this,
  // nothing is left of it.
  DWORD Finish();

 private:
  void Flush();

  DestinationFile m_file;
  std::string m_buffer;
  DWORD m_error = 0;
};

// In the head of every page: tells a report's pages from other ones.
constexpr std::string_view kPageMark =
    "<meta name=\"generator\" content=\"orvane folder comparison\">";
