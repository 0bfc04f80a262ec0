// Sending files to a server page.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "net/UploadOp.h"

// Posts a file as a form with one file field, "attach1" (RFC 7578). The boundary is "AaB03x" and
// no header announces it, by design: the page finds it in the body's first line.
//
//   path      the file, which may be open elsewhere; one that is read-only is refused
//   fileName  the name in the form. Quotes and line ends are written as %22, %0D and %0A, so that a
//             name stays a name; all other bytes stand as they are.
//   server    a host, with a port behind a colon where it is not 80
//   page      the path of the page on the server; redirects are not followed
//   the last  not used
//
// 1: the server has answered with status 200. 0: it has not, or the file could not be read. A file
// that does not fit into memory is refused with a message to the user. A server that says nothing
// for 30 seconds has not answered.
ORVANE_API int InternetUploadFile(const char* path, const char* fileName, const char* server,
                                  const char* page, int);
