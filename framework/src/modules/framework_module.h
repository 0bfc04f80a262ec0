#pragma once

#include <afxver_.h>

// The framework's own library, with its texts.
HINSTANCE FrameworkModule();
