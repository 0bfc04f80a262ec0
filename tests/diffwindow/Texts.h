// Documents in memory for the tests of the difference window.
#pragma once

#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "foldercmp/diff/DiffDocument.h"

inline std::shared_ptr<const DiffTexts> TextsOf(const std::string& left, const std::string& right) {
  const auto texts = std::make_shared<DiffTexts>();
  texts->leftKind = texts->left.Assign(left);
  texts->rightKind = texts->right.Assign(right);
  return texts;
}

inline DiffDocument DocumentOf(const std::string& left, const std::string& right,
                               const CompareOptions& options = {}) {
  return DiffDocument(TextsOf(left, right), options);
}

// Its rows as "=1|1 ~2|2 -3| +|3": lines counted from 1.
inline std::string RowsOf(const DiffDocument& document) {
  std::string rows;
  for (int i = 0; i < document.rowCount(); ++i) {
    const DiffRow row = document.RowAt(i);
    if (i > 0) rows += ' ';
    rows += "=~-+"[static_cast<int>(row.kind)];
    if (row.left >= 0) rows += std::to_string(row.left + 1);
    rows += '|';
    if (row.right >= 0) rows += std::to_string(row.right + 1);
  }
  return rows;
}
