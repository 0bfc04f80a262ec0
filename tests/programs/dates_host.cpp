// Answers questions about dates in the time zone that it was started in, a line for a line:
//   bias                 the zone's bias
//   show SECONDS BIAS    the time as text
//   parse TEXT FLAG      the seconds of a text
//   file HIGH LOW LOCAL  the seconds of a file time
#include <afxwin.h>

#include <iostream>
#include <string>

#include "util/TimeUtil.h"

int main() {
  std::ios::sync_with_stdio(false);
  std::string question;
  while (std::cin >> question) {
    if (question == "bias") {
      std::cout << GetZoneBias(0) << '\n';
    } else if (question == "show") {
      long seconds;
      int bias;
      std::cin >> seconds >> bias;
      std::cout << static_cast<const char*>(DisplayDate(seconds, "yyyy-MM-dd|HH:mm", bias)) << '\n';
    } else if (question == "parse") {
      std::string text;
      int fourDigitYear;
      std::cin >> text >> fourDigitYear;
      CTime time;
      DateStrToCtime(text.c_str(), time, fourDigitYear);
      std::cout << time.GetTime() << '\n';
    } else if (question == "file") {
      FILETIME time;
      int toLocal;
      std::cin >> time.dwHighDateTime >> time.dwLowDateTime >> toLocal;
      std::cout << ConvertFileTime(time, toLocal) << '\n';
    } else {
      return 2;
    }
  }
  return 0;
}
