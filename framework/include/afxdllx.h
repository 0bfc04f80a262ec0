// For the one source of an extension library that holds its DllMain. What runs before the library's
// static constructors comes from the static library that every extension library is linked with.
#pragma once

#include "afxdll_.h"
