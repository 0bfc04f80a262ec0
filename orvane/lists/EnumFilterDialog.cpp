#include "lists/EnumFilterDialog.h"

#include <algorithm>

#include "lists/filter_dialogs_ids.h"

BEGIN_MESSAGE_MAP(EnumFilterDialog, CDialog)
ON_CONTROL_RANGE(BN_CLICKED, EnumFilterDialog::kFirstBox, EnumFilterDialog::kFirstBox + 31, OnBox)
ON_BN_CLICKED(IDC_SELECT_ALL_VALUES, OnSelectAll)
ON_BN_CLICKED(IDC_INVERT_VALUES, OnInvert)
END_MESSAGE_MAP()

EnumFilterDialog::EnumFilterDialog(const EnumFilter& filter, CWnd* owner)
    : CDialog(IDD_ENUM_FILTER, owner), m_filter(filter), m_mask(filter.GetMask()) {}

int EnumFilterDialog::Values() const {
  return std::min(static_cast<int>(m_filter.GetTexts().size()), kMostValues);
}

BOOL EnumFilterDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  m_tree.SubclassDlgItem(IDC_VALUES, this);
  for (int value = 0; value < Values(); ++value)
    m_tree.AddCheckBox(kFirstBox + static_cast<UINT>(value),
                       m_filter.GetTexts()[static_cast<size_t>(value)], m_mask >> value & 1);
  return TRUE;
}

void EnumFilterDialog::OnBox(UINT id) {
  const unsigned long bit = 1ul << (id - kFirstBox);
  m_mask = m_tree.GetBox(id) > 0 ? m_mask | bit : m_mask & ~bit;
}

// Bits without a box stay as they are.
void EnumFilterDialog::SetMask(unsigned long mask) {
  for (int value = 0; value < Values(); ++value) {
    const UINT id = kFirstBox + static_cast<UINT>(value);
    m_tree.SetBox(id, mask >> value & 1);
    OnBox(id);
  }
}

void EnumFilterDialog::OnSelectAll() { SetMask(~0ul); }

void EnumFilterDialog::OnInvert() { SetMask(~m_mask); }
