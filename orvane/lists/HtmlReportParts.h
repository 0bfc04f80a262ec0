// What pages are made of: their style sheets, the script, the colours. Inside the library only.
#pragma once

#include <afxwin.h>

#include <string_view>

// In the head of every page that the library writes; the style sheet stands before the page's own.
extern const std::string_view kHtmlPageViewport, kHtmlPageStyle;

// What a list's report adds.
extern const std::string_view kHtmlReportStyle, kHtmlReportScript;

// A colour that can be read on a background: the one wanted, or a darker or lighter one of its hue
// (contrast of 4.5 to 1, WCAG 2.1, success criterion 1.4.3).
COLORREF ReadableOn(COLORREF background, COLORREF wanted);
