#include "net/UploadOp.h"

#include "diag/trace.h"
#include "entry/ScopedFile.h"
#include "net/InternetUpload.h"
#include "resources/resource.h"
#include "settings/MString.h"

UploadOp::UploadOp(const CArray<CString, const char*>& files, const char* zipPath,
                   const char* server, const char* page, const char* rootPath,
                   unsigned long sizeLimit)
    : ZipOp(files, rootPath, sizeLimit), m_server(server), m_page(page), m_zipPath(zipPath) {
  MString message;
  VERIFY(message.FormatMessage(IDS_UPLOADING_FILES, static_cast<int>(files.GetSize())));
  SetMessage(message);
}

OperationReturnState UploadOp::ProcessZipFile(const char* archivePath) {
  if (m_zipPath.IsEmpty()) return ProcessZip(archivePath);
  // What stands there is not ours to replace.
  if (!MoveFileExA(archivePath, m_zipPath, MOVEFILE_COPY_ALLOWED)) {
    TraceFunction::TraceEvent("Upload Fail", m_zipPath);
    return OperationFailed;
  }
  const ScopedFile sent(m_zipPath);  // gone also when a derived class throws
  return ProcessZip(m_zipPath);
}

OperationReturnState UploadOp::ProcessZip(const char* zip) {
  const TraceFunction trace("UploadOp::ProcessZip");
  TraceFunction::TraceZip(zip);
  const CString path = zip;
  const CString name = path.Mid(path.ReverseFind('\\') + 1);
  const bool isSent = InternetUploadFile(zip, name, m_server, m_page, 1) != 0;
  if (isSent && ServerAction(zip) != 0) return OperationDone;
  TraceFunction::TraceEvent(isSent ? "ServerAction Fail" : "Upload Fail", zip);
  return OperationFailed;
}

int UploadOp::ServerAction(const char*) { return 1; }
