#include "lists/FilterWords.h"

#include "lists/CellValue.h"
#include "lists/MListCtrl.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "util/TimeUtil.h"

namespace {

// In the order of StringFilter::Condition.
constexpr UINT kConditionTexts[] = {IDS_FILTER_INCLUDE_ALL,         IDS_FILTER_EQUALS,
                                    IDS_FILTER_DOES_NOT_EQUAL,      IDS_FILTER_IS_GREATER,
                                    IDS_FILTER_IS_GREATER_OR_EQUAL, IDS_FILTER_IS_LESS,
                                    IDS_FILTER_IS_LESS_OR_EQUAL,    IDS_FILTER_BEGINS_WITH,
                                    IDS_FILTER_DOES_NOT_BEGIN_WITH, IDS_FILTER_CONTAINS,
                                    IDS_FILTER_DOES_NOT_CONTAIN};
static_assert(std::size(kConditionTexts) == StringFilter::kConditions);

CString filled(UINT id, const MInsert& one, const MInsert& two = {}) {
  MString text;
  text.FormatMessage(id, one, two);
  return text;
}

CString condition(int index, const CString& operand) {
  return ConditionInWords(index) + " \"" + operand + "\"";
}

CString words(const StringFilter& filter) {
  const StringFilter::Settings& set = filter.Get();
  const bool hasFirst = set.firstCondition != StringFilter::IncludeAll;
  // A range without an upper end has a second condition that only an empty text meets.
  const bool isOpenRange = !set.bothConditions &&
                           set.secondCondition == StringFilter::IsLessOrEqual &&
                           set.secondText.IsEmpty();
  const bool hasSecond = set.secondCondition != StringFilter::IncludeAll && !isOpenRange;
  // Either of two conditions is enough, and one of them is always true.
  if (!set.bothConditions && !isOpenRange && !(hasFirst && hasSecond))
    return MString::Loaded(IDS_FILTER_INCLUDE_ALL);
  if (!hasFirst && !hasSecond) return MString::Loaded(IDS_FILTER_INCLUDE_ALL);
  CString text;
  if (hasFirst) text = condition(set.firstCondition, set.firstText);
  if (hasFirst && hasSecond)
    text += " " + MString::Loaded(set.bothConditions ? IDS_FILTER_AND : IDS_FILTER_OR) + " ";
  if (hasSecond) text += condition(set.secondCondition, set.secondText);
  return text;
}

CString words(const EnumFilter& filter) {
  CString text;
  const auto& texts = filter.GetTexts();
  for (uint32_t value = 0; value < texts.size() && value < 32; ++value) {
    if (!filter.IsMatch(ValueOf(value))) continue;
    if (!text.IsEmpty()) text += ", ";
    text += texts[value];
  }
  return text.IsEmpty() ? MString::Loaded(IDS_FILTER_NOTHING) : text;
}

CString range(const DataFilter& filter, const CString& from, const CString& to) {
  const CString text = filled(IDS_FILTER_FROM_TO, from, to);
  return filter.GetInvert() ? filled(IDS_FILTER_ALL_BUT, text) : text;
}

CString words(const TimeFilter& filter) {
  const auto shown = [](CTime time) { return DisplayDate(time, nullptr, -1); };
  return range(filter, shown(filter.GetStart()), shown(filter.GetEnd()));
}

CString words(const NumericFilter& filter) {
  const auto shown = [](long number) {
    CString text;
    text.Format("%ld", number);
    return text;
  };
  return range(filter, shown(filter.GetFrom()), shown(filter.GetTo()));
}

CString words(const DataFilter* filter) {
  if (const auto* const strings = dynamic_cast<const StringFilter*>(filter)) return words(*strings);
  if (const auto* const values = dynamic_cast<const EnumFilter*>(filter)) return words(*values);
  if (const auto* const times = dynamic_cast<const TimeFilter*>(filter)) return words(*times);
  if (const auto* const numbers = dynamic_cast<const NumericFilter*>(filter))
    return words(*numbers);
  return {};
}

}  // namespace

CString ConditionInWords(int condition) { return MString::Loaded(kConditionTexts[condition]); }

CString FilterInWords(const MListCtrl& list, const ReportFilter& filter, bool isPrimary) {
  if (!filter.isActive || filter.filter == nullptr) return {};
  CString text =
      MString::Loaded(isPrimary ? IDS_REPORT_PRIMARY_FILTER : IDS_REPORT_SECONDARY_FILTER);
  text += " " + list.GetColName(filter.column, 1);
  const CString condition = words(filter.filter.get());
  if (!condition.IsEmpty()) text += ": " + condition;
  return text;
}
