// The web addresses of the maker of the product that uses the library.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// Puts a host's own addresses in the place of those in the string table; null or empty: that one
// stays. To be called at the program's start, before lists are made and transfers begin.
//   productPage      the page that reports name where their list has named none
//   connectionCheck  a URL of a server that is always there: whether it can be reached decides what
//                    the user is told when a name is not resolved
//   downloadServer   "http://server", from which SysDllDescriptor::DownloadLibs fetches
ORVANE_API void SetMakerAddresses(const char* productPage, const char* connectionCheck,
                                  const char* downloadServer);

// IDS_PRODUCT_PAGE, IDS_CONNECTION_CHECK or IDS_DOWNLOAD_SERVER. Empty: the string table lacks it.
CString MakerAddress(UINT id);
