// Reports of a list, for tests.
#pragma once

#include <string>

#include "diag/trace.h"
#include "lists/ListTest.h"
#include "messages/message.h"
#include "support/TempFolder.h"

// While one exists messages are not shown; it tells what they said.
class Told {
 public:
  Told() {
    Message::SetSilent(1);
    TraceFunction::logFileName = (m_folder / "log").c_str();
  }
  ~Told() {
    TraceFunction::logFileName.Empty();
    Message::SetSilent(0);
  }

  bool Nothing() const { return m_folder.Read("log").empty(); }
  bool Has(const std::string& text) const {
    return m_folder.Read("log").find(text) != std::string::npos;
  }

 private:
  TempFolder m_folder;
};

// Items 1 to 4, named d, a, c, b.
inline void addFour(Files& list) {
  list.Add(1, "d", 0, 1000, 40);
  list.Add(2, "a", 1, 2000, 30);
  list.Add(3, "c", 2, 3000, 20);
  list.Add(4, "b", 1, 4000, static_cast<uint32_t>(-10));
}

// How many files there are in a folder.
inline size_t countFiles(const TempFolder& folder) {
  size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path()))
    count += entry.exists();
  return count;
}
