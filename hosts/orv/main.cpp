#include <afxwin.h>

int main() { return 0; }
