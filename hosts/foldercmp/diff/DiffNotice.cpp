#include "foldercmp/diff/DiffNotice.h"

#include "foldercmp/diff/diff_ids.h"
#include "settings/MString.h"

namespace {

// Why there is no text; empty: there is one.
CString WhyNot(DocumentText::Kind kind, const CString& title) {
  UINT id = 0;
  switch (kind) {
    case DocumentText::Kind::Binary:
      id = IDS_DIFF_BINARY;
      break;
    case DocumentText::Kind::TooLarge:
      id = IDS_DIFF_TOO_LARGE;
      break;
    case DocumentText::Kind::Unreadable:
      id = IDS_DIFF_UNREADABLE;
      break;
    default:
      return CString();
  }
  CString text;
  AfxFormatString1(text, id, title);
  return " " + text;
}

CString ResultText(ContentCompare::Result result) {
  switch (result) {
    case ContentCompare::Result::Equal:
      return MString::Loaded(IDS_DIFF_SAME);
    case ContentCompare::Result::Different:
      return MString::Loaded(IDS_DIFF_DIFFERENT);
    default:
      return MString::Loaded(IDS_DIFF_NOT_COMPARED);
  }
}

}  // namespace

CString NoticeOf(const DiffDocument& document, const CString& leftTitle,
                 const CString& rightTitle) {
  const DiffTexts& texts = *document.texts();
  if (!texts.AreTexts()) {
    return ResultText(texts.bytes) + WhyNot(texts.leftKind, leftTitle) +
           WhyNot(texts.rightKind, rightTitle);
  }
  if (!document.differences().empty()) return CString();
  if (texts.bytes == ContentCompare::Result::Different)
    return MString::Loaded(IDS_DIFF_NO_LINE_DIFFERS);
  return ResultText(texts.bytes);
}
