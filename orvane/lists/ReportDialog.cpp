#include "lists/ReportDialog.h"

#include <commdlg.h>

#include <cstring>
#include <iterator>
#include <string>

#include "controls/MFileViewButton.h"
#include "diag/AssertVerifyTrace.h"
#include "lists/ColumnCombo.h"
#include "lists/FilterWords.h"
#include "lists/NewColumnFilterDialog.h"
#include "lists/ReportColumnsDialog.h"
#include "lists/ReportOperation.h"
#include "lists/report_dialogs_ids.h"
#include "messages/message.h"
#include "resources/resource.h"
#include "settings/MString.h"
#include "util/pathutils.h"

BEGIN_MESSAGE_MAP(ReportDialog, CDialog)
ON_CBN_SELCHANGE(IDC_SORT_COLUMN, OnSetting)
ON_BN_CLICKED(IDC_ACTIVATE_PRIMARY, OnSetting)
ON_BN_CLICKED(IDC_FORMAT_PAGE, OnSetting)
ON_BN_CLICKED(IDC_FORMAT_TEXT, OnSetting)
ON_BN_CLICKED(IDC_FORMAT_XML, OnSetting)
ON_BN_CLICKED(IDC_FORMAT_TABS, OnSetting)
ON_BN_CLICKED(IDC_CONFIGURE_PRIMARY, OnConfigurePrimary)
ON_BN_CLICKED(IDC_ACTIVATE_SECONDARY, OnActivateSecondary)
ON_BN_CLICKED(IDC_CONFIGURE_SECONDARY, OnConfigureSecondary)
ON_BN_CLICKED(IDC_SELECT_COLUMNS, OnSelectColumns)
ON_BN_CLICKED(IDC_HYPER_LINKS, OnHyperLinks)
ON_BN_CLICKED(IDC_REPORT_HELP, OnHelp)
ON_WM_HELPINFO()
ON_BN_CLICKED(IDC_PREVIEW, OnPreview)
ON_BN_CLICKED(IDC_MAKE_REPORT, OnMakeReport)
END_MESSAGE_MAP()

namespace {

constexpr int kLongestPath = 2048;
constexpr char kPreviewName[] = "%s\\previewFile.%s";

// In the order of the formats; the types of files as the file dialog wants them, with "|" for ends.
constexpr struct {
  const char* extension;
  UINT filesId;
} kFormats[] = {{"htm", IDS_REPORT_FILES_PAGE},
                {"txt", IDS_REPORT_FILES_TEXT},
                {"xml", IDS_REPORT_FILES_XML},
                {"tsv", IDS_REPORT_FILES_TABS}};
static_assert(std::size(kFormats) == static_cast<size_t>(ReportFormat::kCount));

// A title as the name of a file.
CString asFileName(CString title) {
  for (char* c = title.GetBuffer(0); *c != 0; c = CharNext(c))
    if (strchr("\\/:*?\"<>|", *c) != nullptr || static_cast<unsigned char>(*c) < ' ') *c = '_';
  title.ReleaseBuffer();
  title.TrimRight(" .");
  return title;
}

// Without its extension, if it is one of the formats'.
CString withoutExtension(const CString& path) {
  const int dot = path.ReverseFind('.');
  if (dot < 0) return path;
  const CString extension = path.Mid(dot + 1);
  for (const auto& format : kFormats)
    if (extension.CompareNoCase(format.extension) == 0) return path.Left(dot);
  return extension.CompareNoCase("html") == 0 ? path.Left(dot) : path;
}

}  // namespace

int RunReportDialog(MListCtrl& list, ReportSettings& settings, bool allowPreview) {
  if (AssertVerifyTrace::BlockGui()) return 0;
  ReportDialog dialog(list, settings, allowPreview, list.m_hWnd != nullptr ? &list : nullptr);
  dialog.DoModal();
  settings = dialog.Get();
  return dialog.HasWritten();
}

ReportDialog::ReportDialog(MListCtrl& list, const ReportSettings& settings, bool allowPreview,
                           CWnd* owner)
    : CDialog(IDD_REPORT, owner), m_list(list), m_settings(settings), m_allowPreview(allowPreview) {
  m_settings.isQuiet = false;  // somebody is there
  if (settings.primary.filter != nullptr && settings.primary.column == settings.sortColumn)
    m_primaryFilters[settings.sortColumn] = settings.primary.filter;
  if (settings.secondary.filter != nullptr)
    m_secondaryFilters[settings.secondary.column] = settings.secondary.filter;
}

const char* ReportDialog::ExtensionOf(ReportFormat format) {
  return kFormats[static_cast<size_t>(format)].extension;
}

