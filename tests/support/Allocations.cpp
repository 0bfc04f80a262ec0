#include "support/Allocations.h"

#include <windows.h>
#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unordered_map>

#include "support/ImportTable.h"

// The runtime's look-up of the stack frame of a place, by which exceptions find their handlers.
struct dwarf_eh_bases {
  void* text;
  void* data;
  void* function;
};
extern "C" const void* _Unwind_Find_FDE(void* place, dwarf_eh_bases* bases);

namespace allocations {
namespace {

constexpr size_t kTail = 16;  // bytes behind a block that show whether it was written past its end
constexpr unsigned char kTailByte = 0xFD;
constexpr unsigned char kNewByte = 0xCD;
constexpr unsigned char kFreedByte = 0xDD;
constexpr size_t kPage = 4096;

#ifdef ORVANE_CHECKED
constexpr bool kFill = true;
#else
constexpr bool kFill = false;
#endif

struct Block {
  size_t size;
  unsigned number;
  bool guarded;
};

[[noreturn]] void Abort(const char* why) {
  fprintf(stderr, "allocations: %s\n", why);
  abort();
}

// Memory for the list of blocks itself, which must not come through what is counted.
template <class T>
struct SystemMemory {
  using value_type = T;
  SystemMemory() = default;
  template <class U>
  SystemMemory(const SystemMemory<U>&) {}
  T* allocate(size_t count) {
    void* const memory = HeapAlloc(GetProcessHeap(), 0, count * sizeof(T));
    if (memory == nullptr) Abort("no memory for the list of blocks");
    return static_cast<T*>(memory);
  }
  void deallocate(T* memory, size_t) { HeapFree(GetProcessHeap(), 0, memory); }
  bool operator==(const SystemMemory&) const { return true; }
};

// The live blocks.
class Registry {
 public:
  void Add(void* address, const Block& block) {
    m_blocks.insert_or_assign(address, block);
    m_bytes += block.size;
    if (m_bytes > m_peak) m_peak = m_bytes;
  }

  bool Take(void* address, Block* block) {
    const auto found = m_blocks.find(address);
    if (found == m_blocks.end()) return false;
    *block = found->second;
    m_blocks.erase(found);
    m_bytes -= block->size;
    return true;
  }

  const auto& blocks() const { return m_blocks; }
  Live live() const { return {m_blocks.size(), m_bytes}; }
  size_t peak() const { return m_peak; }
  void ResetPeak() { m_peak = m_bytes; }

 private:
  std::unordered_map<void*, Block, std::hash<void*>, std::equal_to<>,
                     SystemMemory<std::pair<void* const, Block>>>
      m_blocks;
  size_t m_bytes = 0, m_peak = 0;
};

struct State {
  State() { InitializeCriticalSection(&lock); }
  CRITICAL_SECTION lock;
  Registry blocks;
  unsigned number = 0;
  unsigned failAt = 0;  // the number of the allocation that fails
  bool failed = false;
  int guardPages = 0;
  char damage[200] = "";

