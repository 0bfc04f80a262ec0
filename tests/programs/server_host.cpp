// A host that tells through its exit status whether the library takes it for a web server's
// process.
#include "diag/AssertVerifyTrace.h"

int main() {
  return AssertVerifyTrace::BlockGui() == AssertVerifyTrace::InvokedFromIis()
             ? AssertVerifyTrace::BlockGui()
             : 99;
}
