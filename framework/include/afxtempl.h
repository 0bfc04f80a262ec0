// The collection templates.
#pragma once

#include "afx.h"
#include "afxarray_.h"
