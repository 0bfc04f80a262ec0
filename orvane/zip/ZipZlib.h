// zlib, with input pointers to const.
#pragma once

#ifndef ZLIB_CONST
#define ZLIB_CONST
#endif
#include <zlib.h>
