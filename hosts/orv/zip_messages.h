// What the zip commands say on stderr.
#pragma once

#include <string>

// The library's text of a zip result code.
std::string ZipText(unsigned long code);

// Prints "orv: SUBJECT: TEXT".
void Complain(const std::string& subject, const std::string& text);
