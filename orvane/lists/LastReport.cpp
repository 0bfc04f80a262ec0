#include "lists/LastReport.h"

#include <algorithm>
#include <utility>

#include "lists/MListCtrl.h"

namespace {

// User values under the list's key. The title of a column follows kPosition; a column that is not
// included has the position kExcluded.
constexpr char kPosition[] = "ReportPosition";
constexpr unsigned long kExcluded = 0xFFFFFFFF;
constexpr char kSortColumn[] = "ReportSortColumn";  // a title; empty: the list's order
constexpr char kDescending[] = "ReportDescending";
constexpr char kPrimaryActive[] = "ReportPrimaryFilter";
constexpr char kSecondaryColumn[] = "ReportSecondaryColumn";  // a title
constexpr char kSecondaryActive[] = "ReportSecondaryFilter";
constexpr char kFormat[] = "ReportFormat";
constexpr char kTitlesOnTop[] = "ReportTitlesOnTop";
constexpr char kFile[] = "ReportFile";

void loadColumns(MListCtrl& list, std::vector<int>& columns) {
  std::vector<std::pair<unsigned long, int>> positions;
  bool isAnySaved = false;
  for (int column = 0; column < list.GetColumnCount(); ++column) {
    if (!list.ColumnEnabled(column)) continue;
    unsigned long position = 0;
    if (!list.GetRegistry()->GetUserKey(kPosition + list.GetColName(column, 1), position, 0))
      position = MListCtrl::kMostColumns;
    else
      isAnySaved = true;
    if (position != kExcluded)
      positions.emplace_back(std::min<unsigned long>(position, MListCtrl::kMostColumns), column);
  }
  if (!isAnySaved || positions.empty()) return;
  std::sort(positions.begin(), positions.end());
  columns.clear();
  for (const auto& [position, column] : positions) columns.push_back(column);
}

void loadFlag(const MRegistry& registry, const char* name, bool& flag) {
  int value = 0;
  if (registry.GetUserKey(name, value, 0)) flag = value != 0;
}

}  // namespace

std::shared_ptr<DataFilter> SavedReportFilter(MListCtrl& list, int column, ReportFilterRole role) {
  const bool isPrimary = role == ReportFilterRole::Primary;
  std::shared_ptr<DataFilter> filter(
      list.GetRegistry() == nullptr ? list.NewFilter(column, nullptr)
                                    : list.GetFilter(column, isPrimary ? "Primary" : "Secondary"));
  if (filter != nullptr) filter->Reset(1);
  return filter;
}

void LoadLastReport(MListCtrl& list, ReportSettings& settings) {
  if (list.GetRegistry() == nullptr) return;
  const MRegistry& registry = *list.GetRegistry();
  loadColumns(list, settings.columns);
  CString title;
  if (registry.GetUserKey(kSortColumn, title)) {
    const int column = list.CalcColIdx(title);
    if (title.IsEmpty() || list.CanSortBy(column)) {
      settings.sortColumn = title.IsEmpty() ? -1 : column;
      loadFlag(registry, kDescending, settings.isDescending);
      loadFlag(registry, kPrimaryActive, settings.primary.isActive);
    }
  }
  if (registry.GetUserKey(kSecondaryColumn, title) && list.CalcColIdx(title) >= 0) {
    settings.secondary.column = list.CalcColIdx(title);
    loadFlag(registry, kSecondaryActive, settings.secondary.isActive);
  }
  int format = 0;
  if (registry.GetUserKey(kFormat, format, 0) && format >= 0 &&
      format < static_cast<int>(ReportFormat::kCount))
    settings.format = static_cast<ReportFormat>(format);
  loadFlag(registry, kTitlesOnTop, settings.hasHeader);
  CString file;
  if (registry.GetUserKey(kFile, file)) settings.outputFile = file;

  if (settings.sortColumn >= 0) {
    settings.primary.column = settings.sortColumn;
    settings.primary.filter =
        SavedReportFilter(list, settings.sortColumn, ReportFilterRole::Primary);
  } else {
    settings.primary = {};
  }
  if (settings.secondary.column >= 0)
    settings.secondary.filter =
        SavedReportFilter(list, settings.secondary.column, ReportFilterRole::Secondary);
}

void SaveLastReport(MListCtrl& list, const ReportSettings& settings) {
  if (list.GetRegistry() == nullptr) return;
  const MRegistry& registry = *list.GetRegistry();
  const std::vector<int>& columns = settings.columns;
  for (int column = 0; column < list.GetColumnCount(); ++column) {
    const auto found = std::find(columns.begin(), columns.end(), column);
    registry.SetUserKey(
        kPosition + list.GetColName(column, 1),
        found == columns.end() ? kExcluded : static_cast<unsigned long>(found - columns.begin()));
  }
  const auto saveFlag = [&](const char* name, bool flag) {
    registry.SetUserKey(name, static_cast<unsigned long>(flag));
  };
  registry.SetUserKey(kSortColumn, list.GetColName(settings.sortColumn, 1));
  saveFlag(kDescending, settings.isDescending);
  saveFlag(kPrimaryActive, settings.primary.isActive);
  registry.SetUserKey(kSecondaryColumn, list.GetColName(settings.secondary.column, 1));
  saveFlag(kSecondaryActive, settings.secondary.isActive);
  registry.SetUserKey(kFormat, static_cast<unsigned long>(settings.format));
  saveFlag(kTitlesOnTop, settings.hasHeader);
  registry.SetUserKey(kFile, settings.outputFile);
}
