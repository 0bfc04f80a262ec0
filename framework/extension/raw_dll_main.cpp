#include <afxwin.h>
