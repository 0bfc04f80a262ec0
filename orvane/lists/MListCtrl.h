// The typed report list: a list that owns its data, and filters, sorts and remembers its layout.
#pragma once

#include <afxcmn.h>
#include <afxtempl.h>

#include <concepts>
#include <memory>
#include <vector>

#include "controls/CListCtrlEx.h"
#include "controls/MFileViewButton.h"
#include "controls/MPopupMenu.h"
#include "entry/CStrMap.h"
#include "entry/export.h"
#include "lists/DataFilter.h"
#include "lists/ListColumns.h"
#include "lists/ListDataMap.h"
#include "lists/ListOrder.h"
#include "lists/ReportExtension.h"
#include "lists/ReportSettings.h"
#include "ops/MultiOp.h"
#include "settings/RegistryUtil.h"

// A client declares up to 25 typed columns, then adds items: an identifier, a value for each
// column, and a description if it likes. The list shows the items that pass its filter, in the
// order of a column, and asks itself for every text that is to be seen: a million items are shown
// at once. Selection and focus stay with their items, whatever happens to the rows.
//
// Without a window the list does all the same, for reports.
//
// Columns go by data index, the order of declaration, or by position, the order in which the shown
// ones stand in the header as declared; dragging a header changes neither. The position behind the
// last column, and the data index kDescription, stand for the description.
//
// Errors of the caller (a column that there is not, an identifier that there is already) are
// reported by ASSERT and change nothing. All functions are for the thread of the window.
class ORVANE_API MListCtrl : public CListCtrlEx {
 public:
  enum ColumnKind {
    Text = ListColumnText,
    Enum = ListColumnEnum,       // an index into the column's texts
    Time = ListColumnTime,       // seconds since 1970, UTC; 0: none
    Numeric = ListColumnNumeric  // a signed number of 32 bits
  };
  // The tests of the text filter.
  enum FilterType {
    FilterEqual,
    FilterContains,
    FilterBeginsWith,
    FilterEqualNoCase,
    FilterBeginsWithNoCase,
    FilterEqualNoCaseToo,  // the same as FilterEqualNoCase
    FilterPathPrefix,  // begins with, without regard to case, and ends there or goes on with "\"
    FilterNever
  };
  enum : int { kMostColumns = ListColumns::kMost, kDescription = 25 };
  enum : unsigned long { kAutomaticId = 0xFFFFFFFF };

  // Commands of menus and accelerators.
  enum Command : UINT {
    CommandOpen = 10000,
    CommandView = 10001,
    CommandRename = 10002,
    CommandSelectAll = 10003,
    CommandInvertSelection = 10004,
    CommandReverseOrder = 10005,
    CommandSortBy = 10006,     // and, up to 10030, the data index of a column
    CommandUserFirst = 10031,  // and, up to 10050, the number of a client's command
    CommandUserLast = 10050,
    CommandLast = 10051
  };

  using CompareValues = ListOrder::CompareValues;
  using CompareTexts = ListOrder::CompareTexts;
  // client: the pointer that was given with the callback.
  using SelectFn = void (*)(void* client, unsigned long id);
  using ContextMenuFn = void (*)(void* client, int row, unsigned long id, MPopupMenu& menu);
  using UserCommandFn = void (*)(void* client, int index);
  using OpenFn = MFileViewButton* (*)(void* client, unsigned long id);
  using LabelEditFn = int (*)(void* client, const char* oldText, const char* newText);
  using NotifyFn = void (*)(void* client);
  using ReportsHelpFn = void (*)(unsigned long helpId);
  using ForSelectedFn = OperationReturnState (*)(MListCtrl& list, unsigned long id,
                                                 void* clientData);
  using IdArray = CArray<unsigned long, unsigned long>;
  using TextArray = CArray<CString, const char*>;

  MListCtrl();
  ~MListCtrl() override;

  // --- The window ---

  // As CListCtrl's; the list makes itself a virtual one in report view.
  BOOL Create(DWORD style, const RECT& place, CWnd* parent, UINT id) override;
  // Takes the place of a list view that there is: a dialog's control by its id, or any child of
  // parent, which then gets the id. A list view that is not virtual is replaced by a new one with
  // its style, place and font. 1, or 0: there is none.
  int Subclass(CWnd* dialog, UINT id);
  int Subclass(CWnd* window, CWnd* parent, UINT id);

