// Copies of documents, for reports. Inside the library only.
#pragma once

// Copies a file in place of what stands there, a read-only file too; its folders are made when
// missing. False: GetLastError tells why.
bool CopyDocument(const char* source, const char* destination);
