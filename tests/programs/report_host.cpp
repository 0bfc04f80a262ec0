// Makes a report of a list without a window, for the tests that look at reports with other
// programs: report_host DATA COMMAND. A line of DATA is an item: name, state, time, size, and
// comment, separated by tabs; in the texts "\n" is a line end, "\xHH" a byte and "\\" a backslash.
// Its status is 0 when there is a report.
#include <afxwin.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "lists/MListCtrl.h"
#include "messages/message.h"

namespace {

std::string unescaped(const std::string& text) {
  std::string bytes;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      bytes += text[i];
    } else if (text[++i] == 'n') {
      bytes += "\r\n";
    } else if (text[i] == 'x') {
      bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
      i += 2;
    } else {
      bytes += text[i];
    }
  }
  return bytes;
}

std::vector<std::string> pieces(const std::string& line) {
  std::vector<std::string> found(1);
  for (const char character : line) {
    if (character == '\t')
      found.emplace_back();
    else
      found.back() += character;
  }
  return found;
}

const char* number(const std::string& text) {
  return reinterpret_cast<const char*>(
      static_cast<uintptr_t>(static_cast<uint32_t>(std::stoll(text))));
}

class Documents : public MListCtrl {
 public:
  Documents() {
    StoreMultiLine(1);
    AddColumn("Name", MListCtrl::CompareStr);
    AddEnumColumn("State", 4, "Same\tModified\tNew\tDeleted");
    AddTimeColumn("Modified");
    AddNumericColumn("Size");
    AddColumn("Comment <&\"'>", MListCtrl::CompareStrNocase);
    SetListTitle("Documents <of> \"both\" folders & more");
    SetSecondaryTitle("C:\\base against C:\\revised");
    SetDisplayTz(0);
    SetDisplayTimeFormat("yyyy'-'MM'-'dd|HH':'mm");
  }

  void GetItemColors(unsigned long id, COLORREF& text, COLORREF& background) override {
    constexpr COLORREF kColors[] = {RGB(0, 0, 0), RGB(0, 160, 0), RGB(0, 0, 255), RGB(255, 0, 0)};
    text = kColors[GetItemIdEnum(id, 1) & 3];
    if (GetItemIdNum(id, 3) < 0) background = RGB(255, 240, 200);
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  Message::SetSilent(1);
  Documents list;
  HlReportCallbacks pages;
  pages.cellLink = [](void* client, unsigned long id, int column) -> CString {
    const CString name = static_cast<MListCtrl*>(client)->GetItemIdText(id, 0, 1, 1);
    return column == 0 && !name.IsEmpty() && name[0] == '@' ? "pages/a&\"b\".html#1" : "";
  };
  list.OnHlReport(pages, &list);
  std::ifstream data(argv[1], std::ios::binary);
  for (std::string line; std::getline(data, line);) {
    const std::vector<std::string> item = pieces(line);
    if (item.size() != 5) return 2;
    const std::string name = unescaped(item[0]), comment = unescaped(item[4]);
    const char* const values[] = {name.c_str(), number(item[1]), number(item[2]), number(item[3]),
                                  comment.c_str()};
    list.AddItem(MListCtrl::kAutomaticId, values);
  }
  return list.DoReport(argv[2]) != 0 ? 0 : 1;
}
