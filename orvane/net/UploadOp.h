// Sending files to a server page as archives.
#pragma once

#include "zip/ZipOp.h"

// Packs the files as ZipOp does, and posts each archive that is finished as InternetUploadFile
// does. An archive that could not be sent is a failed item.
class ORVANE_API UploadOp : public ZipOp {
 public:
  // files, rootPath, sizeLimit  as those of ZipOp
  // zipPath       the path that each archive has while it is sent and whose name the server sees;
  //               nothing must stand there. Empty: a temporary name.
  // server, page  as those of InternetUploadFile
  UploadOp(const CArray<CString, const char*>& files, const char* zipPath, const char* server,
           const char* page, const char* rootPath, unsigned long sizeLimit);

 protected:
  OperationReturnState ProcessZipFile(const char* archivePath) override;
  // Sends an archive and calls ServerAction.
  virtual OperationReturnState ProcessZip(const char* zip);
  // What the server is to do with an archive that it has taken, for a derived class. Not 0: it has
  // done it.
  virtual int ServerAction(const char* zip);

 private:
  CString m_server;
  CString m_page;
  CString m_zipPath;
};
