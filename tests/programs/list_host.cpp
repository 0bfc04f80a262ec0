// A host with a list; it knows of the library what the headers and import libraries say.
//   list_host show KIND                    for the eye: list, menu, texts, values, times, numbers
//                                          (dialogs of filters), report
//   list_host show report BUTTON           the dialog that a button of the report dialog opens
//   list_host layout FILE KEY TITLE...     opens a list with text columns and the layout that is
//                                          kept under KEY, and writes to FILE what it looks like
//   list_host arrange COLUMN WIDTH KEY TITLE...  opens it, makes a column so wide and sorts by it,
//                                          descending
//   list_host read TITLE                   opens a list in a window with that title for other
//                                          programs to read, until the window is closed
// The exit status is 0; 1: a window could not be opened; 99: wrong usage.
#include <afxwin.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "lists/MListCtrl.h"
#include "lists/ReportDialog.h"

namespace {

constexpr char kPictureKey[] = "Software\\Orvane tests\\pictures";
constexpr UINT kListId = 100;

const char* number(uint32_t value) {
  return reinterpret_cast<const char*>(static_cast<uintptr_t>(value));
}

// Documents of a comparison, coloured by their states.
class Documents : public MListCtrl {
 public:
  enum { kName, kFolder, kStatus, kModified, kSize };
  enum { kSame, kChanged, kNew, kDeleted };

  explicit Documents(const char* key = nullptr, unsigned long shown = ~0ul) {
    SetRegistryKey(key);
    SetSortMethod(0, 1);
    SetEnabledColumns(shown);
    AddColumn("Document Name", CompareStr);
    AddColumn("Folder Name", CompareStr);
    AddEnumColumn("Status", 4, "Same\tModified\tNew\tDeleted");
    AddTimeColumn("Modified", 1);
    AddNumericColumn("Size");
    SetListTitle("Documents of the project");
  }

  void Fill() {
    static constexpr struct {
      const char *name, *folder;
      int status;
      uint32_t size;
    } kDocuments[] = {{"contents.txt", ".", kChanged, 4120},
                      {"chapter 1.txt", "text", kSame, 38214},
                      {"chapter 2.txt", "text", kChanged, 41977},
                      {"chapter 3.txt", "text", kNew, 12050},
                      {"chapter 3 (old).txt", "text", kDeleted, 11873},
                      {"cover.png", "pictures", kSame, 220145},
                      {"map of the harbour.png", "pictures", kChanged, 180330},
                      {"authors.txt", ".", kSame, 517}};
    uint32_t time = 1700000000;
    for (const auto& document : kDocuments) {
      const char* const values[] = {document.name, document.folder,
                                    number(static_cast<uint32_t>(document.status)),
                                    number(time += 86399), number(document.size)};
      AddItem(kAutomaticId, values);
    }
  }

  void GetItemColors(unsigned long id, COLORREF& text, COLORREF& background) override {
    switch (GetItemIdEnum(id, kStatus)) {
      case kChanged:
        text = RGB(0, 0, 192);
        break;
      case kNew:
        text = RGB(0, 112, 0);
        break;
      case kDeleted:
        text = RGB(160, 0, 0);
        background = RGB(255, 240, 240);
        break;
    }
  }
};

// A main window that a list fills.
class Frame : public CFrameWnd {
 public:
  Frame(MListCtrl& list, const char* title) : m_list(list) {
    m_isOpen = Create(nullptr, title, WS_OVERLAPPEDWINDOW, CRect(20, 20, 660, 300)) &&
               m_list.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(), this, kListId);
    if (!m_isOpen) return;
    ShowWindow(SW_SHOW);
    CRect room;
    GetClientRect(room);
    m_list.MoveWindow(room);
    m_list.SetFocus();
  }
  bool IsOpen() const { return m_isOpen; }

  // Until the window is closed.
  void Run() {
    MSG message;
    while (IsWindow(m_hWnd) && GetMessage(&message, nullptr, 0, 0) > 0) {
      TranslateMessage(&message);
      DispatchMessage(&message);
    }
  }

 protected:
  void PostNcDestroy() override { PostQuitMessage(0); }

 private:
  MListCtrl& m_list;
  bool m_isOpen;
};

void CALLBACK openMenu(HWND list, UINT, UINT_PTR timer, DWORD) {
  KillTimer(list, timer);
  PostMessage(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list), -1);
  // Up to "Sort By", and into it.
  for (const WPARAM key : {VK_UP, VK_UP, VK_RIGHT}) PostMessage(list, WM_KEYDOWN, key, 1);
}

int showList(bool withMenu) {
  Documents list;
  Frame frame(list, "Documents");
  if (!frame.IsOpen()) return 1;
  list.Fill();
  for (int column = 0; column < list.GetVisibleColNum(); ++column) list.FitColumn(column);
  list.SetSortKey(Documents::kName, 0);
  list.SelectItem(2);
  if (withMenu) SetTimer(list.m_hWnd, 1, 300, openMenu);
  frame.Run();
  return 0;
}

