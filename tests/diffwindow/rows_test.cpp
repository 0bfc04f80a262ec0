#include <afxwin.h>
#include <gtest/gtest.h>
