// How the user edits a filter: its dialog, and what is kept after OK.
#include "diag/trace.h"
#include "lists/DataFilter.h"
#include "lists/EnumFilterDialog.h"
#include "lists/RangeFilterDialogs.h"
#include "lists/StrFilterDialog.h"

namespace {

// A dialog that a filter is edited from, with or without a main window.
CWnd* owner() { return CWnd::GetActiveWindow(); }

bool accepted(CDialog& dialog) {
  return !AssertVerifyTrace::BlockGui() && dialog.DoModal() == IDOK;
}

}  // namespace

int StringFilter::Edit() {
  StrFilterDialog dialog(*this, owner());
  if (!accepted(dialog)) return 0;
  m_settings = dialog.Get();
  Save();
  return 1;
}

int EnumFilter::Edit() {
  EnumFilterDialog dialog(*this, owner());
  if (!accepted(dialog)) return 0;
  m_mask = dialog.GetMask();
  Save();
  return 1;
}

int TimeFilter::Edit() {
  TimeFilterDialog dialog(*this, owner());
  if (!accepted(dialog)) return 0;
  Set(dialog.GetStart(), dialog.GetEnd());
  m_invert = dialog.GetInvert();
  Save();
  return 1;
}

int NumericFilter::Edit() {
  NumericFilterDialog dialog(*this, owner());
  if (!accepted(dialog)) return 0;
  Set(dialog.GetFrom(), dialog.GetTo());
  m_invert = dialog.GetInvert();
  Save();
  return 1;
}
