// The framework's foundation, without windows: objects, texts, times, files, exceptions.
#pragma once

#include "afxver_.h"
#include "afxdbg_.h"
#include "afxobj_.h"
#include "afxexc_.h"
#include "afxstr_.h"
#include "afxtime_.h"
#include "afxfile_.h"
