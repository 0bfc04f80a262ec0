// Reads two documents and compares them, behind a progress window when that takes long.
#pragma once

#include <afxwin.h>

#include <memory>

#include "foldercmp/diff/DiffDocument.h"
#include "ops/MultiOp.h"

class DiffOperation : public MMultiOperation {
 public:
  // texts: what was read of the same files before and is to be compared anew; null: reads them.
  DiffOperation(const CString& left, const CString& right, const CompareOptions& options,
                std::shared_ptr<const DiffTexts> texts = nullptr);

  // After DoOperation; null: it was stopped, or there is too little memory.
  const std::shared_ptr<const DiffDocument>& document() const { return m_document; }

 protected:
  OperationReturnState Operation(unsigned step) override;

 private:
  CString m_left;
  CString m_right;
  CompareOptions m_options;
  std::shared_ptr<DiffTexts> m_reading;
  std::shared_ptr<const DiffTexts> m_texts;
  std::shared_ptr<const DiffDocument> m_document;
};
