#include "net/InternetErrors.h"

#include <iterator>

#include "diag/trace.h"
#include "net/InternetDownload.h"

namespace {

constexpr DWORD kFirst = 12001;

// One a code, from kFirst on. 12013 and 12014 share their text, by design: whether the name or the
// password was wrong is nothing to tell.
constexpr InternetErrorRow kRows[] = {
    {true, "No more handles could be generated at this time."},                     // 12001
    {true, "The request has timed out."},                                           // 12002
    {true, "An extended error was returned from the server."},                      // 12003
    {true, "An internal error has occurred."},                                      // 12004
    {false, "The URL is invalid."},                                                 // 12005
    {false, "The URL scheme could not be recognized or is not supported."},         // 12006
    {false, "The server name could not be resolved."},                              // 12007
    {false, "The requested protocol could not be located."},                        // 12008
    {false, "The request specified an invalid option value."},                      // 12009
    {false, "The length of an option supplied is incorrect."},                      // 12010
    {false, "The request option cannot be set, only queried."},                     // 12011
    {true, "The Win32 Internet function support is being shut down or unloaded."},  // 12012
    {false, "The supplied user name is incorrect."},                                // 12013
    {false, "The supplied user name is incorrect."},                                // 12014
    {false, "The request to connect to and log on to an FTP server failed."},       // 12015
    {false, "The requested operation is invalid."},                                 // 12016
    {true, "The operation was canceled."},                                          // 12017
    {false, "The type of handle supplied is incorrect for this operation."},        // 12018
    {false, "The handle supplied is not in the correct state."},                    // 12019
    {false, "The request cannot be made via a proxy."},                             // 12020
    {false, "A required registry value could not be located."},                     // 12021
    {false, "A required registry value is incorrect."},                             // 12022
    {true, "Direct network access cannot be made at this time."},                   // 12023
    {false,
     "An asynchronous request could not be made because a zero context value was "
     "supplied."},  // 12024
    {false,
     "An asynchronous request could not be made because a callback function has not been "
     "set."},  // 12025
    {true,
     "The required operation could not be completed because one or more requests are "
     "pending."},                                                          // 12026
    {false, "The format of the request is invalid."},                      // 12027
    {false, "The requested item could not be located."},                   // 12028
    {true, "The attempt to connect to the server failed."},                // 12029
    {true, "The connection with the server has been terminated."},         // 12030
    {true, "The connection with the server has been reset."},              // 12031
    {true, "Calls for the Win32 Internet function to redo the request."},  // 12032
    {true, "The request to the proxy was invalid."},                       // 12033
    {false, "12034 - Unknown"},                                            // 12034
    {false, "12035 - Unknown"},                                            // 12035
    {false, "The request failed because the handle already exists."},      // 12036
    {false,
     "SSL certificate date that was received from the server is bad. The certificate is "
     "expired."},                                                            // 12037
    {false, "SSL certificate common name (host name field) is incorrect."},  // 12038
    {false,
     "The application is moving from a non-SSL to an SSL connection because of a "
     "redirect."},  // 12039
    {false,
     "The application is moving from an SSL to an non-SSL connection because of a "
     "redirect."},                                                               // 12040
    {false, "Indicates that the content is not entirely secure."},               // 12041
    {false, "The application is posting text to a server that is not secure."},  // 12042
    {false, "The application is posting data to a server that is not secure."},  // 12043
    {false, "The server is requesting client authentication."},                  // 12044
};
static_assert(std::size(kRows) == 12044 - kFirst + 1);

}  // namespace

const InternetErrorRow* FindInternetError(DWORD code) {
  return code >= kFirst && code - kFirst < std::size(kRows) ? &kRows[code - kFirst] : nullptr;
}

void TraceInternetError(const char* function, const char* url, DWORD code) {
  if (TraceFunction::logFileName.IsEmpty()) return;
  const TraceFunction scope(CString(function) + "Err");
  TraceFunction::TraceEvent("URL", url);
  TraceFunction::TraceEvent("Err", InternetDownload::GetErrorDscr(static_cast<int>(code)));
}
