// The dialogs "Time Filter" and "Numeric Filter".
#pragma once

#include <afxwin.h>

#include "lists/DataFilter.h"

// What is valid after OK: the start is not behind the end.
class TimeFilterDialog : public CDialog {
 public:
  explicit TimeFilterDialog(const TimeFilter& filter, CWnd* owner = nullptr);

  CTime GetStart() const { return m_start; }
  CTime GetEnd() const { return m_end; }
  int GetInvert() const { return m_exclude; }

 protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;
  void OnOK() override;

 private:
  CTime m_start, m_end;
  int m_exclude;
};

class NumericFilterDialog : public CDialog {
 public:
  explicit NumericFilterDialog(const NumericFilter& filter, CWnd* owner = nullptr);

  long GetFrom() const { return m_from; }
  long GetTo() const { return m_to; }
  int GetInvert() const { return m_exclude; }

 protected:
  void DoDataExchange(CDataExchange* dx) override;
  void OnOK() override;

 private:
  long m_from, m_to;
  int m_exclude;
};
