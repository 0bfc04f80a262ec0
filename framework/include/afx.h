// The framework's foundation, without windows: objects, texts, exceptions.
#pragma once

#include "afxver_.h"
#include "afxdbg_.h"
#include "afxobj_.h"
#include "afxexc_.h"
#include "afxstr_.h"
