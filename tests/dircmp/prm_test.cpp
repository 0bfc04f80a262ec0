// Which documents the parameters of a comparison let through.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <string>

#include "dircmp/DirCmpPrm.h"

namespace {

TEST(DirCmpPrm, TypeFilter) {
  constexpr struct {
    const char* list;
    int excludeListed;
    const char* passing;  // of the extensions c, h, cpp and none, each followed by a blank
  } kCases[] = {
      {"*.c;*.h", 0, "c h "},
      {"*.c;*.h", 1, "cpp - "},
      {"*.C;*.H", 0, "c h "},
      {"", 0, "c h cpp - "},
      {"", 1, ""},
      {"*.*", 0, "c h cpp - "},
      {"*.*", 1, ""},
      {"*.", 0, "- "},
      {"*.cpp", 0, "cpp "},
      {"*.*;*.c", 0, "c "},
      {"c;h", 0, ""},
      {"*.c;", 0, "c "},
  };
  for (const auto& row : kCases) {
    DirCmpPrm prm;
    prm.m_typeList = row.list;
    prm.m_excludeListedTypes = row.excludeListed;
    std::string passing;
    for (const char* extension : {"c", "h", "cpp", ""}) {
      if (!prm.PassesTypeFilter(extension)) continue;
      passing += std::string(*extension != 0 ? extension : "-") + " ";
    }
    EXPECT_EQ(passing, row.passing) << row.list << ", excluding " << row.excludeListed;
  }
}

}  // namespace
