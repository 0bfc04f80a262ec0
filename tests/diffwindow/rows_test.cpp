// The rows of two texts, and moving among them.
#include <random>

#include "diffwindow/Texts.h"
#include "foldercmp/diff/DiffPlace.h"
#include "foldercmp/diff/DiffViewState.h"

TEST(Rows, StandSideBySide) {
  const struct {
    const char* name;
    const char* left;
    const char* right;
    CompareOptions options;
    const char* rows;
  } cases[] = {
      {"left empty", "", "a\nb\n", {}, "+|1 +|2"},
      {"changed", "a\nb\nc\n", "a\nx\nc\n", {}, "=1|1 ~2|2 =3|3"},
      {"more on the left", "a\nb\nc\nd\n", "a\nx\nd\n", {}, "=1|1 ~2|2 -3| =4|3"},
      {"more on the right", "a\nb\nd\n", "a\nx\ny\nd\n", {}, "=1|1 ~2|2 +|3 =3|4"},
      // A line stands beside what it was before.
      {"inserted above",
       "int total = 0;\n",
       "// One\n// Two\nint total = 1;\n",
       {},
       "+|1 +|2 ~1|3"},
      {"deleted below",
       "// one\nint total = 0;\nreturn;\n",
       "int total = 1;\nx\n",
       {},
       "-1| ~2|1 ~3|2"},
      {"in another order",
       "first line\nsecond row\n",
       "a second row\nthe first line\n",
       {},
       "-1| ~2|1 +|2"},
      // An empty line beside a difference is none.
      {"empty line below", "a\n\nc\n", "x\n\nc\n", {.whiteSpaceMode = 1}, "~1|1 =2|2 =3|3"},
      {"empty lines around",
       "a\n\nb\n \nc\n",
       "a\n\t\nx\n\nc\n",
       {.whiteSpaceMode = 1},
       "=1|1 =2|2 ~3|3 =4|4 =5|5"},
      {"empty lines alone", "a\n\n\nb\n", "a\nb\n", {.whiteSpaceMode = 1}, "=1|1 =2| =3| =4|2"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(RowsOf(DocumentOf(c.left, c.right, c.options)), c.rows) << c.name;
}

// Texts of few different lines, so that equal, moved, empty and blank ones meet in all ways.
TEST(Rows, HaveEveryLineOnceInItsOrder) {
  std::mt19937 random(1);
  const auto text = [&] {
    static constexpr const char* kLines[] = {"a\n", "some words\n", "some other words\n",
                                             "A\n", "b c\n",        "b  c\n",
                                             "\n",  " \n",          "d\r\n"};
    std::string lines;
    for (auto count = random() % 12; count > 0; --count)
      lines += kLines[random() % std::size(kLines)];
    return lines;
  };
  for (int i = 0; i < 3000; ++i) {
    const std::string left = text(), right = text();
    const CompareOptions options = {.ignoreCase = random() % 2 == 0,
                                    .whiteSpaceMode = static_cast<int>(random() % 3)};
    const DiffDocument document = DocumentOf(left, right, options);
    int lines[] = {0, 0};
    for (int row = 0; row < document.rowCount(); ++row) {
      const DiffRow found = document.RowAt(row);
      for (const DiffSide side : {DiffSide::Left, DiffSide::Right}) {
        if (found.LineOf(side) < 0) continue;
        ASSERT_EQ(found.LineOf(side), lines[static_cast<int>(side)]++) << left << "--\n" << right;
        ASSERT_EQ(document.RowOfLine(side, found.LineOf(side)), row) << left << "--\n" << right;
        document.ChangedWords(side, found);
      }
      ASSERT_TRUE(found.left >= 0 || found.right >= 0);
      ASSERT_EQ(found.difference >= 0, found.kind != DiffKind::Equal);
    }
    ASSERT_EQ(lines[0], document.lineCount(DiffSide::Left));
    ASSERT_EQ(lines[1], document.lineCount(DiffSide::Right));
  }
}

TEST(Rows, MarkChangedWords) {
  const DiffDocument document =
      DocumentOf("one two three\nall\nlast\n", "one 2 three\nelse\nlast\n");
  const auto words = [&](DiffSide side, int row) {
    return document.ChangedWords(side, document.RowAt(row));
  };
  EXPECT_EQ(words(DiffSide::Left, 0), (ChangedRanges{{4, 7}}));
  EXPECT_EQ(words(DiffSide::Right, 0), (ChangedRanges{{4, 5}}));
  EXPECT_TRUE(words(DiffSide::Left, 1).empty()) << "changed as a whole";
  EXPECT_TRUE(words(DiffSide::Left, 2).empty()) << "equal";
}

TEST(Rows, LeadFromDifferenceToDifference) {
  // Rows: 0 equal, 1-2 deleted, 3 equal, 4 changed, 5 equal.
  const DiffDocument document = DocumentOf("a\nb\nc\nd\ne\nf\n", "a\nd\nx\nf\n");
  ASSERT_EQ(RowsOf(document), "=1|1 -2| -3| =4|2 ~5|3 =6|4");
  const struct {
    int row, at, below, above;
  } cases[] = {{0, -1, 0, -1}, {1, 0, 1, -1}, {2, 0, 1, -1},
               {3, -1, 1, 0},  {4, 1, -1, 0}, {5, -1, -1, 1}};
  for (const auto& c : cases) {
    EXPECT_EQ(document.DifferenceAt(c.row), c.at) << c.row;
    EXPECT_EQ(document.DifferenceBelow(c.row), c.below) << c.row;
    EXPECT_EQ(document.DifferenceAbove(c.row), c.above) << c.row;
  }
  EXPECT_EQ(document.RowOfLine(DiffSide::Right, 1), 3);
  EXPECT_EQ(document.RowOfLine(DiffSide::Left, 2), 2);
  EXPECT_EQ(document.RowOfLine(DiffSide::Right, 99), 5);
}

TEST(Rows, KeepTheLineThatTheUserIsAt) {
  const auto texts = TextsOf("a\n1\n2\n3\nb\nc\n", "A\nb\nc\n");
  const DiffDocument exact(texts, {}), ignoring(texts, {.ignoreCase = true});
  ASSERT_EQ(exact.rowCount(), 6);
  DiffPlace place;
  place.SetRows(exact.rowCount());
  place.SetPage(3);
  place.MoveTo(exact.RowOfLine(DiffSide::Right, 2), false);
  const int onPage = place.caret() - place.first();
  DiffMark mark(exact, place, DiffSide::Right);
  mark.Restore(ignoring, place);
  EXPECT_EQ(place.caret(), ignoring.RowOfLine(DiffSide::Right, 2));
  EXPECT_EQ(place.caret() - place.first(), onPage);

  mark.Swap();
  const DiffDocument swapped(TextsOf("A\nb\nc\n", "a\n1\n2\n3\nb\nc\n"), {});
  mark.Restore(swapped, place);
  EXPECT_EQ(swapped.RowAt(place.caret()).left, 2);

  mark.Restore(DiffDocument(), place);
  EXPECT_EQ(place.caret(), 0);
}

TEST(Place, ScrollsAsLittleAsNeeded) {
  DiffPlace place;
  place.SetRows(100);
  place.SetPage(10);
  const struct {
    const char* name;
    std::function<void()> move;
    int first, caret, anchor;
  } steps[] = {
      {"down within the page", [&] { place.MoveTo(9, false); }, 0, 9, 9},
      {"down below it", [&] { place.MoveTo(10, false); }, 1, 10, 10},
      {"selecting up", [&] { place.MoveTo(0, true); }, 0, 0, 10},
      {"beyond the end", [&] { place.MoveTo(1000, false); }, 90, 99, 99},
      {"scrolling leaves the row", [&] { place.ScrollTo(5); }, 5, 99, 99},
      {"beyond the beginning", [&] { place.ScrollTo(-5); }, 0, 99, 99},
      {"showing a difference", [&] { place.Show(50, 4); }, 48, 50, 50},
      {"showing what is seen already", [&] { place.Show(51, 2); }, 48, 51, 51},
      {"showing one larger than a page", [&] { place.Show(20, 50); }, 18, 20, 20},
      {"all", [&] { place.SelectAll(); }, 18, 99, 0},
      {"fewer rows", [&] { place.SetRows(5); }, 0, 4, 0},
      {"none", [&] { place.SetRows(0); }, 0, 0, 0},
  };
  for (const auto& step : steps) {
    step.move();
    EXPECT_EQ(place.first(), step.first) << step.name;
    EXPECT_EQ(place.caret(), step.caret) << step.name;
    EXPECT_EQ(place.anchor(), step.anchor) << step.name;
  }
}
