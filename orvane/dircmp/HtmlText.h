// Texts and addresses as they stand in a page (HTML 5, UTF-8). Inside the library only.
#pragma once

#include <afxwin.h>

#include <string>

#include "lists/ReportText.h"

// As HtmlOf of a text in UTF-8, for one in the ANSI code page.
std::string HtmlOf(const CString& text);
// The same for a text of the string table.
std::string TextHtml(UINT id);

// A path relative to the page, as an address: "/" for "\", everything but letters, digits and
// "-._~/" as %XX of its UTF-8 (RFC 3986, section 2).
std::string RelativeUrl(const CString& path);
// The same for a full path: "file:///C:/..." or "file://server/share/..." (RFC 8089, appendix E).
std::string FileUrl(const CString& path);
