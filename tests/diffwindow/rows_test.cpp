// The rows of two texts.
#include <random>

#include "diffwindow/Texts.h"

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
