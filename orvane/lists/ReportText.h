// Texts as reports hold them: in UTF-8. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string>
#include <string_view>

// A text in the ANSI code page; ASCII is given back as it is, anything else stands in the buffer.
// What is no character, and the control characters from U+0080 on, become U+FFFD.
std::string_view Utf8Of(std::string_view ansi, std::string& buffer);
std::string Utf8Of(const CString& text);

// Appends a text as the contents of an element or of a quoted attribute (HTML 5). Control
// characters but tab and line ends, which markup may not hold, become their pictures (U+2400 on).
void AppendHtml(std::string& html, std::string_view utf8);
std::string HtmlOf(std::string_view utf8);
// The same without escaping, for a CDATA section.
void AppendPrintable(std::string& text, std::string_view utf8);

// How many columns of a fixed font a text takes: wide characters take two, combining ones none.
size_t WidthOf(std::string_view utf8);
// How many bytes of a text take at most so many columns; at least one character.
size_t FittingBytes(std::string_view utf8, size_t width);
