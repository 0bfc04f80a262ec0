// A markup tree as one line of text, and a parser that keeps what it reported: what the tests of
// the markup subsystem compare.
#pragma once

#include <string>
#include <vector>

#include "markup/OXParser.h"

// Elements as name[attributes]{children}, strings as x='1', integers as x=1, attributes without a
// value as x; texts as "text", other objects as comment"text", cdata"...", markup"..." and pi"...".
std::string Describe(const COXParserElement& element);

// The same with every run of white space in texts as one blank, and none at their ends: what
// writing keeps of a text.
std::string DescribeUnwrapped(const COXParserElement& element);

struct Reported {
  int code;
  int line;
  int column;
  std::string message;
};

// Keeps the errors of another parser.
class Errors {
 public:
  explicit Errors(COXParser& parser);

  // "CODE LINE:COLUMN MESSAGE", several separated by "; ".
  std::string Text() const;
  const std::vector<Reported>& all() const { return m_all; }
  void Clear() { m_all.clear(); }

 private:
  std::vector<Reported> m_all;
};
