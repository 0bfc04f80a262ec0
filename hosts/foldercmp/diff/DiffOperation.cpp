#include "foldercmp/diff/DiffOperation.h"

#include <utility>

#include "foldercmp/diff/diff_ids.h"

namespace {

enum Step : unsigned { kReadLeft, kReadRight, kCompareBytes, kCompareLines, kSteps };

}  // namespace

DiffOperation::DiffOperation(const CString& left, const CString& right,
                             const CompareOptions& options, std::shared_ptr<const DiffTexts> texts)
    : m_left(left), m_right(right), m_options(options), m_texts(std::move(texts)) {
  if (!m_texts) m_reading = std::make_shared<DiffTexts>();
  SetRange(m_texts ? kCompareLines : kReadLeft, kSteps);
  SetDisplayProgressOnSingle(1);
  CString title, message;
  title.LoadString(IDS_DIFF_PROGRESS_TITLE);
  message.LoadString(IDS_DIFF_PROGRESS);
  SetTitle(title, message);
}

OperationReturnState DiffOperation::Operation(unsigned step) {
  const auto isStopped = [this] { return m_aborted != 0; };
  switch (step) {
    case kReadLeft:
      m_reading->leftKind = m_reading->left.Load(m_left);
      break;
    case kReadRight:
      m_reading->rightKind = m_reading->right.Load(m_right);
      break;
    case kCompareBytes: {
      ContentCompare comparison({}, isStopped);
      m_reading->bytes = comparison.Files(m_left, m_right);
      m_texts = std::move(m_reading);
      break;
    }
    default: {
      auto document = std::make_shared<const DiffDocument>(m_texts, m_options, isStopped);
      if (!isStopped()) m_document = std::move(document);
    }
  }
  return OperationDone;
}
