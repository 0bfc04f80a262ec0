#include <afxwin.h>

#include "zip_messages.h"

#include <cstdio>

#include "operation_run.h"
#include "zip/XUnzip.h"

std::string ZipText(unsigned long code) {
  char text[100];
  FormatZipMessageU(code, text, sizeof text);
  return text;
}

void Complain(const std::string& subject, const std::string& text) {
  ClearProgress();
  fprintf(stderr, "orv: %s: %s\n", subject.c_str(), text.c_str());
}
