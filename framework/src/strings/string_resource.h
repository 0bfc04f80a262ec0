#pragma once

#include <afx.h>

// A string from the string tables. Throws CResourceException when none has it.
CString StringResource(UINT id);
