// The command string of reports.
#include <random>

#include "lists/ReportCommand.h"
#include "lists/ReportTest.h"
#include "support/LongRun.h"

namespace {

using Columns = std::vector<int>;

const Columns kAll = {0, 1, 2, 3};

}  // namespace

TEST(ReportCommand, Items) {
  const Files list;
  const struct {
    const char* command;
    Columns columns = kAll;
    int sortColumn = -1;
    bool isDescending = false;
    bool isFiltered = false;
    ReportFormat format = ReportFormat::Html;
    const char* file = "";
    bool hasHeader = true;
    bool isQuiet = false;
  } cases[] = {
      {.command = "C:201", .columns = {2, 0, 1}},
      {.command = "  C:3  ", .columns = {3}},
      {.command = "C:90185", .columns = {0, 1}},  // there are no columns 9, 8 and 5
      {.command = "C:0110", .columns = {1, 0}},   // the last place of a column counts
      {.command = "C:12x30", .columns = {1, 2}},
      {.command = "C: R:T", .columns = {}, .format = ReportFormat::TabSeparated},
      {.command = "S:0D", .sortColumn = 0, .isDescending = true},
      {.command = "S:0D F:a,m", .sortColumn = 0, .isDescending = true, .isFiltered = true},
      {.command = "S:1 S:0F:", .sortColumn = 0, .isFiltered = true},
      {.command = "R:A", .format = ReportFormat::Text},
      {.command = "R:X", .format = ReportFormat::Xml},
      {.command = "O:C:\\out\\r.htm", .file = "C:\\out\\r.htm"},
      {.command = "O:C:/out/r.htm   R:A", .format = ReportFormat::Text, .file = "C:/out/r.htm"},
      {.command = "O:\\\\server\\share\\a b.txt H:0",
       .file = "\\\\server\\share\\a b.txt",
       .hasHeader = false},
      {.command = "O:r.txtH:0C:1", .columns = {1}, .file = "r.txt", .hasHeader = false},
      {.command = "H:no"},
      {.command = "Q:whatever C:0", .columns = {0}, .isQuiet = true},
      {.command = ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    ReportSettings settings = ReportCommand::Defaults(list);
    EXPECT_EQ(ReportCommand::Parse(list, c.command, settings), nullptr);
    EXPECT_EQ(settings.columns, c.columns);
    EXPECT_EQ(settings.sortColumn, c.sortColumn);
    EXPECT_EQ(settings.isDescending, c.isDescending);
    EXPECT_EQ(settings.primary.isActive, c.isFiltered);
    EXPECT_FALSE(settings.secondary.isActive);
    EXPECT_EQ(settings.format, c.format);
    EXPECT_EQ(str(settings.outputFile), c.file);
    EXPECT_EQ(settings.hasHeader, c.hasHeader);
    EXPECT_EQ(settings.isQuiet, c.isQuiet);
  }
}

TEST(ReportCommand, TheRangeIsOfTheSortColumnsTexts) {
  const Files list;
  const struct {
    const char* command;
    std::vector<const char*> passing, stopped;
  } cases[] = {
      {"S:0 F:b,m", {"b", "c", "m"}, {"a", "ma", "z", ""}},
      {"S:0 F:b", {"b", "z", ""}, {"a"}},  // without an upper end an empty text passes, too
      {"S:0 F:,m", {"", "a", "m"}, {"n"}},
      {"S:0 F:b,c,d", {"b", "bz", "c,d"}, {"c,e", "d"}},
      {"S:0 F:C:\\a,D", {"C:\\a", "D"}, {"C:", "E"}},
      {"S:0 F:x F:a,b", {"a"}, {"x"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    ReportSettings settings = ReportCommand::Defaults(list);
    ASSERT_EQ(ReportCommand::Parse(list, c.command, settings), nullptr);
    ASSERT_TRUE(settings.primary.isActive);
    EXPECT_EQ(settings.primary.column, 0);
    for (const char* text : c.passing) EXPECT_TRUE(settings.primary.filter->IsMatch(text)) << text;
    for (const char* text : c.stopped) EXPECT_FALSE(settings.primary.filter->IsMatch(text)) << text;
  }
}

TEST(ReportCommand, AnErrorIsShownWithTheRestOfTheCommand) {
  Files list;
  list.AddColumn("By number", MListCtrl::CompareVal);
  const TempFolder folder;
  const struct {
    std::string command, rest;
  } cases[] = {
      {"C201", "C201"},
      {":", ":"},
      {"c:201", "c:201"},
      {"C:01 Z:1 R:A", "Z:1 R:A"},
      {"S:5", "S:5"},
      {"S:1d", "S:1d"},
      {"S:10", "S:10"},
      {"F:a S:0", "F:a S:0"},
      {"S:1 F:a", "F:a"},      // no texts
      {"S:4 F:a", "F:a"},      // not compared as texts
      {"S:0 F:a S:2", "S:2"},  // the range is on the column before
      {"S:0 F:x, note: y", "e: y"},
      {"R:Z", "R:Z"},
      {"R:HA", "R:HA"},
      {"O: R:H", "O: R:H"},
      {"O:C:\\a:b", "a:b"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.command);
    const std::string file = " O:" + folder / "report";
    const Told told;
    EXPECT_EQ(list.DoReport((c.command + file).c_str()), 0);
    EXPECT_TRUE(told.Has("Error while parsing report generator parameters."));
    EXPECT_TRUE(told.Has("Command: \"" + c.rest + file + "\""));
    EXPECT_EQ(countFiles(folder), 0u);
  }
}

TEST(ReportCommand, WithQNothingIsShown) {
  Files list;
  addFour(list);
  const TempFolder folder;
  const std::string file = "O:" + folder / "report ";
  for (const char* const rest : {"Q:1 R:Z", "R:Z Q:1", "C: Q:1"}) {
    const Told told;
    EXPECT_EQ(list.DoReport((file + rest).c_str()), 0) << rest;
    EXPECT_TRUE(told.Nothing()) << rest;
  }
  const Told told;
  EXPECT_EQ(list.DoReport((file + "C:").c_str()), 0);
  EXPECT_TRUE(told.Has("Please include at least one field in report."));
  EXPECT_EQ(list.DoReport("C:01"), 0);
  EXPECT_TRUE(told.Has("Please specify a valid path."));
  EXPECT_EQ(countFiles(folder), 0u);
}

// Whatever stands in a command: it has an error within it, or its settings can be used.
TEST(ReportCommand, Mutations) {
  Files list;
  const std::string seeds[] = {"C:201 S:0D F:a,m R:T O:C:\\out H:0 Q:1", "S:0 F:C:\\a,D:\\b Q: O:r",
                               "R:A C:0123456789 O:r"};
  constexpr char kBytes[] = " :::;,\\/0123459ACDFHOQRSTXZaz\x81\xFF";
  std::mt19937 random(7);
  const int rounds = IsLongRun() ? 100000 : 10000;
  for (int round = 0; round < rounds; ++round) {
    std::string command = seeds[random() % std::size(seeds)];
    for (unsigned change = 0; change <= random() % 4; ++change)
      command.replace(random() % command.size(), random() % 3, random() % 2,
                      kBytes[random() % (sizeof kBytes - 1)]);
    ReportSettings settings = ReportCommand::Defaults(list);
    const char* const begin = command.c_str();
    const char* const wrong = ReportCommand::Parse(list, begin, settings);
    EXPECT_TRUE(wrong == nullptr || (wrong >= begin && wrong < begin + command.size())) << command;
    for (const int column : settings.columns) EXPECT_TRUE(column >= 0 && column < 4) << command;
    EXPECT_LT(settings.sortColumn, 4) << command;
    EXPECT_EQ(settings.primary.isActive, settings.primary.filter != nullptr) << command;
  }
}
