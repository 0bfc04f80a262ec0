// What the library exports: classes whole, functions one by one.
#pragma once

#ifdef ORVANE_BUILD
#define ORVANE_API __declspec(dllexport)
#else
#define ORVANE_API __declspec(dllimport)
#endif