  // --- Columns: each declaration appends one; declare all before the first item ---
  //
  // 1, or 0: there are kMostColumns already, or no memory. Columns that can be sorted have an entry
  // in the "Sort By" menu. Enum and Time columns are not to be the first.

  // The columns that are shown, bit i for data index i; once, before they are declared.
  void SetEnabledColumns(unsigned long mask) { m_columns.SetEnabled(mask); }
  int ColumnEnabled(int column) const { return m_columns.IsEnabled(column); }

  // A Text column that is sorted by comparing identifiers; by comparing texts; not at all.
  // A function gives below 0, 0 or above 0.
  int AddColumn(const char* title, CompareValues compare, int descendingFirst = 0);
  int AddColumn(const char* title, CompareTexts compare, int descendingFirst = 0);
  int AddUnsortedColumn(const char* title);
  // values: count texts, separated by tabs. Sorted by index, not by text.
  int AddEnumColumn(const char* title, int count, const char* values, int descendingFirst = 0);
  int UpdateEnumColumnValues(int column, int count, const char* values);
  int AddTimeColumn(const char* title, int descendingFirst = 0);
  // Sorted as unsigned numbers, by design: those below 0 come last.
  int AddNumericColumn(const char* title, int descendingFirst = 0);

  int GetColumnCount() const { return m_columns.Count(); }
  ColumnKind GetColumnKind(int column) const;
  // With the description's column, once an item has had a description.
  int GetVisibleColNum() const { return m_columns.VisibleCount() + (m_hasDescription ? 1 : 0); }
  // A title; empty: there is no such column.
  CString GetColName(int column, int byDataIndex = 0) const;
  // All titles, in the order of the data indices.
  int GetColNames(TextArray& names) const;
  // The data index of a position, or of a title; -1: none.
  int CalcColIdx(int position) const;
  int CalcColIdx(const char* title) const;

  // --- Items ---

  // values: for each column a text, or the number itself in the place of the pointer; behind them,
  // with withDescription, the description. Texts are copied, up to the first carriage return unless
  // StoreMultiLine says otherwise; descriptions whole. id: kAutomaticId for the next one that is
  // free, from 0 on. The identifier, kAutomaticId: nothing was added (the identifier is taken, or
  // there is no memory). The row is the last one, whatever the order.
  unsigned long AddItem(unsigned long id, const char* const* values, int withDescription = 0);
  // The values of an item as one text, separated by tabs, which are replaced by ends of texts; a
  // number is in decimal, and that of an Enum column may be one of its texts. 1, or 0: no such
  // item, or no memory.
  int UpdateItem(unsigned long id, char* dataString, int withDescription);
  // refilter: whether the item is shown is decided anew.
  int UpdateItem(unsigned long id, const char* const* values, int withDescription, int refilter);
  int UpdateItemField(unsigned long id, int column, const char* value, int refilter);
  // Cuts text at its tabs into count pieces; the ones that are missing (ASSERT) are empty, and what
  // stands behind the last one is left out.
  static void BreakDataStr(char* text, int count, const char** pieces);
  void StoreMultiLine(int store) { m_storeMultiLine = store; }

  // Sets the description, which is the row's tip; empty: none. 1, or 0: no such item, or no memory.
  int SetTooltip(unsigned long id, const char* text);
  // confirm: the user is asked first. 1 deleted, 0 not.
  int DeleteItemId(unsigned long id, int confirm = 0);
  // Takes a row out of sight; the item stays, and is back after the next filtering.
  int DeleteItem(int row);
  int DeleteAll();

  // The row of an item; the first row whose text at position 0 is text, without regard to case. -1:
  // none.
  int FindItem(unsigned long id) const;
  template <std::integral Id>  // or 0 would be a null text as well
  int FindItem(Id id) const {
    return FindItem(static_cast<unsigned long>(id));
  }
  int FindItem(const char* text) const;
  // kAutomaticId: there is no such row.
  unsigned long GetItemData(int row) const;
  int GetItemCount() const { return static_cast<int>(m_rows.size()); }
  // All items, shown or not.
  int GetStoredCount() const { return static_cast<int>(m_map.Count()); }
  // Counts all items by the text of a cell. 1, or 0: no such column, or no memory.
  int GetItemCnt(int column, CStrMap<unsigned int>& counts, int byDataIndex = 1) const;

