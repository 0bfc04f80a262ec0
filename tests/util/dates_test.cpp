// Dates, beyond what is compared with the C library in tests/interop.
#include "util/TimeUtil.h"

#include <afxdtctl.h>
#include <gtest/gtest.h>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"

namespace {

constexpr time_t kPiDay = 1110795630;  // 14 March 2005, 10:20:30 UTC

CTime Parsed(const char* text, int fourDigitYear) {
  CTime time = 77;
  DateStrToCtime(text, time, fourDigitYear);
  return time;
}

}  // namespace

TEST(Dates, Texts) {
  const AssertionLog log;
  const struct {
    const char* text;
    int fourDigitYear;
    time_t expected;
  } good[] = {
      {"2005.03.14.10.20.30", 0, kPiDay},     {"05.03.14.10.20.30", 1, kPiDay},
      {"2005-03-14 10:20:30 UTC", 1, kPiDay}, {"20.03.14.10.20.30", 0, 1584181230},
      {"99.12.31.23.59.59", 0, 946684799},    {"1999.12.31.23.59.59", 1, 946684799},
      {"38.01.19.03.14.07", 1, 0x7FFFFFFF},   {"60.01.01.00.00.00", 0, -1},
  };
  for (const auto& c : good) EXPECT_EQ(Parsed(c.text, c.fourDigitYear), c.expected) << c.text;
  EXPECT_EQ(GetMonthNum("Febr"), 2);
  EXPECT_EQ(GetMonthNum("DECEMBER"), 12);
  EXPECT_TRUE(log.Empty()) << log.Text();
  EXPECT_EQ(Parsed(nullptr, 0), 77);
  EXPECT_EQ(GetMonthNum("ja"), 0);
  // Texts that end too early or are none: any time, and a word in the log.
  for (const char* text : {"", "2", "20", "05.", "05.03.14.10.20.3", "\xFF", "no date here"}) {
    const size_t before = log.Text().size();
    Parsed(text, 0);
    EXPECT_GT(log.Text().size(), before) << text;
  }
}

TEST(Dates, Display) {
  const CTime time = kPiDay;
  const int bias = GetZoneBias(0);
  const CString own = DisplayDate(time, nullptr, -1), date = own.Left(own.Find(' '));
  EXPECT_EQ(DisplayDate(time, "|", -1), own);
  EXPECT_EQ(DisplayDate(time, GetWsDateFormat(), -1), own);
  EXPECT_EQ(DisplayDate(time, "yyyy", bias), "2005" + own.Mid(date.GetLength()));
  CString minutes;  // there are zones of half hours
  minutes.Format(" %02d", static_cast<int>((kPiDay - bias) / 60 % 60));
  EXPECT_EQ(DisplayDate(time, "|mm", bias), date + minutes);
  EXPECT_EQ(DisplayDate(time, "dddd dddd dddd dddd dddd|mm", bias), minutes) << "no room";
  EXPECT_EQ(DisplayDate(0, nullptr, -1), "");
  EXPECT_EQ(DisplayDate(-1, nullptr, -1), "");
}

TEST(Dates, Files) {
  EXPECT_EQ(ConvertFileTime({5, 0}, 1), 0ul);
  EXPECT_EQ(ConvertFileTime({0xFFFFFFFF, 0xFFFFFFFF}, 0), 0ul);
  EXPECT_EQ(ConvertFileTime({0, 1}, 0), 0ul) << "the year 1601";
  const TempFolder folder;
  const std::string path = folder.Write("file", "x");
  CFileStatus status;
  CFile::GetStatus(path.c_str(), status);
  status.m_mtime = kPiDay;
  status.m_atime = kPiDay + 100;
  CFile::SetStatus(path.c_str(), status);
  long accessed = 1, modified = 1;
  EXPECT_EQ(GetFileTimes((folder / "none").c_str(), accessed, modified, 0), 0);
  EXPECT_EQ(GetFileTimes(path.c_str(), accessed, modified, 1), 1);
  EXPECT_EQ(modified, kPiDay - GetZoneBias(0));
  EXPECT_EQ(accessed, kPiDay + 100 - GetZoneBias(0));
}

// Two pickers in a hidden window; what the user does is set directly.
TEST(Dates, Pickers) {
  constexpr int kDate = 101, kTime = 102;
  const CRect place(0, 0, 140, 24);
  CWnd window;
  CDateTimeCtrl datePicker, timePicker;
  window.CreateEx(0, "STATIC", "", WS_POPUP, CRect(0, 0, 300, 100), nullptr, 0);
  datePicker.Create(WS_CHILD | DTS_SHOWNONE, place, &window, kDate);
  timePicker.Create(WS_CHILD | DTS_SHOWNONE | DTS_TIMEFORMAT, place, &window, kTime);
  CDataExchange load(&window, FALSE), save(&window, TRUE);
  const auto saved = [&](CTime time) {
    DDX_DateTimeCtrl(&save, kDate, kTime, time);
    return time;
  };
  CTime time(2005, 3, 14, 10, 20, 30), other(2010, 7, 1, 1, 2, 3), none;
  DDX_DateTimeCtrl(&load, kDate, kTime, time);
  EXPECT_EQ(saved(0), time);
  datePicker.SetTime(&other);
  EXPECT_EQ(saved(0), CTime(2010, 7, 1, 10, 20, 30));
  datePicker.SetTime();
  EXPECT_EQ(saved(time), time) << "the date as it was";
  datePicker.SetTime(&time);
  timePicker.SetTime();
  EXPECT_EQ(saved(other), CTime(2005, 3, 14, 1, 2, 3)) << "the time of day as it was";
  DDX_DateTimeCtrl(&load, kDate, kTime, none);
  EXPECT_EQ(saved(0), CTime(0)) << "no time stays none";
  EXPECT_EQ(saved(other), other);
  window.DestroyWindow();
}
