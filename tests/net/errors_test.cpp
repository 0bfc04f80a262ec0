// The errors of transfers in words.
#include "net/InternetDownload.h"

#include <gtest/gtest.h>

#include "net/TestDownload.h"
#include "settings/MakerAddresses.h"

TEST(InternetErrors, TextAndRetry) {
  const struct {
    int code;
    int mayRetry;
    const char* text;
  } kCases[] = {
      {12000, 0, "(Error code = 12000)"},
      {12001, 1, "No more handles could be generated at this time."},
      {12013, 0, "The supplied user name is incorrect."},
      {12014, 0, "The supplied user name is incorrect."},
      {12033, 1, "The request to the proxy was invalid."},
      {12034, 0, "12034 - Unknown"},
      {12044, 0, "The server is requesting client authentication."},
      {12045, 0, "(Error code = 12045)"},
      {-1, 0, "(Error code = -1)"},
  };
  for (const auto& each : kCases) {
    EXPECT_STREQ(each.text, InternetDownload::GetErrorDscr(each.code));
    EXPECT_EQ(each.mayRetry, InternetDownload::MayRetry(each.code)) << each.code;
  }
  const CString system = InternetDownload::GetErrorDscr(ERROR_ACCESS_DENIED);
  EXPECT_LT(4, system.Find("(Error code = 5)")) << "behind the system's words: " << system;
}

TEST(InternetErrors, ANameThatIsNotResolvedMayBeACableThatIsNotPlugged) {
  LoopbackServer server(Answer(HeadOf(0)));
  const struct {
    std::string check;
    const char* text;
  } kCases[] = {
      {server.Url(""),
       "Internet connection failed! (Error code = 12007)\n"
       "Error: The server name could not be resolved."},
      {"http://no-such-host.invalid/",
       "Cannot connect to the Internet. Please make sure the computer network cable is plugged."},
  };
  const TempFolder folder;
  TestDownload download("http://no-such-host.invalid/x", folder / "file");
  EXPECT_STREQ("", download.GetFile());
  for (const auto& each : kCases) {
    SetMakerAddresses(nullptr, each.check.c_str(), nullptr);
    EXPECT_STREQ(each.text, download.GetErrorStr());
  }
  SetMakerAddresses(nullptr, nullptr, nullptr);
}
