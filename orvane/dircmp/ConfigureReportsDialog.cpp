#include "dircmp/ConfigureReportsDialog.h"

#include "dircmp/compare_dialogs_ids.h"

ConfigureReportsDialog::ConfigureReportsDialog(const HlReportSettings& settings, CWnd* owner)
    : CDialog(IDD_REPORT_PAGES, owner),
      m_modified(settings.includeModified),
      m_new(settings.includeNew),
      m_deleted(settings.includeDeleted),
      m_documentLinks(settings.documentLinks) {}

void ConfigureReportsDialog::DoDataExchange(CDataExchange* exchange) {
  CDialog::DoDataExchange(exchange);
  DDX_Check(exchange, IDC_PAGES_MODIFIED, m_modified);
  DDX_Check(exchange, IDC_PAGES_NEW, m_new);
  DDX_Check(exchange, IDC_PAGES_DELETED, m_deleted);
  DDX_Radio(exchange, IDC_PAGES_INACTIVE, m_documentLinks);
}

HlReportSettings ConfigureReportsDialog::Settings() const {
  return {.includeModified = m_modified != 0,
          .includeNew = m_new != 0,
          .includeDeleted = m_deleted != 0,
          .documentLinks = static_cast<HlReportSettings::DocumentLinks>(m_documentLinks)};
}