  // Values, by data index; -1: no such item, or the column is of another kind.
  int GetItemIdEnum(unsigned long id, int column) const;
  long GetItemIdTime(unsigned long id, int column) const;
  long GetItemIdNum(unsigned long id, int column) const;
  int GetItemEnum(int row, int column) const;
  long GetItemTime(int row, int column) const;
  long GetItemNum(int row, int column) const;

  // What a cell shows. raw: a text of several lines whole. " Error" for no such item.
  CString GetItemIdText(unsigned long id, int column, int raw = 0, int byDataIndex = 0) const;
  CString GetItemText(int row, int column, int raw = 0, int byDataIndex = 0) const;
  // How times are shown: as the zoneBias and the format of DisplayDate.
  void SetDisplayTz(int zoneBias);
  void SetDisplayTimeFormat(const char* format);

  // --- Selection: of the list's window; without one nothing is selected ---

  int GetSelectedCnt() const;
  // The identifier of the row with the focus, 0 when there is none; and, unless any, 0 when not
  // exactly one row is selected.
  unsigned long GetSelectedItem(int any = 0) const;
  int IsSelected(int row) const;
  // The identifier of a selected row. 1, or 0: the row is not selected.
  int GetSelectedItemData(int row, unsigned long& id) const;
  int GetSelectedItemData(int row, unsigned long* id) const {
    return GetSelectedItemData(row, *id);
  }
  // 1, or 0: there is no such row. A row that is selected gets the focus, too.
  int SelectItem(int row, int select = 1);
  int SelectItem(const char* text, int select = 1);
  int SelectItemId(unsigned long id, int select = 1);
  void SelectAll();
  void DeselectAll();
  void InvertSelection();
  // The identifiers of the selected rows, and their number.
  int InitSelectedArray(IdArray& ids) const;
  // Calls fn for each identifier as an operation that the user may cancel; with a progress window
  // unless withGui is 0. Not 0: none has failed.
  int DoForSelected(const IdArray& ids, ForSelectedFn fn, void* clientData, int withGui = 1);

  // One call of a client's function, which a worker has made on the window's thread by sending the
  // message. For the list's own use.
  struct RemoteCall {
    MListCtrl* list;
    ForSelectedFn fn;
    void* clientData;
    unsigned long id;
    mutable OperationReturnState result;
    // An exception, which cannot leave a message of the system's, leaves the result as it is.
    void Run() const;
  };
  static constexpr UINT kForSelectedMessage = WM_APP + 0x3000;

  // --- The text filter ---

  // Shows the items whose text in a Text column passes. negate: those that don't. 1, or 0: not a
  // Text column. Nothing is done when pattern, type and negate are those of now, by design even for
  // another column: reset the filter first.
  virtual int SetFilter(int column, const char* pattern, int type, int negate = 0);
  // For derived lists that filter in their own way. Here it does nothing and gives 0.
  virtual int SetFilter(const char* pattern, int type, int negate);
  // Clears the pattern, and so shows all items. The type and negate stay, by design: under
  // FilterNever nothing is shown until the next SetFilter.
  void ResetFilter();
  int IsFiltered() const { return !m_filter.pattern.IsEmpty(); }
  // The filter in words; empty: none.
  CString GetFilterDscr() const;
  // Decides anew about all items; the rows start in the order of the items, and are sorted.
  void Refilter();

  // --- Order ---

