// What every report as a page has: its style sheet, its script, its colours. Inside the library
// only.
#pragma once

#include <afxwin.h>

#include <string_view>

extern const std::string_view kHtmlReportViewport, kHtmlReportStyle, kHtmlReportScript;

// A colour that can be read on a background: the one wanted, or a darker or lighter one of its hue
// (contrast of 4.5 to 1, WCAG 2.1, success criterion 1.4.3).
COLORREF ReadableOn(COLORREF background, COLORREF wanted);
