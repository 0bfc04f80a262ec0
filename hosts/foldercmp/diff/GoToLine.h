// Asks for the number of a line.
#pragma once

#include <afxwin.h>

#include <optional>

// lines: how many there are. The line, counted from 0; none: the user has cancelled, or typed no
// number. Numbers beyond the last line are that line.
std::optional<int> AskForLine(int lines);
