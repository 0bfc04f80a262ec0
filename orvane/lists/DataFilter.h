// Conditions on one column of a list.
#pragma once

#include <afxwin.h>

#include <concepts>
#include <cstdint>
#include <memory>
#include <vector>

#include "entry/export.h"
#include "lists/ListOrder.h"

// One for each kind of column. A filter keeps its settings as user values under a registry key of
// its own; with an empty key they last as long as the filter. A new one has the defaults of its
// kind: call Reset(1) for what was saved.
class ORVANE_API DataFilter {
 public:
  virtual ~DataFilter() = default;
  DataFilter(const DataFilter&) = delete;
  DataFilter& operator=(const DataFilter&) = delete;

  // Lets the user edit the filter in its dialog. 1: it was changed, and saved if the registry lets
  // it; 0: it is as before, because the user has cancelled or no dialog may be shown.
  virtual int Edit() = 0;
  // Sets the defaults of the kind or, not 0, the saved settings, with the default in the place
  // of each that is missing or damaged.
  virtual void Load(int fromRegistry) = 0;
  // The condition itself. value: a cell's text, or its number in the place of the pointer.
  virtual int Match(const char* value) const = 0;
  // Keeps the settings. 1, or 0: the registry refused. Without a key, and here, nothing is done.
  virtual int Save() const { return 1; }

  void Reset(int fromRegistry) {
    m_invert = 0;
    Load(fromRegistry);
  }
  // 1 for a value that the filter lets through: one that matches or, inverted, one that doesn't.
  int IsMatch(const char* value) const { return (Match(value) != 0) != (m_invert != 0); }
  // The same for a number.
  template <std::integral Number>
  int IsMatch(Number number) const {
    return IsMatch(reinterpret_cast<const char*>(static_cast<uintptr_t>(number)));
  }

  int GetInvert() const { return m_invert; }
  void SetInvert(int invert) { m_invert = invert; }
  const CString& GetKey() const { return m_key; }

 protected:
  explicit DataFilter(const char* key = nullptr) : m_key(key) {}

  // Settings by name; the default when there is no key, or no such value.
  unsigned long Read(const char* name, unsigned long defaultValue) const;
  CString ReadText(const char* name) const;

  CString m_key;
  int m_invert = 0;
};

// For Text columns: one condition or two.
class ORVANE_API StringFilter : public DataFilter {
 public:
  enum Condition {
    IncludeAll,
    Equals,
    DoesNotEqual,
    IsGreater,
    IsGreaterOrEqual,
    IsLess,
    IsLessOrEqual,
    BeginsWith,  // from here on case counts, whatever the column's order is
    DoesNotBeginWith,
    Contains,
    DoesNotContain,
    kConditions
  };
  struct Settings {
    int firstCondition = IncludeAll, secondCondition = IncludeAll;
    CString firstText, secondText;
    int bothConditions = 1;  // 0: one of the two is enough
  };

  // compare: the column's; it must give -1, 0 or 1, other results are neither greater nor less.
  // Null: the conditions from Equals to IsLessOrEqual cannot be used.
  StringFilter(ListOrder::CompareTexts compare, const char* key)
      : DataFilter(key), m_compare(compare) {}
  // The texts from first to second; an empty second: no upper end.
  StringFilter(ListOrder::CompareTexts compare, const char* first, const char* second);

  const Settings& Get() const { return m_settings; }
  void Set(const Settings& settings) { m_settings = settings; }
  // Whether a condition can be used with this column.
  bool CanUse(int condition) const;

  int Edit() override;
  void Load(int fromRegistry) override;
  int Match(const char* value) const override;
  int Save() const override;

 private:
  bool Holds(int condition, const char* text, const CString& operand) const;

  ListOrder::CompareTexts m_compare;
  Settings m_settings;
};

// For Enum columns: a set of values. Values from 32 on are never in it.
class ORVANE_API EnumFilter : public DataFilter {
 public:
  EnumFilter(const std::vector<CString>& texts, const char* key)
      : DataFilter(key), m_texts(texts) {}

  // Bit i: value i.
  unsigned long GetMask() const { return m_mask; }
  void SetMask(unsigned long mask) { m_mask = mask; }
  const std::vector<CString>& GetTexts() const { return m_texts; }

  int Edit() override;
  void Load(int fromRegistry) override;
  int Match(const char* value) const override;
  int Save() const override;

 private:
  static constexpr unsigned long kAll = 0xFFFFFFFF;

  std::vector<CString> m_texts;
  unsigned long m_mask = kAll;
};

// For Time columns: the seconds from start to end, both included. A new one excludes the one second
// in which today began, so that it lets about everything through until it is edited.
class ORVANE_API TimeFilter : public DataFilter {
 public:
  explicit TimeFilter(const char* key);

  CTime GetStart() const { return m_start; }
  CTime GetEnd() const { return m_end; }
  void Set(CTime start, CTime end);

  int Edit() override;
  void Load(int fromRegistry) override;
  int Match(const char* value) const override;
  int Save() const override;

  // The second in which a time's day began, in local time with the bias of now, or in UTC.
  static CTime StartOfDay(CTime time, int inUtc = 0);

 private:
  CTime m_start, m_end;
};

// For Numeric columns: the numbers from ... to, both included. A cell's number is taken as unsigned
// and the bounds as signed, by design: a "to" below 0 accepts nothing, a "from" below 0 is no
// bound. A new one excludes 0.
class ORVANE_API NumericFilter : public DataFilter {
 public:
  explicit NumericFilter(const char* key) : DataFilter(key) { m_invert = 1; }

  long GetFrom() const { return m_from; }
  long GetTo() const { return m_to; }
  void Set(long from, long to);

  int Edit() override;
  void Load(int fromRegistry) override;
  int Match(const char* value) const override;
  int Save() const override;

 private:
  long m_from = 0, m_to = 0;
};