  // restoreSavedKey: SetInitialSortKey takes what the user had. headerArrows: the header shows the
  // direction.
  void SetSortMethod(int restoreSavedKey, int headerArrows);
  // What orders the items that are equal in a column; -1: nothing more.
  void SetAltSortKey(int column, int alt1, int alt2 = -1, int alt3 = -1);
  // Sorts by a column. toggle: in its initial direction, or, when it is the sort column already, in
  // the other one; otherwise as descending says. 1, or 0 with a beep: it cannot be sorted.
  int SetSortKey(int column, int toggle, int descending = 0);
  int SetInitialSortKey(int column);
  int CanSortBy(int column) const;
  // -1: not sorted.
  int GetSortColumn() const { return m_sortColumn; }
  int IsSortDescending() const { return m_sortDescending; }
  // How two items stand in the present order: below 0, 0 or above 0.
  int CompareItemsFunc(unsigned long one, unsigned long two) const;

  // -1, 0 or 1, by unsigned bytes.
  static int CompareStr(const char* one, const char* two);
  static int ReverseCompareStr(const char* one, const char* two);
  // The runtime's comparison without regard to case: any number below 0, 0 or above 0.
  static int CompareStrNocase(const char* one, const char* two);
  static int ReverseCompareStrNocase(const char* one, const char* two);
  static int CompareVal(unsigned long one, unsigned long two);

  // --- Callbacks ---

  // The selection has become one item.
  void OnSelect(SelectFn fn, void* client) { m_onSelect = {fn, client}; }
  // A row was double-clicked, or Enter pressed on it.
  void OnDblClk(SelectFn fn, void* client) { m_onDblClk = {fn, client}; }
  // Before the context menu is shown; entries may be added. row -1, id kAutomaticId: not on a row.
  void OnContextMenu(ContextMenuFn fn, void* client) { m_onContextMenu = {fn, client}; }
  void OnUserCommand(UserCommandFn fn, void* client) { m_onUserCommand = {fn, client}; }
  // Gives the file of an item, null: it has none; the button stays the client's.
  void SetOpenCommand(OpenFn fn, void* client) { m_openCommand = {fn, client}; }
  // The user has typed a new text for the first column. Not 0: it becomes the item's.
  void OnLabelEdit(LabelEditFn fn, void* client);
  void OnWinIniChange(NotifyFn fn, void* client) { m_onWinIniChange = {fn, client}; }
  // Pages that go with the list's reports.
  void OnHlReport(const HlReportCallbacks& callbacks, void* client);
  // The user asks for help in a dialog of the reports.
  void OnReportsHelp(ReportsHelpFn fn) { m_onReportsHelp = fn; }

  // --- Commands ---

  static int MenuCodeFound(UINT code) { return code >= CommandOpen && code <= CommandLast; }
  static UINT FirstUserCommand() { return CommandUserFirst; }
  // Does what a command of the list's menus says. 1, or 0: it is not one that can be done now.
  virtual int ExecuteCode(UINT code);
  // Writes a command's help line into a buffer of 260 bytes. 1, or 0: it has none.
  int GetCmdHelpMsg(UINT code, char* buffer) const;
  // Appends "Open" and "View" to a client's menu; a copy of the "Sort By" menu, with its current
  // entry marked. The client passes the commands to ExecuteCode.
  void GetFileMenu(MPopupMenu& menu) const;
  void AttachSortMenu(CMenu& menu);

  // --- Titles, for reports ---

  void SetListTitle(const char* title) { m_listTitle = title; }
  const CString& ListTitle() const { return m_listTitle; }
  void SetSecondaryTitle(const char* title) { m_secondaryTitle = title; }
  const CString& SecondaryTitle() const { return m_secondaryTitle; }
  CString GetDescriptionTitle() const;
  void SetUrlAndProduct(const char* url, const char* product);
  const CString& ProductUrl() const { return m_productUrl; }
  const CString& ProductName() const { return m_productName; }

  // --- Reports ---

  // Makes a report as the command says, of all items, whether they are shown or not:
  //
  //   C:201 S:1D F:a,m R:H O:C:\\out\\r.htm H:0 Q:1
  //
  //   C  the included columns' data indices, a digit each, in their order; not named: all columns
  //   S  the column to sort by, descending with D; not named: as the list is sorted
  //   F  only what is in the range from[,to] of the sort column, which is a Text column that is
  //      sorted by its texts; behind S
  //   R  H a page (the default), A plain text, X markup, T tab-separated values; in UTF-8
  //   O  the file to write; folders that are missing are made
  //   H  0: no titles on top
  //   Q  no message and no progress window: the result alone tells
  //
  // A list without a window makes the report at once. When it has one, the user chooses in a dialog
  // that begins with what the command says; null or empty, with or without a window: one that
  // begins with what was chosen last, and offers a preview. 1 written; 0: the command has an error,
  // or no report was written, which the user was told, and what stood in the file is there still.
  //
  // The list is not to be changed meanwhile.
  int DoReport(const char* command = nullptr);

