#include "settings/MakerAddresses.h"

#include <string>

#include "resources/resource.h"
#include "settings/MString.h"

namespace {

std::string ownProductPage, ownConnectionCheck, ownDownloadServer;

const std::string& ownAddress(UINT id) {
  return id == IDS_PRODUCT_PAGE       ? ownProductPage
         : id == IDS_CONNECTION_CHECK ? ownConnectionCheck
                                      : ownDownloadServer;
}

}  // namespace

void SetMakerAddresses(const char* productPage, const char* connectionCheck,
                       const char* downloadServer) {
  const auto set = [](std::string& own, const char* address) {
    own = address == nullptr ? "" : address;
  };
  set(ownProductPage, productPage);
  set(ownConnectionCheck, connectionCheck);
  set(ownDownloadServer, downloadServer);
}

CString MakerAddress(UINT id) {
  if (!ownAddress(id).empty()) return ownAddress(id).c_str();
  return MString::Loaded(id);
}
