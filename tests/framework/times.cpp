// CTime and CTimeSpan.

#include <afx.h>

#include <gtest/gtest.h>

#include "framework/test_strings.h"

namespace {

TEST(Time, FieldsComeBackAsTheyWereGiven) {
  const CTime t(2004, 2, 29, 23, 58, 57);
  EXPECT_STREQ(t.Format("%Y-%m-%d %H:%M:%S"), "2004-02-29 23:58:57");
  EXPECT_EQ(t.GetYear() * 100 + t.GetMonth(), 200402);
  EXPECT_EQ(t.GetDayOfWeek(), 1);
  EXPECT_EQ((t + CTimeSpan(1, 0, 0, 0)).Format("%m-%d %H"), "03-01 23");
  SYSTEMTIME system;
  ASSERT_TRUE(t.GetAsSystemTime(system));
  EXPECT_EQ(CTime(system), t);
  // 29 February 2004, 23:58:56 in the form of the FAT file system, which halves seconds.
  EXPECT_EQ(
      CTime(static_cast<WORD>(24 << 9 | 2 << 5 | 29), static_cast<WORD>(23 << 11 | 58 << 5 | 28)),
      t - CTimeSpan(1));
}

TEST(Time, FileTimesAreUtcInEverySeason) {
  struct Case {
    ULONGLONG seconds;  // since 1601
    time_t expected;
  } const cases[] = {
      {0, 0},                                              // not kept by the file system
      {11'644'473'600ULL + 1, 1},                          // 1970
      {11'644'473'600ULL + 1'073'000'000, 1'073'000'000},  // January 2004
      {11'644'473'600ULL + 1'090'000'000, 1'090'000'000},  // July 2004
      {11'644'473'600ULL + 0x7FFFFFFF, 0x7FFFFFFF},        // the last one
      {11'644'473'600ULL + 0x80000000, -1},
      {11'644'473'600ULL - 10, -1},
  };
  for (const Case& c : cases) {
    const ULONGLONG ticks = c.seconds * 10'000'000;
    const FILETIME fileTime = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    EXPECT_EQ(CTime(fileTime).GetTime(), c.expected) << c.seconds;
  }
}

TEST(Time, WhatIsNoTimeHasFieldsAllTheSame) {
  for (const CTime& t : {CTime(2004, 13, 1, 0, 0, 0), CTime(2004, 0, 1, 0, 0, 0),
                         CTime(2050, 1, 1, 0, 0, 0), CTime(static_cast<WORD>(0), 0)}) {
    EXPECT_EQ(t.GetTime(), -1);
    EXPECT_EQ(t.GetYear(), 1970);
    EXPECT_STREQ(t.Format("%Y-%m-%d"), "1970-01-01");
    SYSTEMTIME system;
    EXPECT_FALSE(t.GetAsSystemTime(system));
  }
}

TEST(Time, FormatsLocalAndUniversalTime) {
  EXPECT_STREQ(CTime(2004, 2, 9, 3, 4, 5).Format("%d.%m.%y %H:%M:%S %%"), "09.02.04 03:04:05 %");
  const CTime t(1'000'000'000);
  EXPECT_STREQ(t.FormatGmt("%Y-%m-%d %H:%M:%S"), "2001-09-09 01:46:40");
  EXPECT_STREQ(t.FormatGmt(kTimeFormatId), "2001-09-09");
  EXPECT_EQ(t.Format(kTimeFormatId), t.Format("%Y-%m-%d"));
  EXPECT_STREQ(t.Format(""), "");
  const CString large = CString('x', 500) + "%Y";
  EXPECT_EQ(t.FormatGmt(large), CString('x', 500) + "2001");
  EXPECT_THROW(t.Format(kMissingId), CResourceException*);
}

TEST(TimeSpan, SplitsIntoFields) {
  const CTimeSpan s(3, 25, 61, 61);
  EXPECT_EQ(s.GetDays(), 4);
  EXPECT_EQ(s.GetHours(), 2);
  EXPECT_EQ(s.GetMinutes(), 2);
  EXPECT_EQ(s.GetSeconds(), 1);
  EXPECT_EQ(s.GetTotalHours(), 98);
  EXPECT_EQ(s.GetTotalMinutes(), 98 * 60 + 2);
  EXPECT_STREQ(s.Format("%D days, %H:%M:%S (%%)"), "4 days, 02:02:01 (%)");
  EXPECT_STREQ(s.Format(kSpanFormatId), "4 days");
  const CTimeSpan negative = CTimeSpan(0) - CTimeSpan(1, 2, 3, 4);
  EXPECT_EQ(negative.GetDays(), -1);
  EXPECT_EQ(negative.GetHours(), -2);
  EXPECT_EQ(negative.GetSeconds(), -4);
  EXPECT_TRUE(negative < s);
}

}  // namespace
