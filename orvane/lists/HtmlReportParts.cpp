#include "lists/HtmlReportParts.h"

#include <algorithm>
#include <cmath>

const std::string_view kHtmlPageViewport =
    "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n";

const std::string_view kHtmlPageStyle =
    R"(:root { color-scheme: light; --line: #dde1e6; --quiet: #59636e; --accent: #0b5cad; --shade: #f6f7f9; }
* { box-sizing: border-box; }
body { margin: 0; padding: 2rem clamp(1rem, 3vw, 3rem); color: #1b1f24; background: #fff;
  font: 0.9375rem/1.45 "Segoe UI", system-ui, "Liberation Sans", Arial, sans-serif; }
h1 { margin: 0; font-size: 1.5rem; line-height: 1.25; font-weight: 600; overflow-wrap: anywhere; }
a { color: var(--accent); text-underline-offset: 0.15em; }
a:focus-visible, button:focus-visible { outline: 2px solid var(--accent); outline-offset: 2px; border-radius: 2px; }
table { width: 100%; border-collapse: separate; border-spacing: 0; font-variant-numeric: tabular-nums; }
th, td { padding: 0.4rem 0.75rem; text-align: left; vertical-align: top; border-bottom: 1px solid var(--line); overflow-wrap: anywhere; }
th { position: sticky; top: 0; z-index: 1; background: #fff; border-bottom: 2px solid #b8c0c8; font-weight: 600; }
td a { color: inherit; text-decoration-color: color-mix(in srgb, currentcolor 40%, transparent); }
@media screen and (max-width: 40rem) {
  body { padding: 1.25rem 1rem; }
  table, thead, tbody, tr, td, th { display: block; }
}
@media print {
  body { padding: 0; font-size: 9pt; color: #000; }
  a { color: inherit; text-decoration: none; }
  th { position: static; }
  th, td { padding: 2pt 5pt; }
  thead { display: table-header-group; }
  tr, h1 { break-inside: avoid; }
  tr { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
)";

// On a narrow screen a row becomes a block with a line a cell; on paper the titles are on every
// page.
const std::string_view kHtmlReportStyle =
    R"(header { margin-bottom: 1.5rem; }
header p { margin: 0.25rem 0 0; color: var(--quiet); overflow-wrap: anywhere; }
header .secondary { margin-bottom: 0.75rem; color: inherit; font-size: 1.0625rem; }
th { white-space: nowrap; }
td { min-width: 5rem; white-space: pre-wrap; }
tbody tr:hover td { box-shadow: inset 0 0 0 100vmax rgb(11 92 173 / 5%); }
th:first-child, td:first-child { padding-left: 0.375rem; }
th button { all: unset; position: relative; cursor: pointer; }
th button::after { content: "\2193"; position: absolute; left: 100%; padding-left: 0.2em; color: var(--accent); visibility: hidden; }
th[aria-sort] button::after { visibility: visible; }
th[aria-sort="ascending"] button::after { content: "\2191"; }
th button:hover { color: var(--accent); }
footer { margin-top: 1.5rem; color: var(--quiet); font-size: 0.8125rem; }
@media screen and (max-width: 40rem) {
  thead tr { display: flex; flex-wrap: wrap; gap: 0.5rem; padding-bottom: 0.75rem; }
  th, th:first-child { position: static; padding: 0; border: 0; font-size: 0.875rem; }
  th button { padding: 0.3rem 0.7rem; border: 1px solid var(--line); border-radius: 1rem; font-weight: 500; }
  th button::after { position: static; }
  th:not([aria-sort]) button::after { content: none; }
  tbody tr { padding: 0.6rem 0; border-top: 1px solid var(--line); }
  td, td:first-child { display: grid; grid-template-columns: minmax(6rem, 30%) 1fr; gap: 0.75rem; padding: 0.1rem 0; border: 0; }
  td::before { color: var(--quiet); font-size: 0.8125rem; line-height: 1.7; white-space: normal; }
}
@media print {
  th, td { min-width: 0; }
  th button::after { display: none; }
}
)";

// Without the script the page is the same but for the sorting.
const std::string_view kHtmlReportScript = R"(<script>
(function () {
  "use strict";
  var table = document.querySelector("table"), body = table.tBodies[0];
  var collator = new Intl.Collator(undefined, { numeric: true, sensitivity: "base" });
  function sort(header) {
    var down = header.getAttribute("aria-sort") === "ascending";
    var typed = header.hasAttribute("data-typed"), column = header.cellIndex;
    var entries = Array.from(body.rows, function (row) {
      var cell = row.cells[column];
      return { row: row, key: typed ? Number(cell.dataset.sort) : cell.textContent };
    });
    entries.sort(function (a, b) {
      var order = typed ? a.key - b.key : collator.compare(a.key, b.key);
      return down ? -order : order;
    });
    var sorted = document.createDocumentFragment();
    entries.forEach(function (entry) { sorted.appendChild(entry.row); });
    body.appendChild(sorted);
    Array.from(header.parentNode.cells, function (other) { other.removeAttribute("aria-sort"); });
    header.setAttribute("aria-sort", down ? "descending" : "ascending");
  }
  Array.from(table.tHead.rows[0].cells, function (header) {
    var button = document.createElement("button");
    button.type = "button";
    button.textContent = header.textContent;
    button.addEventListener("click", function () { sort(header); });
    header.replaceChildren(button);
  });
})();
</script>
)";

namespace {

constexpr double kContrast = 4.5;

double linear(unsigned channel) {
  const double value = channel / 255.0;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(COLORREF color) {
  return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
         0.0722 * linear(GetBValue(color));
}

double contrast(COLORREF one, COLORREF two) {
  const double bright = std::max(luminance(one), luminance(two));
  return (bright + 0.05) / (std::min(luminance(one), luminance(two)) + 0.05);
}

// A colour on its way to black or white: 0 is itself, kSteps the end.
constexpr int kSteps = 20;
COLORREF towards(COLORREF color, int end, int step) {
  const auto channel = [=](int value) { return value + (end - value) * step / kSteps; };
  return RGB(channel(GetRValue(color)), channel(GetGValue(color)), channel(GetBValue(color)));
}

}  // namespace

COLORREF ReadableOn(COLORREF background, COLORREF wanted) {
  constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);
  const int end = contrast(kBlack, background) >= contrast(kWhite, background) ? 0 : 255;
  int step = 0;
  while (step < kSteps && contrast(towards(wanted, end, step), background) < kContrast) ++step;
  return towards(wanted, end, step);
}