  // --- Layout: the widths of the columns and the sort key, kept per user under a registry key ---

  // Replaces the key; null or empty: nothing is kept.
  void SetRegistryKey(const char* key);
  // A new filter on a column, with the defaults of its kind, for the caller to delete. It keeps its
  // settings under the list's key, "\", the column's title and the suffix. Null: no such column, or
  // the list has no key (ASSERT).
  DataFilter* GetFilter(int column, const char* suffix = nullptr) const;
  // The same with a key of the caller's; null: it keeps nothing.
  DataFilter* NewFilter(int column, const char* key) const;
  // Null: there is no key. The list's, until the next SetRegistryKey.
  MRegistry* GetRegistry() const { return m_registry.get(); }

  CString GetCellText(int row, int column) override;
  CString GetRowTip(int row) override;
  // The colours of an item in its row, preset with those of the list, and in reports as pages,
  // preset with black on white; there they are asked for on the thread that writes the report.
  virtual void GetItemColors(unsigned long id, COLORREF& text, COLORREF& background);
  void GetDisplayColors(int row, COLORREF& text, COLORREF& background) override;

  // What clients have set for reports, for the report's dialog and operation.
  const HlReportCallbacks& HlReport() const { return m_hlReport; }
  void* HlReportClient() const { return m_hlReportClient; }
  ReportsHelpFn ReportsHelp() const { return m_onReportsHelp; }

 protected:
  // Whether an item is to be shown. One that this ends with an exception for is not.
  virtual int FilterMatch(unsigned long id) const;

  void InitWindow() override;
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  afx_msg void OnDestroy();
  afx_msg void OnKeyDown(UINT key, UINT repeat, UINT flags);
  afx_msg UINT OnGetDlgCode();
  afx_msg void OnContextMenu(CWnd* window, CPoint point);
  afx_msg void OnWinIniChange(LPCTSTR section);
  afx_msg void OnGetDispInfo(NMHDR* header, LRESULT* result);
  afx_msg void OnFindRow(NMHDR* header, LRESULT* result);
  afx_msg void OnColumnClick(NMHDR* header, LRESULT* result);
  afx_msg void OnItemChanged(NMHDR* header, LRESULT* result);
  afx_msg void OnStatesChanged(NMHDR* header, LRESULT* result);
  afx_msg void OnRowDoubleClick(NMHDR* header, LRESULT* result);
  afx_msg void OnBeginLabelEdit(NMHDR* header, LRESULT* result);
  afx_msg void OnEndLabelEdit(NMHDR* header, LRESULT* result);
  DECLARE_MESSAGE_MAP()

 private:
  friend class ReportCommand;
  friend class ReportItems;

  static constexpr int kDescriptionSlot = 0;  // data index i is in slot i + 1
  static constexpr uint32_t kNone = ListDataMap::kNone;

  template <class Fn>
  struct Callback {
    Fn fn = nullptr;
    void* client = nullptr;
    template <class... Arguments>
    auto operator()(Arguments... arguments) const {
      return fn(client, arguments...);
    }
    explicit operator bool() const { return fn != nullptr; }
  };
  // While one exists, what changes in the window is the list's own work: it is not reported, and
  // drawn once at the end.
  class QuietWindow {
   public:
    explicit QuietWindow(MListCtrl& list);
    ~QuietWindow();

   private:
    MListCtrl& m_list;
  };
  // The condition of the text filter.
  struct TextFilter {
    int column = 0;
    CString pattern;
    int type = FilterEqual;
    int negate = 0;
  };
  // What of the window is restored when the rows have changed: records.
  struct ViewState {
    std::vector<uint32_t> selected;
    uint32_t focused = kNone;
    uint32_t anchor = kNone;
  };

