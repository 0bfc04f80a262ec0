#include "lists/ReportCommand.h"

#include <algorithm>
#include <cstring>

#include "lists/MListCtrl.h"

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isLetter(char character) {
  const char lower = static_cast<char>(character | 0x20);
  return lower >= 'a' && lower <= 'z';
}

bool beginsWithDrive(const char* text) {
  return isLetter(text[0]) && text[1] == ':' && (text[2] == '\\' || text[2] == '/');
}

CString textOf(std::string_view text) { return {text.data(), static_cast<int>(text.size())}; }

// The n-th digit's column gets position n; of two digits for a column the later one counts.
std::vector<int> columnsOf(std::string_view digits, int count) {
  std::vector<std::pair<int, int>> positions;  // and their columns
  for (int n = 0; n < static_cast<int>(digits.size()) && isDigit(digits[n]); ++n) {
    const int column = digits[n] - '0';
    if (column >= count) continue;
    std::erase_if(positions, [=](const auto& position) { return position.second == column; });
    positions.emplace_back(n, column);
  }
  std::vector<int> columns;
  for (const auto& position : positions) columns.push_back(position.second);
  return columns;
}

}  // namespace

ReportSettings ReportCommand::Defaults(const MListCtrl& list) {
  ReportSettings settings;
  for (int column = 0; column < list.GetColumnCount(); ++column) settings.columns.push_back(column);
  settings.sortColumn = list.GetSortColumn();
  settings.isDescending = list.IsSortDescending() != 0;
  return settings;
}

const char* ReportCommand::Parse(const MListCtrl& list, const char* command,
                                 ReportSettings& settings) {
  std::vector<Item> items;
  const char* const wrong = Split(command, items);
  for (const Item& item : items) settings.isQuiet |= item.key == 'Q';
  for (const Item& item : items)
    if (!Apply(list, item, settings)) return item.place;
  return wrong;
}

// Null, or where an item stands that has no colon.
const char* ReportCommand::Split(const char* command, std::vector<Item>& items) {
  const char* at = command + strspn(command, " ");
  while (*at != 0) {
    if (at[1] != ':') return at;
    const char* const value = at + 2;
    const char* colon = nullptr;  // of the next item
    if (*value != 0) colon = strchr(value + (beginsWithDrive(value) ? 2 : 1), ':');
    const char* const next = colon != nullptr ? colon - 1 : value + strlen(value);
    const char* end = next;
    while (end != value && end[-1] == ' ') --end;
    items.push_back({*at, {value, static_cast<size_t>(end - value)}, at});
    at = next;
  }
  return nullptr;
}

bool ReportCommand::Apply(const MListCtrl& list, const Item& item, ReportSettings& settings) {
  const std::string_view value = item.value;
  switch (item.key) {
    case 'C':
      settings.columns = columnsOf(value, list.GetColumnCount());
      return true;
    case 'S':
      if (settings.primary.isActive) return false;  // the filter stands on the column before
      if (value.empty() || !isDigit(value[0]) || value[0] - '0' >= list.GetColumnCount() ||
          (value.size() > 1 && value.substr(1) != "D")) {
        return false;
      }
      settings.sortColumn = value[0] - '0';
      settings.isDescending = value.size() > 1;
      settings.primary.column = settings.sortColumn;
      return true;
    case 'F':
      return ApplyFilter(list, value, settings);
    case 'R': {
      constexpr std::string_view kLetters = "HAXT";  // in the order of ReportFormat
      const size_t format = value.size() == 1 ? kLetters.find(value[0]) : std::string_view::npos;
      if (format == std::string_view::npos) return false;
      settings.format = static_cast<ReportFormat>(format);
      return true;
    }
    case 'O':
      settings.outputFile = textOf(value);
      return !value.empty();
    case 'H':
      settings.hasHeader = value.empty() || value[0] != '0';
      return true;
    case 'Q':
      settings.isQuiet = true;
      return true;
    default:
      return false;
  }
}

// A range is of texts, as the column compares them.
bool ReportCommand::ApplyFilter(const MListCtrl& list, std::string_view value,
                                ReportSettings& settings) {
  const int column = settings.primary.column;  // that an S item has named
  if (column < 0) return false;
  const ListColumn& sortedBy = list.m_columns[column];
  if (sortedBy.kind != ListColumnText || sortedBy.compareTexts == nullptr) return false;
  const size_t comma = std::min(value.find(','), value.size());
  const CString from = textOf(value.substr(0, comma));
  const CString to = comma < value.size() ? textOf(value.substr(comma + 1)) : CString();
  settings.primary.filter = std::make_shared<StringFilter>(sortedBy.compareTexts, from, to);
  settings.primary.isActive = true;
  return true;
}
