// Measuring for the benchmarks: a subject and its floor take turns in one process, so that whatever
// else the machine does meets both, and the best of several rounds counts.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

namespace bench {

class Stopwatch {
 public:
  Stopwatch() { QueryPerformanceCounter(&m_start); }
  double Milliseconds() const {
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart - m_start.QuadPart) /
           static_cast<double>(frequency.QuadPart);
  }

 private:
  LARGE_INTEGER m_start;
};

// The shortest time of several runs.
class Best {
 public:
  template <class Work>
  void Run(Work work) {
    const Stopwatch watch;
    work();
    m_milliseconds = std::min(m_milliseconds, watch.Milliseconds());
  }
  double Milliseconds() const { return m_milliseconds; }

 private:
  double m_milliseconds = std::numeric_limits<double>::infinity();
};

struct Times {
  double subject;
  double floor;
};

// Runs subject and floor in turn, changing who is first, and gives the best time of each.
template <class Subject, class Floor>
Times Compare(int rounds, Subject subject, Floor floor) {
  Best bestSubject, bestFloor;
  for (int round = 0; round < rounds; ++round) {
    if (round % 2 == 0) bestSubject.Run(subject);
    bestFloor.Run(floor);
    if (round % 2 != 0) bestSubject.Run(subject);
  }
  return {bestSubject.Milliseconds(), bestFloor.Milliseconds()};
}

inline void PrintHeader() {
  printf("%-44s %12s %12s %7s %7s\n", "subject", "figure", "floor", "ratio", "aim");
}

// A row of the table. An aim of 0: none, the row is for information.
inline void PrintRow(const std::string& subject, const Times& times, double aim) {
  char aimText[16] = "-";
  if (aim > 0) snprintf(aimText, sizeof aimText, "%.2f", aim);
  printf("%-44s %9.2f ms %9.2f ms %7.2f %7s\n", subject.c_str(), times.subject, times.floor,
         times.subject / times.floor, aimText);
  fflush(stdout);
}

// A benchmark that measures something that went wrong measures nothing.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  fprintf(stderr, "bench: %s (system error %lu)\n", what, GetLastError());
  exit(1);
}

}  // namespace bench
