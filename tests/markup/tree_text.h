// A markup tree as one line of text, and what a parser reported: what the tests of the markup
// subsystem compare.
#pragma once

#include <string>
#include <vector>

#include "markup/OXParser.h"

// Elements as name[attributes]{children}, strings as x='1', integers as x=1, attributes without a
// value as x; texts as "text", other objects as comment"text", cdata"...", markup"..." and pi"...".
// unwrapped: with what writing keeps of the white space in texts.
std::string Describe(const COXParserElement& element, bool unwrapped = false);

struct Reported {
  int code;
  int line;
  int column;
  std::string message;
};

// Keeps the errors of a parser.
class Errors {
 public:
  explicit Errors(COXParser& parser);
  Errors(const Errors&) = delete;
  Errors& operator=(const Errors&) = delete;

  // "CODE LINE:COLUMN MESSAGE", several separated by "; ".
  std::string Text() const;
  const std::vector<Reported>& all() const { return m_all; }

 private:
  std::vector<Reported> m_all;
};
