#include "lists/DataFilter.h"

#include <cstdint>
#include <cstring>
#include <utility>

#include "lists/CellValue.h"
#include "lists/TextMatch.h"
#include "markup/NoException.h"
#include "settings/SettingsGroup.h"
#include "util/TimeUtil.h"

namespace {

constexpr long kDay = 24 * 60 * 60;
constexpr char kInvert[] = "invert";

// Half a filter is none, so all of its values are stored or none: 1 or 0. Without a key there is
// nothing to do.
template <class... Values>
int saveAll(const CString& key, const Values&... values) {
  if (key.IsEmpty()) return 1;
  return WithoutException([&] {
    const MRegistry registry(key);
    SettingsGroup group(registry);
    (group.Add(values.first, values.second), ...);
    return group.Save();
  });
}

std::pair<const char*, unsigned long> number(const char* name, long value) {
  return {name, static_cast<unsigned long>(value)};
}

std::pair<const char*, const char*> text(const char* name, const CString& value) {
  return {name, value};
}

}  // namespace

unsigned long DataFilter::Read(const char* name, unsigned long defaultValue) const {
  if (m_key.IsEmpty()) return defaultValue;
  unsigned long value = defaultValue;
  MRegistry(m_key).GetUserKey(name, value, defaultValue);
  return value;
}

CString DataFilter::ReadText(const char* name) const {
  CString value;
  if (!m_key.IsEmpty()) MRegistry(m_key).GetUserKey(name, value);
  return value;
}

// --- Texts ---

StringFilter::StringFilter(ListOrder::CompareTexts compare, const char* first, const char* second)
    : DataFilter(nullptr), m_compare(compare) {
  m_settings.firstCondition = IsGreaterOrEqual;
  m_settings.firstText = first;
  m_settings.secondCondition = IsLessOrEqual;
  m_settings.secondText = second;
  // Without an upper end either condition is enough; only an empty text is "less than or equal to"
  // an empty one.
  m_settings.bothConditions = !m_settings.secondText.IsEmpty();
}

bool StringFilter::CanUse(int condition) const {
  if (condition < IncludeAll || condition >= kConditions) return false;
  return m_compare != nullptr || condition < Equals || condition > IsLessOrEqual;
}

void StringFilter::Load(int fromRegistry) {
  m_settings = {};
  if (!fromRegistry || m_key.IsEmpty()) return;
  const auto condition = [this](const char* name) {
    const int saved = static_cast<int>(Read(name, IncludeAll));
    return CanUse(saved) ? saved : static_cast<int>(IncludeAll);
  };
  m_settings.firstCondition = condition("FirstCondition");
  m_settings.secondCondition = condition("SecondCondition");
  m_settings.firstText = ReadText("FirstString");
  m_settings.secondText = ReadText("SecondString");
  m_settings.bothConditions = Read("andCondition", 1) != 0;
}

int StringFilter::Save() const {
  return saveAll(m_key, text("FirstString", m_settings.firstText),
                 text("SecondString", m_settings.secondText),
                 number("FirstCondition", m_settings.firstCondition),
                 number("SecondCondition", m_settings.secondCondition),
                 number("andCondition", m_settings.bothConditions != 0));
}

bool StringFilter::Holds(int condition, const char* text, const CString& operand) const {
  if (!CanUse(condition)) return false;
  const auto compare = [&] { return m_compare(text, operand); };
  switch (condition) {
    case Equals:
      return compare() == 0;
    case DoesNotEqual:
      return compare() != 0;
    case IsGreater:
      return compare() == 1;
    case IsGreaterOrEqual:
      return compare() != -1;
    case IsLess:
      return compare() == -1;
    case IsLessOrEqual:
      return compare() != 1;
    case BeginsWith:
      return ::BeginsWith(text, operand);
    case DoesNotBeginWith:
      return !::BeginsWith(text, operand);
    case Contains:
      return ::Contains(text, operand);
    case DoesNotContain:
      return !::Contains(text, operand);
    default:
      return true;
  }
}

int StringFilter::Match(const char* value) const {
  const bool first = Holds(m_settings.firstCondition, value, m_settings.firstText);
  if (first != (m_settings.bothConditions != 0)) return first;
  return Holds(m_settings.secondCondition, value, m_settings.secondText);
}

// --- Enums ---

void EnumFilter::Load(int fromRegistry) {
  m_mask = fromRegistry ? Read("Flags", kAll) : kAll;
  m_invert = fromRegistry ? Read(kInvert, 0) != 0 : 0;
}

int EnumFilter::Save() const {
  return saveAll(m_key, number("Flags", static_cast<long>(m_mask)), number(kInvert, m_invert != 0));
}

int EnumFilter::Match(const char* value) const {
  const uint32_t number = NumberOf(value);
  return number < 32 && (m_mask >> number & 1) != 0;
}

// --- Times ---

TimeFilter::TimeFilter(const char* key) : DataFilter(key) { TimeFilter::Load(0); }

CTime TimeFilter::StartOfDay(CTime time, int inUtc) {
  const long seconds = static_cast<long>(time.GetTime());
  const long local = inUtc ? seconds : seconds - GetZoneBias(0);
  return CTime(static_cast<time_t>(seconds - local % kDay));
}

void TimeFilter::Set(CTime start, CTime end) {
  m_start = start;
  m_end = end;
}

void TimeFilter::Load(int fromRegistry) {
  m_start = m_end = StartOfDay(CTime::GetCurrentTime());
  m_invert = 1;
  if (!fromRegistry) return;
  m_start = static_cast<time_t>(Read("StartDate", static_cast<unsigned long>(m_start.GetTime())));
  m_end = static_cast<time_t>(Read("EndDate", static_cast<unsigned long>(m_end.GetTime())));
  m_invert = Read(kInvert, 1) != 0;
}

int TimeFilter::Save() const {
  return saveAll(m_key, number("StartDate", static_cast<long>(m_start.GetTime())),
                 number("EndDate", static_cast<long>(m_end.GetTime())),
                 number(kInvert, m_invert != 0));
}

int TimeFilter::Match(const char* value) const {
  const auto seconds = static_cast<int32_t>(NumberOf(value));
  return m_start.GetTime() <= seconds && seconds <= m_end.GetTime();
}

// --- Numbers ---

void NumericFilter::Set(long from, long to) {
  m_from = from;
  m_to = to;
}

void NumericFilter::Load(int fromRegistry) {
  m_from = fromRegistry ? static_cast<long>(Read("FromNumeric", 0)) : 0;
  m_to = fromRegistry ? static_cast<long>(Read("ToNumeric", 0)) : 0;
  m_invert = fromRegistry ? Read(kInvert, 1) != 0 : 1;
}

int NumericFilter::Save() const {
  return saveAll(m_key, number("FromNumeric", m_from), number("ToNumeric", m_to),
                 number(kInvert, m_invert != 0));
}

int NumericFilter::Match(const char* value) const {
  const int64_t number = NumberOf(value);
  return m_from <= number && number <= m_to;
}
