// Lists of many items: adding, filtering, sorting, finding, showing.
//
// Floor: an array of plain structs with the same values, filtered by a plain loop and sorted by
// std::sort with the comparison that the documents ask of the list.
#include <afxwin.h>

#include <psapi.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

#include "Measure.h"
#include "lists/MListCtrl.h"

namespace {

constexpr double kSortAim = 3, kFilterAim = 2;
constexpr int kRounds = 3;

// What is done in a moment is done more often, so that a moment is met in which nothing else runs.
int RoundsOf(int count) { return count > 100000 ? kRounds : 5 * kRounds; }

struct Item {
  char* name;
  char* folder;
  uint32_t state;
  uint32_t time;
  uint32_t size;
  char* type;
};
enum { kName, kFolder, kState, kTime, kSize, kType };

// Names and folders as in a large source tree, the same on every run.
std::vector<Item> MakeItems(int count) {
  std::vector<Item> items;
  items.reserve(static_cast<size_t>(count));
  std::mt19937 random(1);
  const char* const types[] = {"cpp", "h", "txt", "png", "html"};
  for (int i = 0; i < count; ++i) {
    char name[40], folder[60];
    snprintf(name, sizeof name, "%c%c_file%u", 'a' + static_cast<int>(random() % 26),
             'a' + static_cast<int>(random() % 26), static_cast<unsigned>(random() % 1000000));
    snprintf(folder, sizeof folder, "source\\part%u\\module%u",
             static_cast<unsigned>(random() % 40), static_cast<unsigned>(random() % 200));
    items.push_back({strdup(name), strdup(folder), static_cast<uint32_t>(random() % 5),
                     static_cast<uint32_t>(1700000000 + random() % 10000000),
                     static_cast<uint32_t>(random() % 1000000), strdup(types[random() % 5])});
  }
  return items;
}

int CompareIds(unsigned long one, unsigned long two) { return one < two ? -1 : one > two; }

void Declare(MListCtrl& list) {
  list.AddColumn("Name", MListCtrl::CompareStr);
  list.AddColumn("Folder", MListCtrl::CompareStrNocase);
  list.AddEnumColumn("State", 5, "Same\tModified\tNew\tDeleted\tUnknown");
  list.AddTimeColumn("Modified");
  list.AddNumericColumn("Size");
  list.AddColumn("Type", CompareIds);
  list.SetAltSortKey(kName, kFolder, kSize);
  list.SetAltSortKey(kFolder, kName, kSize);
  list.SetAltSortKey(kState, kTime, kName);
  list.SetAltSortKey(kTime, kState, kName);
  list.SetAltSortKey(kSize, kName, kTime);
}

const char* AsValue(uint32_t number) {
  return reinterpret_cast<const char*>(static_cast<uintptr_t>(number));
}

void Fill(MListCtrl& list, const std::vector<Item>& items) {
  for (const Item& item : items) {
    const char* const values[] = {item.name,          item.folder,        AsValue(item.state),
                                  AsValue(item.time), AsValue(item.size), item.type};
    list.AddItem(MListCtrl::kAutomaticId, values);
  }
}

template <class Number>
int Compare(Number one, Number two) {
  return one < two ? -1 : one > two;
}

size_t UsedMemory() {
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

// Less by a column and its alternates.
bool Less(int column, const Item& one, const Item& two) {
  int result = 0;
  switch (column) {
    case kName:
      result = strcmp(one.name, two.name);
      if (result == 0) result = _stricmp(one.folder, two.folder);
      if (result == 0) result = Compare(one.size, two.size);
      break;
    case kFolder:
      result = _stricmp(one.folder, two.folder);
      if (result == 0) result = strcmp(one.name, two.name);
      if (result == 0) result = Compare(one.size, two.size);
      break;
    case kState:
      result = Compare(one.state, two.state);
      if (result == 0) result = Compare(one.time, two.time);
      if (result == 0) result = strcmp(one.name, two.name);
      break;
    case kTime:
      result = Compare(one.time, two.time);
      if (result == 0) result = Compare(one.state, two.state);
      if (result == 0) result = strcmp(one.name, two.name);
      break;
    case kSize:
      result = Compare(one.size, two.size);
      if (result == 0) result = strcmp(one.name, two.name);
      if (result == 0) result = Compare(one.time, two.time);
      break;
  }
  return result < 0;
}

std::string Named(const char* what, int count) {
  return std::string(what) + ", " + std::to_string(count) + " items";
}

void MeasureSort(MListCtrl& list, const std::vector<Item>& items, int count) {
  const char* const names[] = {"sort by text", "sort without regard to case", "sort by enum",
                               "sort by time", "sort by number"};
  std::vector<Item> copy;
  for (int column = kName; column <= kSize; ++column) {
    bench::Best subject, floor;
    for (int round = 0; round < kRounds; ++round) {
      list.Refilter();  // the order of the items, sorted by the column before
      list.SetSortKey(column == kSize ? kTime : kSize, 0, 1);
      subject.Run([&] { list.SetSortKey(column, 0, 0); });
      copy = items;
      const int before = column == kSize ? kTime : kSize;
      std::sort(copy.begin(), copy.end(),
                [&](const Item& one, const Item& two) { return Less(before, two, one); });
      floor.Run([&] {
        std::sort(copy.begin(), copy.end(),
                  [&](const Item& one, const Item& two) { return Less(column, one, two); });
      });
    }
    bench::Require(list.GetItemText(0, 0) == copy.front().name, "the orders differ");
    bench::PrintRow(Named(names[column], count), {subject.Milliseconds(), floor.Milliseconds()},
                    kSortAim);
  }
}

void MeasureFilter(MListCtrl& list, const std::vector<Item>& items, int count) {
  int passed = 0;
  const bench::Times contains = bench::Compare(
      RoundsOf(count),
      [&] {
        list.SetFilter(kName, "_file12", MListCtrl::FilterContains);
        bench::Require(list.GetItemCount() > 0, "nothing passes");
        list.SetFilter(kName, "_file99", MListCtrl::FilterContains);
        passed = list.GetItemCount();
      },
      [&] {
        std::vector<const Item*> rows;
        for (const char* const pattern : {"_file12", "_file99"}) {
          rows.clear();
          for (const Item& item : items)
            if (strstr(item.name, pattern) != nullptr) rows.push_back(&item);
        }
        bench::Require(passed == 0 || rows.size() == static_cast<size_t>(passed), "counts differ");
      });
  bench::PrintRow(Named("filter twice: contains", count), contains, kFilterAim);
  const bench::Times prefix = bench::Compare(
      RoundsOf(count),
      [&] {
        list.SetFilter(kFolder, "SOURCE\\part7", MListCtrl::FilterPathPrefix);
        list.SetFilter(kFolder, "Source\\part8", MListCtrl::FilterPathPrefix);
      },
      [&] {
        std::vector<const Item*> rows;
        for (const char* const pattern : {"SOURCE\\part7", "Source\\part8"}) {
          rows.clear();
          const size_t length = strlen(pattern);
          for (const Item& item : items)
            if (_strnicmp(item.folder, pattern, length) == 0 && item.folder[length] == '\\')
              rows.push_back(&item);
        }
      });
  bench::PrintRow(Named("filter twice: path prefix", count), prefix, kFilterAim);
  list.ResetFilter();
}

// Nanoseconds for an item at random, found by its identifier.
void MeasureFind(MListCtrl& list, const std::vector<Item>& items, int count) {
  std::unordered_map<unsigned long, const Item*> plain;
  for (size_t i = 0; i < items.size(); ++i) plain[static_cast<unsigned long>(i)] = &items[i];
  std::vector<unsigned long> ids(200000);
  std::mt19937 random(3);
  for (unsigned long& id : ids) id = random() % static_cast<unsigned>(count);
  long long one = 0, two = 0;
  const bench::Times times = bench::Compare(
      RoundsOf(count),
      [&] {
        one = 0;
        for (const unsigned long id : ids) one += list.GetItemIdNum(id, kSize);
      },
      [&] {
        two = 0;
        for (const unsigned long id : ids) two += static_cast<long>(plain.find(id)->second->size);
      });
  bench::Require(one == two, "the values differ");
  bench::PrintRow(Named("200000 values by identifier", count), times, kFilterAim);
}

// A report against writing the same bytes at once.
void MeasureReports(MListCtrl& list, int count) {
  char folder[MAX_PATH] = "";
  GetTempPathA(sizeof folder, folder);
  const std::string path = std::string(folder) + "orvane-bench-report";
  for (const char* const format : {"H", "A", "X", "T"}) {
    const std::string command = "S:0 Q:1 R:" + std::string(format) + " O:" + path;
    bench::Require(list.DoReport(command.c_str()) != 0, "no report");
    std::string bytes;
    FILE* file = fopen(path.c_str(), "rb");
    fseek(file, 0, SEEK_END);
    bytes.resize(static_cast<size_t>(ftell(file)));
    fclose(file);
    const bench::Times times = bench::Compare(
        kRounds, [&] { bench::Require(list.DoReport(command.c_str()) != 0, "no report"); },
        [&] {
          FILE* plain = fopen(path.c_str(), "wb");
          fwrite(bytes.data(), 1, bytes.size(), plain);
          fclose(plain);
        });
    bench::PrintRow(Named(("report " + std::string(format)).c_str(), count), times, 0);
  }
  DeleteFileA(path.c_str());
}

class Shown : public MListCtrl {
 public:
  using MListCtrl::FilterMatch;
};

void MeasureWindow(const std::vector<Item>& items) {
  CWnd parent;
  parent.CreateEx(0, AfxRegisterWndClass(0), "List", WS_POPUP, 0, 0, 800, 600, nullptr, nullptr);
  parent.ShowWindow(SW_SHOW);
  Shown list;
  Declare(list);
  bench::Require(list.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 780, 580), &parent, 1),
                 "no window");
  list.SetSortKey(kName, 0, 0);
  bench::Stopwatch adding;
  Fill(list, items);
  printf("adding to a window that is shown: %.0f ms\n", adding.Milliseconds());
  list.UpdateWindow();
  list.SelectItem(5);
  bench::Best painted;
  for (int round = 0; round < 4; ++round)
    painted.Run([&] {
      list.SetFilter(kName, round % 2 == 0 ? "file" : "_", MListCtrl::FilterContains);
      list.UpdateWindow();
    });
  printf(
      "from SetFilter to the painted window, %d items pass, sorted: %.0f ms (aim 250 of 100000)\n",
      list.GetItemCount(), painted.Milliseconds());