// --- Settings and controls ---

BOOL ReportDialog::OnInitDialog() {
  FillSortColumns();
  CDialog::OnInitDialog();
  const struct {
    int id;
    bool isOfUse;
  } buttons[] = {{IDC_HYPER_LINKS, m_list.HlReport().configure != nullptr},
                 {IDC_REPORT_HELP, m_list.ReportsHelp() != nullptr},
                 {IDC_PREVIEW, m_allowPreview}};
  for (const auto& button : buttons)
    if (!button.isOfUse) GetDlgItem(button.id)->ShowWindow(SW_HIDE);
  // Where there are no links to be configured, help stands at the edge.
  if (m_list.HlReport().configure == nullptr) {
    CRect place;
    GetDlgItem(IDC_HYPER_LINKS)->GetWindowRect(place);
    ScreenToClient(place);
    GetDlgItem(IDC_REPORT_HELP)
        ->SetWindowPos(nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  }
  ShowSettings();
  return TRUE;
}

void ReportDialog::FillSortColumns() {
  ColumnCombo columns(*this, IDC_SORT_COLUMN);
  columns.Add(MString::Loaded(IDS_REPORT_LIST_ORDER), -1);
  for (int column = 0; column < m_list.GetColumnCount(); ++column)
    if (m_list.CanSortBy(column) &&
        (m_list.ColumnEnabled(column) || column == m_settings.sortColumn))
      columns.Add(m_list, column);
}

void ReportDialog::DoDataExchange(CDataExchange* dx) {
  CDialog::DoDataExchange(dx);
  ColumnCombo columns(*this, IDC_SORT_COLUMN);
  if (dx->m_bSaveAndValidate)
    m_settings.sortColumn = columns.Chosen();
  else
    columns.Select(m_settings.sortColumn);
  int descending = m_settings.isDescending, format = static_cast<int>(m_settings.format),
      header = m_settings.hasHeader, primary = m_settings.primary.isActive,
      secondary = m_settings.secondary.isActive;
  DDX_Radio(dx, IDC_ASCENDING, descending);
  DDX_Radio(dx, IDC_FORMAT_PAGE, format);
  DDX_Check(dx, IDC_TITLES_ON_TOP, header);
  DDX_Check(dx, IDC_ACTIVATE_PRIMARY, primary);
  DDX_Check(dx, IDC_ACTIVATE_SECONDARY, secondary);
  m_settings.isDescending = descending == 1;
  m_settings.format = static_cast<ReportFormat>(format);
  m_settings.hasHeader = header != 0;
  m_settings.secondary.isActive = secondary != 0;
  m_settings.primary = {m_settings.sortColumn,
                        FilterOn(m_settings.sortColumn, ReportFilterRole::Primary), primary != 0};
  if (m_settings.secondary.filter == nullptr)
    m_settings.secondary.filter =
        FilterOn(m_settings.secondary.column, ReportFilterRole::Secondary);
}

std::shared_ptr<DataFilter> ReportDialog::FilterOn(int column, ReportFilterRole role) {
  if (column < 0) return nullptr;
  Filters& filters = role == ReportFilterRole::Primary ? m_primaryFilters : m_secondaryFilters;
  std::shared_ptr<DataFilter>& filter = filters[column];
  if (filter == nullptr) filter = SavedReportFilter(m_list, column, role);
  return filter;
}

// What follows from the settings.
void ReportDialog::ShowSettings() {
  const bool isSorted = m_settings.sortColumn >= 0;
  for (const int id : {IDC_ASCENDING, IDC_DESCENDING, IDC_ACTIVATE_PRIMARY, IDC_CONFIGURE_PRIMARY})
    GetDlgItem(id)->EnableWindow(isSorted);
  GetDlgItem(IDC_HYPER_LINKS)->EnableWindow(m_settings.format == ReportFormat::Html);
  SetDlgItemText(IDC_PRIMARY_TEXT,
                 isSorted ? FilterInWords(m_list, m_settings.primary, true) : CString());
  SetDlgItemText(IDC_SECONDARY_TEXT, FilterInWords(m_list, m_settings.secondary, false));
  auto& titles = static_cast<CListBox&>(*GetDlgItem(IDC_REPORT_TITLES));
  titles.ResetContent();
  for (const int column : m_settings.columns) titles.AddString(m_list.GetColName(column, 1));
  SetDlgItemText(IDC_REPORT_DONE, "");
}

void ReportDialog::OnSetting() {
  UpdateData();
  ShowSettings();
}

// --- Buttons ---

void ReportDialog::OnConfigurePrimary() {
  UpdateData();
  if (m_settings.primary.filter != nullptr && m_settings.primary.filter->Edit())
    m_settings.primary.isActive = true;
  UpdateData(FALSE);
  ShowSettings();
}

// A filter that is on no column yet cannot just be activated.
void ReportDialog::OnActivateSecondary() {
  UpdateData();
  if (m_settings.secondary.isActive && m_settings.secondary.column < 0)
    OnConfigureSecondary();
  else
    ShowSettings();
}

void ReportDialog::OnConfigureSecondary() {
  UpdateData();
  NewColumnFilterDialog dialog(
      m_list, m_settings.secondary.column,
      [this](int column) { return FilterOn(column, ReportFilterRole::Secondary); }, this);
  if (dialog.DoModal() == IDOK)
    m_settings.secondary = {dialog.Column(), FilterOn(dialog.Column(), ReportFilterRole::Secondary),
                            true};
  else if (m_settings.secondary.column < 0)
    m_settings.secondary.isActive = false;
  UpdateData(FALSE);
  ShowSettings();
}

void ReportDialog::OnSelectColumns() {
  UpdateData();
  ReportColumnsDialog dialog(m_list, m_settings.columns, this);
  if (dialog.DoModal() == IDOK) m_settings.columns = dialog.Included();
  ShowSettings();
}

void ReportDialog::OnHyperLinks() { m_list.HlReport().configure(m_list.HlReportClient(), this); }

void ReportDialog::OnHelp() {
  if (m_list.ReportsHelp() != nullptr) m_list.ReportsHelp()(IDD_REPORT);
}

BOOL ReportDialog::OnHelpInfo(HELPINFO*) {
  OnHelp();
  return TRUE;
}

void ReportDialog::OnPreview() {
  UpdateData();
  ReportSettings preview = m_settings;
  preview.isPreview = true;
  CString folder = GetSystemTempFolder();
  folder.TrimRight('\\');
  preview.outputFile.Format(kPreviewName, static_cast<LPCTSTR>(folder),
                            ExtensionOf(preview.format));
  if (Generate(preview) && !Open(preview.outputFile))
    Message::DisplayErrorMessage(IDS_FILE_NOT_OPENED, preview.outputFile,
                                 MString::Loaded(IDS_REPORT_NO_PROGRAM));
}

void ReportDialog::OnMakeReport() {
  UpdateData();
  if (m_settings.columns.empty()) {  // no need to choose a file first
    Message::DisplayErrorMessage(IDS_REPORT_NO_FIELD);
    return;
  }
  const CString file = AskForFile(SuggestedFile());
  if (file.IsEmpty()) return;
  m_settings.outputFile = file;
  if (!Generate(m_settings)) return;
  m_hasWritten = true;
  SaveLastReport(m_list, m_settings);
  MString written;
  written.FormatMessage(IDS_REPORT_WRITTEN, file);
  SetDlgItemText(IDC_REPORT_DONE, written);
}

// The file of the last report, or one named for the list, with the format's extension.
CString ReportDialog::SuggestedFile() const {
  CString path = withoutExtension(m_settings.outputFile);
  if (path.IsEmpty()) path = asFileName(m_list.ListTitle());
  if (path.IsEmpty()) path = MString::Loaded(IDS_REPORT_FILE_NAME);
  return path + "." + ExtensionOf(m_settings.format);
}

void ReportDialog::OnOK() { OnMakeReport(); }

// Closing takes nothing back.
void ReportDialog::OnCancel() {
  UpdateData();
  SaveLastReport(m_list, m_settings);
  CDialog::OnCancel();
}

// --- The world around ---

CString ReportDialog::AskForFile(const CString& path) {
  CString types = MString::Loaded(kFormats[static_cast<size_t>(m_settings.format)].filesId);
  types.Replace('|', '\0');
  std::string file(kLongestPath, 0);
  if (path.GetLength() < kLongestPath) file.replace(0, static_cast<size_t>(path.GetLength()), path);
  OPENFILENAME ask = {};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = m_hWnd;
  ask.lpstrFilter = types;
  ask.lpstrFile = file.data();
  ask.nMaxFile = kLongestPath;
  ask.lpstrDefExt = ExtensionOf(m_settings.format);
  ask.Flags =
      OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  BOOL isChosen = GetSaveFileName(&ask);
  if (!isChosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    file[0] = 0;  // what a command or the registry named is no file; the user may name one
    isChosen = GetSaveFileName(&ask);
  }
  return isChosen ? CString(file.c_str()) : CString();
}

bool ReportDialog::Generate(const ReportSettings& settings) {
  return ReportOperation(m_list, settings).Generate() != 0;
}

bool ReportDialog::Open(const CString& file) { return MFileViewButton(file).Open() != 0; }
