// The collection templates, and the functions by which they treat their elements.
#pragma once

#include "afx.h"
#include "afxelem_.h"
#include "afxplex_.h"
#include "afxarray_.h"
#include "afxmap_.h"