  LVFINDINFO find = {};
  find.flags = LVFI_STRING | LVFI_PARTIAL | LVFI_WRAP;
  const CString last = list.GetItemText(list.GetItemCount() - 1, 0);
  find.psz = last;
  bench::Best found;
  for (int round = 0; round < 4; ++round)
    found.Run([&] {
      const int row = list.CListCtrl::FindItem(&find);
      bench::Require(row > list.GetItemCount() / 2 && list.GetItemText(row, 0) == last,
                     "not found");
    });
  printf("typing finds the last of %d rows: %.1f ms (aim 50 of 1000000)\n", list.GetItemCount(),
         found.Milliseconds());
}

}  // namespace

int main() {
  bench::PrintHeader();
  for (const int count : {10000, 100000, 1000000}) {
    const std::vector<Item> items = MakeItems(count);
    const size_t before = UsedMemory();
    MListCtrl list;
    Declare(list);
    const bench::Stopwatch adding;
    Fill(list, items);
    const double milliseconds = adding.Milliseconds();
    printf("adding %d items: %.0f ms, %.0f bytes of memory an item\n", count, milliseconds,
           static_cast<double>(UsedMemory() - before) / count);
    MeasureFind(list, items, count);
    MeasureFilter(list, items, count);
    if (count > 10000) MeasureSort(list, items, count);
    if (count == 100000) MeasureReports(list, count);
    if (count == 100000) MeasureWindow(items);
    if (count == 1000000) MeasureWindow(items);
    list.DeleteAll();
    for (const Item& item : items) {
      free(item.name);
      free(item.folder);
      free(item.type);
    }
  }
}