// What is done to the dialog once it is there.
int buttonToPress = 0;

void CALLBACK activateDialog(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = GetActiveWindow();
  if (dialog == nullptr || !IsWindowVisible(dialog)) return;
  KillTimer(nullptr, timer);
  SetForegroundWindow(dialog);
  PostMessage(GetDlgItem(dialog, buttonToPress), BM_CLICK, 0, 0);
}

int showReportDialog(int button) {
  Documents list(kPictureKey);
  list.Fill();
  ReportSettings settings;
  settings.columns = {Documents::kName, Documents::kStatus, Documents::kSize, Documents::kModified};
  settings.sortColumn = Documents::kName;
  settings.primary = {Documents::kName,
                      std::make_shared<StringFilter>(MListCtrl::CompareStr, "a", "m"), true};
  const auto status = std::shared_ptr<DataFilter>(list.NewFilter(Documents::kStatus, nullptr));
  static_cast<EnumFilter&>(*status).SetMask(1 << Documents::kChanged | 1 << Documents::kNew);
  settings.secondary = {Documents::kStatus, status, true};
  buttonToPress = button;
  SetTimer(nullptr, 0, 200, activateDialog);
  RunReportDialog(list, settings, true);
  return 0;
}

int showFilter(int column) {
  Documents list(kPictureKey);
  std::unique_ptr<DataFilter> filter(list.GetFilter(column));
  SetTimer(nullptr, 0, 200, activateDialog);
  filter->Edit();
  return 0;
}

int show(const char* kind) {
  static constexpr struct {
    const char* kind;
    int column;
  } kFilters[] = {{"texts", Documents::kName},
                  {"values", Documents::kStatus},
                  {"times", Documents::kModified},
                  {"numbers", Documents::kSize}};
  if (strcmp(kind, "list") == 0 || strcmp(kind, "menu") == 0)
    return showList(strcmp(kind, "menu") == 0);
  if (strcmp(kind, "report") == 0) return showReportDialog(0);
  for (const auto& filter : kFilters)
    if (strcmp(kind, filter.kind) == 0) return showFilter(filter.column);
  return 99;
}

// Text columns, with what is kept of them.
struct KeptList : MListCtrl {
  KeptList(const char* key, char** titles) {
    MRegistry::InitProductRegistry(key, 1);
    SetRegistryKey(key);
    SetSortMethod(1, 1);
    for (; *titles != nullptr; ++titles) AddColumn(*titles, CompareStr);
  }
  ~KeptList() override {
    DestroyWindow();
    MRegistry::FreeProductRegistry();
  }
};

int writeLayout(const char* file, const char* key, char** titles) {
  KeptList list(key, titles);
  Frame frame(list, "Layout");
  FILE* const out = frame.IsOpen() ? fopen(file, "w") : nullptr;
  if (out == nullptr) return 1;
  list.SetInitialSortKey(0);
  for (int column = 0; column < list.GetColumnCount(); ++column)
    fprintf(out, "%s %d\n", static_cast<LPCTSTR>(list.GetColName(column)),
            list.GetColumnWidth(column));
  fprintf(out, "%s %s\n", static_cast<LPCTSTR>(list.GetColName(list.GetSortColumn())),
          list.IsSortDescending() ? "descending" : "ascending");
  fclose(out);
  return 0;
}

int arrange(int column, int width, const char* key, char** titles) {
  KeptList list(key, titles);
  Frame frame(list, "Layout");
  if (!frame.IsOpen()) return 1;
  list.SetInitialSortKey(0);
  list.SetColumnWidth(column, width);
  list.SetSortKey(column, 0, 1);
  return 0;
}

// Without the folders, and with the columns dragged: status, name, size, time.
int letRead(const char* title) {
  Documents list(nullptr, ~(1ul << Documents::kFolder));
  Frame frame(list, title);
  if (!frame.IsOpen()) return 1;
  list.Fill();
  list.SetSortKey(Documents::kName, 0);
  int order[] = {1, 0, 3, 2};
  list.SetColumnOrderArray(4, order);
  list.UpdateWindow();
  frame.Run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && strcmp(argv[1], "show") == 0) MRegistry::InitProductRegistry(kPictureKey, 1);
  const auto is = [&](const char* command, int least) {
    return argc >= least && strcmp(argv[1], command) == 0;
  };
  if (is("show", 4)) return showReportDialog(atoi(argv[3]));
  if (is("show", 3)) return show(argv[2]);
  if (is("layout", 5)) return writeLayout(argv[2], argv[3], argv + 4);
  if (is("arrange", 6)) return arrange(atoi(argv[2]), atoi(argv[3]), argv[4], argv + 5);
  if (is("read", 3)) return letRead(argv[2]);
  return 99;
}