  decltype(&malloc) realMalloc = nullptr;
  decltype(&calloc) realCalloc = nullptr;  // not called
  decltype(&realloc) realRealloc = nullptr;
  decltype(&free) realFree = nullptr;
};

// Never destroyed: blocks are freed until the very end of the process.
State& state() {
  static State& state = *new State;
  return state;
}

class Lock {
 public:
  Lock() { EnterCriticalSection(&state().lock); }
  ~Lock() { LeaveCriticalSection(&state().lock); }
};

// Whole pages, between two without access.
size_t GuardedRegion(size_t size) { return (size + kPage - 1) / kPage * kPage + 2 * kPage; }

unsigned char* AllocateGuarded(size_t size) {
  const size_t region = GuardedRegion(size), pages = region - 2 * kPage;
  auto* base =
      static_cast<unsigned char*>(VirtualAlloc(nullptr, region, MEM_RESERVE, PAGE_NOACCESS));
  if (base == nullptr) return nullptr;
  if (pages > 0 && VirtualAlloc(base + kPage, pages, MEM_COMMIT, PAGE_READWRITE) == nullptr) {
    VirtualFree(base, 0, MEM_RELEASE);
    return nullptr;
  }
  return base + kPage + pages - size;
}

void FreeGuarded(unsigned char* address, size_t size) {
  VirtualFree(address + size + kPage - GuardedRegion(size), 0, MEM_RELEASE);
}

extern "C" void* __cdecl countedMalloc(size_t size) {
  Lock lock;
  State& s = state();
  const unsigned number = ++s.number;
  if (number == s.failAt) {
    s.failed = true;
    return nullptr;
  }
  const bool guarded = s.guardPages > 0;
  const size_t rounded = (size + 3) / 4 * 4;
  auto* block = guarded ? AllocateGuarded(rounded)
                        : static_cast<unsigned char*>(s.realMalloc(size + (kFill ? kTail : 0)));
  if (block == nullptr) return nullptr;
  if (kFill) {
    memset(block, kNewByte, size);
    if (!guarded) memset(block + size, kTailByte, kTail);
  }
  s.blocks.Add(block, {guarded ? rounded : size, number, guarded});
  return block;
}

extern "C" void __cdecl countedFree(void* address) {
  if (address == nullptr) return;
  Lock lock;
  State& s = state();
  Block block;
  if (!s.blocks.Take(address, &block)) {
    s.realFree(address);
    return;
  }
  if (block.guarded) {
    FreeGuarded(static_cast<unsigned char*>(address), block.size);
    return;
  }
  if (kFill) {
    auto* const bytes = static_cast<unsigned char*>(address);
    for (size_t i = 0; i < kTail; ++i) {
      if (bytes[block.size + i] == kTailByte) continue;
      snprintf(s.damage, sizeof s.damage,
               "a block of %u bytes (allocation %u) was written %u bytes past its end",
               static_cast<unsigned>(block.size), block.number, static_cast<unsigned>(i + 1));
    }
    memset(bytes, kFreedByte, block.size);
  }
  s.realFree(address);
}

extern "C" void* __cdecl countedCalloc(size_t count, size_t size) {
  if (size != 0 && count > static_cast<size_t>(-1) / size) return nullptr;
  void* block = countedMalloc(count * size);
  if (block != nullptr) memset(block, 0, count * size);
  return block;
}

extern "C" void* __cdecl countedRealloc(void* address, size_t size) {
  if (address == nullptr) return countedMalloc(size);
  Lock lock;
  State& s = state();
  Block old;
  if (!s.blocks.Take(address, &old)) return s.realRealloc(address, size);
  s.blocks.Add(address, old);
  if (size == 0) {
    countedFree(address);
    return nullptr;
  }
  void* block = countedMalloc(size);
  if (block == nullptr) return nullptr;
  memcpy(block, address, old.size < size ? old.size : size);
  countedFree(address);
  return block;
}

struct Hook {
  const char* name;
  void* function;
  void** real;
};

const Hook* Hooks() {
  State& s = state();
  static const Hook hooks[] = {
      {"malloc", reinterpret_cast<void*>(countedMalloc), reinterpret_cast<void**>(&s.realMalloc)},
      {"calloc", reinterpret_cast<void*>(countedCalloc), reinterpret_cast<void**>(&s.realCalloc)},
      {"realloc", reinterpret_cast<void*>(countedRealloc),
       reinterpret_cast<void**>(&s.realRealloc)},
      {"free", reinterpret_cast<void*>(countedFree), reinterpret_cast<void**>(&s.realFree)},
      {},
  };
  return hooks;
}

void HookModule(HMODULE module) {
  ForEachImport(module, [&](const char* name, void** place) {
    for (const Hook* hook = Hooks(); hook->name != nullptr; ++hook)
      if (strcmp(name, hook->name) == 0) ReplaceImport(place, hook->function);
  });
}

// The runtime sorts the tables of all modules at the first look into them, in blocks that stay: a
// look for a place that no module holds makes it do so now.
void SortFrameTables() {
  dwarf_eh_bases bases;
  _Unwind_Find_FDE(reinterpret_cast<void*>(1), &bases);
}

std::string FolderOf(HMODULE module) {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(module, path, MAX_PATH);
  const std::string text = path;
  return text.substr(0, text.find_last_of('\\') + 1);
}

}  // namespace

void Install() {
  const HMODULE runtime = GetModuleHandleA("msvcrt.dll");
  for (const Hook* hook = Hooks(); hook->name != nullptr; ++hook)
    *hook->real = reinterpret_cast<void*>(GetProcAddress(runtime, hook->name));

  SortFrameTables();
  HMODULE modules[256];
  DWORD size = 0;
  EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &size);
  const std::string ours = FolderOf(nullptr);
  for (DWORD i = 0; i < size / sizeof(HMODULE) && i < 256; ++i) {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(modules[i], path, MAX_PATH);
    // The thread library keeps a block for every thread it has seen, so it is left out.
    if (FolderOf(modules[i]) == ours && strstr(path, "libwinpthread") == nullptr) {
      HookModule(modules[i]);
    }
  }
}

Live Count() {
  Lock lock;
  return state().blocks.live();
}

unsigned Mark() {
  Lock lock;
  return state().number;
}

std::string DescribeSince(unsigned mark) {
  constexpr int kMostBlocks = 10, kMostBytes = 32;
  char text[kMostBlocks * 100];
  int count = 0, length = 0;
  Lock lock;
  for (const auto& [address, block] : state().blocks.blocks()) {
    if (block.number <= mark || count++ >= kMostBlocks) continue;
    length +=
        sprintf(text + length, "  allocation %u: %u bytes \"", block.number - mark, block.size);
    for (size_t i = 0; i < block.size && i < kMostBytes; ++i) {
      const char c = static_cast<const char*>(address)[i];
      text[length++] = c >= 0x20 && c < 0x7F ? c : '.';
    }
    length += sprintf(text + length, "\"\n");
  }
  return std::string(text, static_cast<size_t>(length));
}

void ResetPeak() {
  Lock lock;
  state().blocks.ResetPeak();
}

size_t Peak() {
  Lock lock;
  return state().blocks.peak();
}

std::string TakeDamage() {
  Lock lock;
  std::string damage = state().damage;
  state().damage[0] = 0;
  return damage;
}

GuardPages::GuardPages() {
  Lock lock;
  ++state().guardPages;
}

GuardPages::~GuardPages() {
  Lock lock;
  --state().guardPages;
}

FailNth::FailNth(unsigned n) {
  Lock lock;
  state().failed = false;
  state().failAt = state().number + n;
}

FailNth::~FailNth() {
  Lock lock;
  state().failAt = 0;
}

bool FailNth::Happened() const {
  Lock lock;
  return state().failed;
}

GuardedBytes::GuardedBytes(const void* bytes, size_t size)
    : m_data(AllocateGuarded(size)), m_size(size) {
  if (m_data == nullptr) Abort("no memory for a guarded block");
  if (size > 0) memcpy(m_data, bytes, size);
}

GuardedBytes::~GuardedBytes() { FreeGuarded(m_data, m_size); }

}  // namespace allocations
