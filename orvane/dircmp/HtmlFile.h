// A page that is being written. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>

#include "entry/Handles.h"

class HtmlFile {
 public:
  // Begins a page in a file that isn't there yet, with its folders made when missing: head, style
  // sheet, the opened body. Nothing that it needs stands outside of it. title: already HTML.
  HtmlFile(const CString& path, const std::string& title);

  HtmlFile& operator<<(std::string_view html);

  // Ends the page: 0, or the system's error of the first step that failed.
  DWORD Finish();

 private:
  void Flush();

  unique_file m_file;
  std::string m_buffer;
  DWORD m_error = 0;
};

// In the head of every page: tells a report's pages from other ones.
constexpr std::string_view kPageMark =
    "<meta name=\"generator\" content=\"orvane folder comparison\">";
