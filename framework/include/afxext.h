// Extensions of the framework.
#pragma once

#include "afxwin.h"
#include "afxdll_.h"
