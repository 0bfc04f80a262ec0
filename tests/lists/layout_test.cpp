// The layout of a list from one run of a program to the next.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "support/RegistrySubtree.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

namespace {

class Layout : public testing::Test {
 protected:
  struct Seen {
    std::map<std::string, int> widths;
    std::string order;
  };

  // What a list with these columns looks like when it is opened.
  Seen Open(const std::string& titles) {
    EXPECT_EQ(RunProgram("list_host.exe layout \"" + m_folder / "seen" + "\" \"" + m_key.path() +
                         "\" " + titles),
              0u);
    std::istringstream lines(m_folder.Read("seen"));
    Seen seen;
    for (std::string title, value; lines >> title >> value;) {
      if (value.find_first_not_of("0123456789") == std::string::npos)
        seen.widths[title] = std::stoi(value);
      else
        seen.order = title + " " + value;
    }
    return seen;
  }

  RegistrySubtree m_key;
  TempFolder m_folder;
};

}  // namespace

TEST_F(Layout, IsThereAgainInANewProcessWithOtherColumnsToo) {
  const Seen fresh = Open("Name Size State");
  EXPECT_EQ(fresh.order, "Name ascending");
  ASSERT_EQ(RunProgram("list_host.exe arrange 1 111 \"" + m_key.path() + "\" Name Size State"), 0u);
  Seen again = Open("Name Size State");
  EXPECT_EQ(again.order, "Size descending");
  EXPECT_EQ(again.widths, (std::map<std::string, int>{{"Name", fresh.widths.at("Name")},
                                                      {"Size", 111},
                                                      {"State", fresh.widths.at("State")}}));
  again = Open("Title Size Owner State");
  EXPECT_EQ(again.order, "Size descending");
  EXPECT_EQ(again.widths["Size"], 111) << "a width goes with its title";
  EXPECT_EQ(again.widths["State"], fresh.widths.at("State"));
  again = Open("Name");
  EXPECT_EQ(again.order, "Name ascending") << "that column has gone";
  EXPECT_EQ(Open("Size").widths["Size"], 111) << "kept while it was not there";
}

TEST_F(Layout, DamagedValuesAreNone) {
  const Seen fresh = Open("Name Size");
  const struct {
    const char* name;
    DWORD type;
    std::string bytes;
  } kDamage[] = {{"WidthName", REG_DWORD, std::string("\xFF\xFF\xFF\x7F", 4)},
                 {"WidthName", REG_SZ, "123"},
                 {"WidthName", REG_BINARY, "12"},
                 {"SortCol", REG_DWORD, std::string("\x02\0\0\0", 4)},
                 {"SortCol", REG_BINARY, std::string(300, 'x')},
                 {"SortOrder", REG_SZ, "down"}};
  for (const auto& damage : kDamage) {
    m_key.WriteRaw(damage.name, damage.type, damage.bytes);
    const Seen seen = Open("Name Size");
    EXPECT_EQ(seen.widths, fresh.widths) << damage.name << " " << damage.type;
    EXPECT_EQ(seen.order, "Name ascending") << damage.name << " " << damage.type;
  }
}
