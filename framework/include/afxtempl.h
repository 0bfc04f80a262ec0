#pragma once
#include <afxwin.h>
template <class T, class A>
class CArray;
class CString;
