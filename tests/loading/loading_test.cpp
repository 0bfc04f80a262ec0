// A host that loads and unloads the library at run time: this program is not linked with it.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "support/Allocations.h"
#include "support/TempFolder.h"

namespace {

constexpr UINT kScanningFolders = 23255;

// Wine's dialogs and shell keep some handles each time that they are loaded: they stay loaded.
const HMODULE kSystemLibraries[] = {LoadLibraryA("comdlg32.dll"), LoadLibraryA("shell32.dll")};

class Library {
 public:
  Library() : m_module(LoadLibraryA("orvane.dll")) { allocations::Install(); }
  ~Library() { FreeLibrary(m_module); }

  bool loaded() const { return m_module != nullptr; }

  template <class Function>
  Function* Find(const char* name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
  }

 private:
  HMODULE m_module;
};

// Whether this thread's random numbers are those that a seed of the present second gives.
bool IsSeededWithTheTime() {
  const int drawn[] = {rand(), rand(), rand()};
  const auto now = static_cast<unsigned>(time(nullptr));
  for (unsigned seed = now - 2; seed <= now; ++seed) {
    srand(seed);
    if (rand() == drawn[0] && rand() == drawn[1] && rand() == drawn[2]) return true;
  }
  return false;
}

DWORD WINAPI DrawInNewThread(void* seeded) {
  *static_cast<bool*>(seeded) = IsSeededWithTheTime();
  return 0;
}

}  // namespace

TEST(Loading, StringsAreFoundThroughTheModuleChainWhileLoaded) {
  for (int round = 0; round < 3; ++round) {
    CString text;
    EXPECT_FALSE(text.LoadString(kScanningFolders));
    {
      const Library library;
      ASSERT_TRUE(library.loaded());
      EXPECT_TRUE(text.LoadString(kScanningFolders));
      EXPECT_STREQ(text, "Scanning folders...");
    }
    EXPECT_FALSE(text.LoadString(kScanningFolders));
  }
}

TEST(Loading, EveryNotificationSeedsTheRandomNumbers) {
  srand(1);
  EXPECT_FALSE(IsSeededWithTheTime());
  srand(1);
  {
    const Library library;
    EXPECT_TRUE(IsSeededWithTheTime()) << "process attach";

    bool seeded = false;
    const HANDLE thread = CreateThread(nullptr, 0, DrawInNewThread, &seeded, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_TRUE(seeded) << "thread attach";
    srand(1);
  }
  EXPECT_TRUE(IsSeededWithTheTime()) << "process detach";
}

TEST(Loading, TraceGoesOnInTheSameLogAfterUnloading) {
  const TempFolder folder;
  const std::string log = folder / "sub\\trace.log";
  for (int round = 0; round < 2; ++round) {
    const Library library;
    auto* const event =
        library.Find<int __cdecl(const char*, const char*, const char*)>("_Z10TraceEventPKcS0_S0_");
    ASSERT_NE(event, nullptr);
    EXPECT_EQ(event(log.c_str(), "round", round == 0 ? "one" : "two"), 1);
  }
  const std::string text = folder.Read("sub\\trace.log");
  const std::string line = "\r\nhh:mm:ss:mmm:   round: one";
  ASSERT_EQ(text.size(), 2 * line.size());
  EXPECT_EQ(text.substr(15, line.size() - 15), line.substr(15));
  EXPECT_EQ(text.substr(line.size() + 15), "   round: two");
}
