#include "MainFrame.h"

#include "resource.h"

BOOL MainFrame::Open() { return Create(nullptr, AfxGetAppName()); }
