// The texts of the result codes.
#pragma once

// Copies at most size - 1 characters of the text of a result code and a zero into buffer, which may
// be null. Returns the full length of the text.
unsigned int FormatZipMessage(unsigned long code, char* buffer, unsigned int size);
