// Texts in columns, and finding in them.
#include "diffwindow/Texts.h"
#include "foldercmp/diff/DiffFind.h"
#include "foldercmp/diff/LineColumns.h"

TEST(Columns, AreCountedAsShown) {
  const struct {
    const char* name;
    std::string line;
    int columns;
  } cases[] = {
      {"tab behind three", "abc\tx", 5},
      {"tab behind four", "abcd\tx", 9},
      {"umlaut", "\xC3\xA4", 1},
      {"Japanese", "\xE6\x97\xA5\xE6\x9C\xAC", 4},
      {"tab behind Japanese", "\xE6\x97\xA5\tx", 5},
      {"combining acute", "e\xCC\x81x", 2},
      {"Hebrew", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D", 4},
      {"beyond the first plane", "\xF0\x9F\x98\x80x", 3},
      {"not well-formed", "a\xFFz\xE6\x97", 5},
  };
  for (const auto& c : cases) EXPECT_EQ(ColumnCount(c.line, 4), c.columns) << c.name;
  EXPECT_EQ(ColumnCount("\tx", 8), 9);
  EXPECT_EQ(ColumnsOfBytes("\xE6\x97\xA5\tx", 4, {0, 3, 4, 99}), (std::vector<int>{0, 2, 4, 5}));
}

TEST(Columns, AreCutOutOfALine) {
  const struct {
    const char* name;
    std::string line;
    int first, columns;
    int column;
    const wchar_t* text;
    std::vector<int> widths;
  } cases[] = {
      {"beginning", "abcdef", 0, 3, 0, L"abc", {1, 1, 1}},
      {"middle", "abcdef", 2, 2, 2, L"cd", {1, 1}},
      {"behind the end", "abc", 9, 5, 3, L"", {}},
      {"within a tab", "a\tb", 2, 4, 1, L"   b", {1, 1, 1, 1}},
      {"within a wide one", "\xE6\x97\xA5x", 1, 2, 0, L"\u65E5x", {2, 1}},
      {"surrogates", "\xF0\x9F\x98\x80", 0, 5, 0, L"\xD83D\xDE00", {2, 0}},
      {"control character",
       "a\x01"
       "b",
       0,
       5,
       0,
       L"a\u00B7b",
       {1, 1, 1}},
  };
  for (const auto& c : cases) {
    const LineSlice slice = SliceOfLine(c.line, 4, c.first, c.columns);
    EXPECT_EQ(slice.column, c.column) << c.name;
    EXPECT_EQ(slice.text, c.text) << c.name;
    EXPECT_EQ(slice.widths, c.widths) << c.name;
  }
  // A line of a megabyte is cut, and not converted as a whole.
  EXPECT_EQ(SliceOfLine(std::string(1 << 20, 'x'), 4, 1'000'000, 80).text.size(), 80u);
}

namespace {

// A place as "L2:4-7", the row from 0, with "*" when the search was continued at the other end.
std::string Found(const DiffDocument& document, const FindQuery& query, const FindPlace& start) {
  const auto found = FindText(document, query, start);
  if (!found) return "none";
  return std::string(found->side == DiffSide::Left ? "L" : "R") + std::to_string(found->row) + ":" +
         std::to_string(found->begin) + "-" + std::to_string(found->end) +
         (found->isWrapped ? "*" : "");
}

}  // namespace

TEST(Find, GoesAroundTheDocument) {
  constexpr auto kLeft = DiffSide::Left, kRight = DiffSide::Right;
  // The letter with a dot above has a longer lower case, so that the places behind it shift.
  const DiffDocument document =
      DocumentOf("abc abc\nb\nonly\n\xC3\x84rger\n", "abc Abc\nb\n\xC3\x84rger\n\xC4\xB0 end\n");
  ASSERT_EQ(RowsOf(document), "~1|1 =2|2 -3| =4|3 +|4");
  const struct {
    const char* name;
    FindQuery query;
    FindPlace start;
    const char* found;
  } cases[] = {
      {"from the top", {.text = "abc"}, {kLeft, 0, -1}, "L0:0-3"},
      {"next in the line", {.text = "abc"}, {kLeft, 0, 0}, "L0:4-7"},
      {"on the other side", {.text = "abc"}, {kLeft, 0, 4}, "R0:0-3"},
      {"in another case", {.text = "abc"}, {kRight, 0, 0}, "R0:4-7"},
      {"around", {.text = "abc"}, {kRight, 0, 4}, "L0:0-3*"},
      {"case matters", {.text = "abc", .matchCase = true}, {kRight, 0, 0}, "L0:0-3*"},
      {"one side", {.text = "abc", .side = kRight}, {kLeft, 0, 0}, "R0:0-3"},
      {"around to itself", {.text = "only"}, {kLeft, 2, 0}, "L2:0-4*"},
      {"not on this side", {.text = "only", .side = kRight}, {kLeft, 0, 0}, "none"},
      {"backwards", {.text = "abc", .forward = false}, {kRight, 0, 0}, "L0:4-7"},
      {"backwards around", {.text = "abc", .forward = false}, {kLeft, 0, 0}, "R0:4-7*"},
      {"umlaut", {.text = "\xC3\xA4R"}, {kLeft, 1, -1}, "L3:0-3"},
      {"behind a letter that grows", {.text = "END"}, {kLeft, 0, -1}, "R4:3-6"},
      {"nothing", {.text = "zzz"}, {kLeft, 0, -1}, "none"},
      {"longer than all lines", {.text = std::string(99, 'a')}, {kLeft, 0, -1}, "none"},
  };
  for (const auto& c : cases) EXPECT_EQ(Found(document, c.query, c.start), c.found) << c.name;
  EXPECT_EQ(Found(DiffDocument(), {.text = "a"}, {kLeft, 0, -1}), "none");
}
