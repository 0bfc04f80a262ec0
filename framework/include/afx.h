// The framework's foundation. (Being written.)
#pragma once
#include <windows.h>
