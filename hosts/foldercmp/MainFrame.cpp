#include "foldercmp/MainFrame.h"

#include "foldercmp/resource.h"

BOOL MainFrame::Open() { return Create(nullptr, AfxGetAppName()); }
