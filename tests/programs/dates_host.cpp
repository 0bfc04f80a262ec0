// Answers questions about dates in the time zone that it was started in, a line for a line. Every
// question has two operands: bias - REFRESH, change - -, pause MILLISECONDS -, show SECONDS BIAS,
// parse TEXT FOUR_DIGIT_YEAR, file TICKS TO_LOCAL.
#include <afxwin.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "util/TimeUtil.h"

int main() {
  std::ios::sync_with_stdio(false);
  std::string question, first, second;
  while (std::cin >> question >> first >> second) {
    const long long number = atoll(first.c_str());
    const int option = atoi(second.c_str());
    if (question == "bias") {
      std::cout << GetZoneBias(option);
    } else if (question == "change") {
      std::cout << ChangeTimeZone();
    } else if (question == "pause") {
      Sleep(static_cast<DWORD>(number));
    } else if (question == "show") {
      const CTime time(static_cast<time_t>(number));
      std::cout << static_cast<const char*>(DisplayDate(time, "yyyy-MM-dd|HH:mm", option));
    } else if (question == "parse") {
      CTime time;
      DateStrToCtime(first.c_str(), time, option);
      std::cout << time.GetTime();
    } else if (question == "file") {
      std::cout << ConvertFileTime({static_cast<DWORD>(number), static_cast<DWORD>(number >> 32)},
                                   option);
    }
    std::cout << '\n';
  }
}
