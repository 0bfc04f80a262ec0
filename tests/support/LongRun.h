// Whether the full counts are asked for (./test --long) or the short seeded share.
#pragma once

#include <cstdlib>

inline bool IsLongRun() { return std::getenv("ORVANE_LONG") != nullptr; }
