// Counts and checks the memory that the libraries and the test program allocate.
//
// The import tables of the modules beside the test program (the libraries, the C++ runtime, zlib
// and the program itself) are changed, so that malloc, calloc, realloc and free of all of them come
// here. Blocks from before that, or from the system, pass through untouched.
#pragma once

#include <cstddef>
#include <string>

namespace allocations {

// Changes the import tables of the modules loaded so far. Call once, at the start of main. A
// library that a test loads later is taken in by calling it again.
void Install();

struct Live {
  size_t blocks;
  size_t bytes;
};

// What is allocated and not yet freed.
Live Count();

// A number that grows with every allocation: blocks allocated from now on are "since" it.
unsigned Mark();

// Describes the blocks allocated since a mark and still there, a line each, at most ten.
std::string DescribeSince(unsigned mark);

// The most bytes allocated at one time since ResetPeak.
void ResetPeak();
size_t Peak();

// What was found wrong with a block when it was freed (written past its end), or empty.
// Reading clears it.
std::string TakeDamage();

// While one exists, every new block ends where a page without access begins (rounded up to 4
// bytes), and a freed block's pages are gone: reading past an end or after a free stops the
// program. For tests with few blocks; each takes 64 KiB of address space.
class GuardPages {
 public:
  GuardPages();
  ~GuardPages();
  GuardPages(const GuardPages&) = delete;
  GuardPages& operator=(const GuardPages&) = delete;
};

// While one exists, the n-th allocation from its creation on (counted from 1) fails.
class FailNth {
 public:
  explicit FailNth(unsigned n);
  ~FailNth();
  FailNth(const FailNth&) = delete;
  FailNth& operator=(const FailNth&) = delete;

  // Whether the allocation came and failed: a loop over n ends when one did not.
  bool Happened() const;
};

// A copy of some bytes that ends exactly where a page without access begins, and starts after one.
class GuardedBytes {
 public:
  GuardedBytes(const void* bytes, size_t size);
  ~GuardedBytes();
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  unsigned char* data() const { return m_data; }
  size_t size() const { return m_size; }

 private:
  unsigned char* m_data;
  size_t m_size;
};

}  // namespace allocations
