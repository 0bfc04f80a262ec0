// The command string of a list's report.
#pragma once

#include <afxwin.h>

#include <string_view>

#include "entry/export.h"
#include "lists/ReportSettings.h"

class MListCtrl;

// A command is a row of items: a key letter, a colon, and a value that ends before the next item's
// key. MListCtrl::DoReport describes the keys.
//
// Wherever a colon stands, the character before it is a key; only the colon of a full path's drive
// at the start of a value is not. The blanks between two items belong to neither.
class ORVANE_API ReportCommand {
 public:
  // What a report is when its command says nothing: all columns, in the order of the list.
  static ReportSettings Defaults(const MListCtrl& list);

  // Changes settings as the command says. Null, or where in the command the item begins that has an
  // error; settings are good for nothing then but isQuiet, which counts wherever in the command it
  // stands. That the columns are none is no error yet.
  static const char* Parse(const MListCtrl& list, const char* command, ReportSettings& settings);

 private:
  struct Item {
    char key;
    std::string_view value;
    const char* place;
  };

  static const char* Split(const char* command, std::vector<Item>& items);
  static bool Apply(const MListCtrl& list, const Item& item, ReportSettings& settings);
  static bool ApplyFilter(const MListCtrl& list, std::string_view value, ReportSettings& settings);
};
