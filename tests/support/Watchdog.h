// A thread that watches the running test: it ends the program when a test hangs, and closes windows
// that no test asked for, so that a stray message box is a failure with its title and not a hang. A
// crash ends the program too, with the test's name and the place.
#pragma once

#include <string>

namespace watchdog {

// Starts the thread. A test may take so many seconds.
void Start(unsigned seconds);

// Names the test that runs from now on; null: none does.
void Watch(const char* test);

// The windows that were closed since the last call: class, title and texts. Empty: none.
std::string TakeStrayWindows();

// While one exists, the test's own windows are left alone.
class ExpectWindows {
 public:
  ExpectWindows();
  ~ExpectWindows();
  ExpectWindows(const ExpectWindows&) = delete;
  ExpectWindows& operator=(const ExpectWindows&) = delete;
};

}  // namespace watchdog