  static int SlotOf(int column) { return column + 1; }
  // A column argument as a data index, or kDescription; -1: there is no such column.
  int DataIndex(int column, int byDataIndex) const;
  bool HasRow(int row) const { return row >= 0 && row < GetItemCount(); }
  template <class Complete>
  int Declare(const char* title, ListColumnKind kind, int descendingFirst, Complete complete);
  int AppendColumn(const ListColumn& column);
  void InsertHeader(int position);
  CString HeaderText(int position) const;
  static std::vector<CString> EnumTexts(int count, const char* values);

  void StoreText(uint32_t record, int slot, const char* text, bool whole);
  void StoreValue(uint32_t record, int column, const char* value);
  void StoreValues(uint32_t record, const char* const* values, int withDescription);
  void StoreDescription(uint32_t record, const char* text);
  const char* FromDataString(int column, const char* piece) const;
  template <class Store>
  int ChangeItem(unsigned long id, int refilter, Store store);
  void ItemChanged(uint32_t record, int refilter);
  CString CellText(uint32_t record, int column, int raw) const;
  unsigned long Value(uint32_t record, int column, ColumnKind kind) const;
  bool Passes(uint32_t record) const;

  void AppendRow(uint32_t record);
  // The caller reports the selection, when the list is as it is to be: a client may change it then.
  void RemoveRow(int row);
  int RowOf(uint32_t record) const;
  void NumberRows() const;
  void SyncRowCount();
  ViewState TakeView();
  void RestoreView(const ViewState& state);
  // Rows in ascending order; none is selected yet.
  void SelectRows(const std::vector<int>& rows);
  void SelectionReplaced();
  void RowsReplaced(const ViewState& state);
  int FocusedRow() const;
  void Forget(uint32_t record);
  void ReportSelection();
  ListOrder Order() const { return OrderBy(m_sortColumn, m_sortDescending); }
  // Column -1: no order.
  ListOrder OrderBy(int column, int descending) const;
  void AddSortKey(ListOrder& order, int column) const;
  void SortRows();
  void ShowArrow();
  void SaveLayout();

  int FirstShownColumn() const;
  int FindByPrefix(int column, const char* prefix, bool whole, int start, bool wrap) const;
  int EditableColumn() const;
  void OpenRow(int row);
  int OpenFile(int view);
  void CopySelected();
  void FillContextMenu(MPopupMenu& menu, bool onRow);
  void MarkSortMenu();

  ListColumns m_columns;
  ListDataMap m_map;
  std::vector<uint32_t> m_rows;  // the records that are shown, in their order
  // Rows know their records, and records their rows as they were when the rows were last numbered;
  // since then only so many have been removed.
  mutable bool m_rowsNumbered = true;
  mutable int m_removedSinceNumbered = 0;
  bool m_rowCountStale = false;  // the window doesn't know the count of rows yet
  int m_restoring = 0;           // the selection that changes is not the user's

  unsigned long m_nextId = 0;
  bool m_hasDescription = false;
  int m_storeMultiLine = 0;
  TextFilter m_filter;
  int m_sortColumn = -1;
  int m_sortDescending = 0;
  int m_restoreSavedKey = 0;
  int m_headerArrows = 0;
  int m_displayTz = -1;
  CString m_displayTimeFormat;

  CString m_listTitle, m_secondaryTitle, m_productUrl, m_productName;
  CString m_registryKey;
  std::unique_ptr<MRegistry> m_registry;
  MPopupMenu m_sortMenu;
  uint32_t m_lastSelected = kNone;       // the record that the user selected last
  uint32_t m_reportedSelection = kNone;  // the record that m_onSelect was last told

  Callback<SelectFn> m_onSelect, m_onDblClk;
  Callback<ContextMenuFn> m_onContextMenu;
  Callback<UserCommandFn> m_onUserCommand;
  Callback<OpenFn> m_openCommand;
  Callback<LabelEditFn> m_onLabelEdit;
  Callback<NotifyFn> m_onWinIniChange;
  HlReportCallbacks m_hlReport;
  void* m_hlReportClient = nullptr;
  ReportsHelpFn m_onReportsHelp = nullptr;
};
