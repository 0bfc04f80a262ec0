// What the parser's tokenizer found last.
#pragma once

#include "entry/export.h"

class ORVANE_API COXToken {
 public:
  enum Type {
    NONE = -1,        // nothing yet
    TAG_START = 0,    // "<" before anything else
    END_TAG_START,    // "</"
    PI_START,         // "<?"
    TAG_CLOSE = 4,    // ">"
    EMPTY_TAG_CLOSE,  // "/>"
    COMMENT_START,    // "<!--"
    MARKUP_START,     // "<!" before anything but "--"
    COMMENT_END,      // "-->"
    EQUALS,           // "="
    DOUBLE_QUOTE,
    SINGLE_QUOTE,
    TEXT  // anything else; the tokenizer stands on its first character
  };

  COXToken() { Clear(); }
  ~COXToken() { Clear(); }
  COXToken(const COXToken&) = default;
  COXToken& operator=(const COXToken&) = default;

  void Clear() { m_type = NONE; }
  int GetType() const { return m_type; }
  void SetType(int type) { m_type = type; }

 private:
  int m_type;
};
