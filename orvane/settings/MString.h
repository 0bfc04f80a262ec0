// A string that is loaded from string tables and filled with inserts.
#pragma once

#include <afxwin.h>

#include <concepts>

#include "entry/export.h"

// What stands for a %1, %2 or %3: a text or a number. It lasts no longer than the text.
class MInsert {
 public:
  MInsert() = default;
  MInsert(const char* text) : m_text(text == nullptr ? "" : text) {}
  MInsert(const CString& text) : m_text(text) {}
  template <std::integral Number>
  requires(sizeof(Number) <= sizeof(unsigned)) MInsert(Number number)
      : m_number(static_cast<unsigned>(number)),
        m_format(std::signed_integral<Number> ? 'd' : 'u') {}

  bool IsText() const { return m_format == 's'; }
  const char* Text() const { return m_text; }
  unsigned Number() const { return m_number; }
  // The printf conversion that shows it: 's', 'd' or 'u'.
  char Format() const { return m_format; }

 private:
  const char* m_text = "";
  unsigned m_number = 0;
  char m_format = 's';
};

// The module whose string table comes first. A number or null is never taken for one by mistake.
class MModule {
 public:
  template <std::same_as<HINSTANCE> Instance>
  MModule(Instance module) : m_handle(module) {}
  HINSTANCE Handle() const { return m_handle; }

 private:
  HINSTANCE m_handle;
};

// A string with resource operations. They look for a text in a module (null: the current resource
// module), then in the extension modules. When no table has the id they give FALSE and an empty
// string.
class ORVANE_API MString : public CString {
 public:
  MString() = default;
  MString(const char* text) : CString(text) {}
  MString(const CString& text) : CString(text) {}
  using CString::operator=;

  BOOL LoadString(UINT id, HINSTANCE module = nullptr);
  // A text of a table, empty when none has the id.
  static CString Loaded(UINT id);

  // Loads a text and puts inserts in the place of its %1, %2 and %3, as CString::FormatMessage
  // does, with two more safeguards: an insert may be a text or a number whatever the text expects
  // (a plain %1 shows a number, and a text stands where a number was to be formatted), and an
  // insert that was not given is empty. Of a longer text the first 9,000 bytes are shown.
  BOOL FormatMessage(UINT id, const MInsert& one, const MInsert& two = {},
                     const MInsert& three = {});
  BOOL FormatMessage(UINT id, const MInsert& one, MModule module) {
    return Fill(id, one, {}, {}, module.Handle());
  }
  BOOL FormatMessage(UINT id, const MInsert& one, const MInsert& two, MModule module) {
    return Fill(id, one, two, {}, module.Handle());
  }
  BOOL FormatMessage(UINT id, const MInsert& one, const MInsert& two, const MInsert& three,
                     MModule module) {
    return Fill(id, one, two, three, module.Handle());
  }

  // The same with a text that the caller has.
  void FormatText(const char* format, const MInsert& one, const MInsert& two = {},
                  const MInsert& three = {});

 private:
  BOOL Fill(UINT id, const MInsert& one, const MInsert& two, const MInsert& three,
            HINSTANCE module);
};
