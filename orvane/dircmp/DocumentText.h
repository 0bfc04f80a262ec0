// A document's text for showing: its lines, in UTF-8.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>
#include <vector>

#include "entry/export.h"

// A line without its end, and that end: "\n", "\r\n", "\r", or empty in the last line of a text.
struct TextLine {
  std::string_view text;
  std::string_view end;
};

class ORVANE_API DocumentText {
 public:
  enum class Kind {
    Text,
    Binary,      // there are zero bytes, and it isn't UTF-16
    TooLarge,    // over kMostBytes or kMostLines
    Unreadable,  // can't be opened or read to its end
  };
  static constexpr int kMostBytes = 16 * 1024 * 1024;
  static constexpr int kMostLines = 500'000;

  DocumentText() = default;
  DocumentText(const DocumentText&) = delete;  // the lines point into the text
  DocumentText& operator=(const DocumentText&) = delete;

  // UTF-16 and UTF-8 are known by their byte-order mark, UTF-8 by being well-formed, too; any other
  // text is in the system's ANSI code page.
  Kind Load(const char* path);
  // The same with bytes in memory.
  Kind Assign(std::string bytes);

  const std::vector<TextLine>& lines() const { return m_lines; }

 private:
  bool SplitLines();

  std::string m_text;
  std::vector<TextLine> m_lines;
};

// A text of a code page in UTF-8; what is no character becomes U+FFFD or a question mark.
ORVANE_API std::string Utf8OfText(std::string_view text, UINT codePage = CP_ACP);
// A text in UTF-8, in lower case.
ORVANE_API std::string LowerUtf8(std::string_view text);
