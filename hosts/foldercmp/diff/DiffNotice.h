// What the difference window says where it has no differences to show.
#pragma once

#include <afxwin.h>

#include "foldercmp/diff/DiffDocument.h"

// Empty: the differences speak for themselves.
CString NoticeOf(const DiffDocument& document, const CString& leftTitle, const CString& rightTitle);
