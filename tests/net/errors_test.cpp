// The errors of transfers in words.
#include "net/InternetDownload.h"

#include <gtest/gtest.h>

TEST(InternetErrors, TextAndRetry) {
  const struct {
    int code;
    int mayRetry;
    const char* text;
  } kCases[] = {
      {12001, 1, "No more handles could be generated at this time."},
      {12005, 0, "The URL is invalid."},
      {12013, 0, "The supplied user name is incorrect."},
      {12014, 0, "The supplied user name is incorrect."},
      {12030, 1, "The connection with the server has been terminated."},
      {12033, 1, "The request to the proxy was invalid."},
      {12034, 0, "12034 - Unknown"},
      {12043, 0, "The application is posting data to a server that is not secure."},
      {12044, 0, "The server is requesting client authentication."},
      {12045, 0, "(Error code = 12045)"},
      {12000, 0, "(Error code = 12000)"},
      {-1, 0, "(Error code = -1)"},
  };
  for (const auto& each : kCases) {
    EXPECT_STREQ(each.text, InternetDownload::GetErrorDscr(each.code));
    EXPECT_EQ(each.mayRetry, InternetDownload::MayRetry(each.code)) << each.code;
  }
  const CString system = InternetDownload::GetErrorDscr(ERROR_ACCESS_DENIED);
  EXPECT_LT(4, system.Find("(Error code = 5)"))
      << "the system's words, in its language: " << system;
}
