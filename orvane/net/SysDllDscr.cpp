#include "net/SysDllDscr.h"

#include <cstring>
#include <iterator>
#include <vector>

#include "diag/trace.h"
#include "net/InternetDownload.h"
#include "resources/resource.h"
#include "settings/MakerAddresses.h"
#include "zip/ZipFiles.h"

namespace {

const SysDllDescriptor kLibraries[] = {
    {"MFC42.dll", 6, 0, 9782, 0},     {"MSVCRT.dll", 6, 0, 9782, 0},
    {"MSVCIRT.dll", 6, 0, 9782, 0},   {"MSVCP60.dll", 6, 0, 8972, 0},
    {"OLEAUT32.dll", 2, 40, 4275, 1},
};

constexpr char kArchive[] = "/ftp/mslibs.zip";  // on the download server

// What sizes a version record can have. A broken file claims others: Wine would write before a
// block that is smaller, and the larger one may be more than there is memory for.
constexpr DWORD kSmallestRecord = sizeof(VS_FIXEDFILEINFO), kLargestRecord = 1 << 20;
// How far the record's own lengths, 16-bit numbers that nobody checks, can lead beyond its end.
constexpr DWORD kBehindRecord = 0x10000;

unsigned long pack(unsigned short high, unsigned short low) {
  return static_cast<unsigned long>(MAKELONG(low, high));
}

}  // namespace

SysDllDescriptor::SysDllDescriptor(const char* name, unsigned long versionMS,
                                   unsigned long versionLS, int flag)
    : m_name(name), m_versionMS(versionMS), m_versionLS(versionLS), m_flag(flag) {}

SysDllDescriptor::SysDllDescriptor(const char* name, unsigned short major, unsigned short minor,
                                   unsigned short build, unsigned short revision)
    : SysDllDescriptor(name, pack(major, minor), pack(build, revision), 0) {}

// --- The table ---

int SysDllDescriptor::LibDescriptorNum() { return static_cast<int>(std::size(kLibraries)); }

const SysDllDescriptor& SysDllDescriptor::GetLibDescriptor(int i) {
  const bool isThere = i >= 0 && i < LibDescriptorNum();
  ASSERT(isThere);
  return kLibraries[isThere ? i : 0];
}

const SysDllDescriptor* SysDllDescriptor::GetDscr(const char* name) {
  for (const SysDllDescriptor& library : kLibraries) {
    if (lstrcmpiA(library.m_name, name) == 0) return &library;
  }
  return nullptr;
}

// --- What is there ---

int SysDllDescriptor::GetVersionInfo(const char* path, unsigned long& ms, unsigned long& ls) {
  ms = ls = 0;
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeA(path, &ignored);
  if (size < kSmallestRecord || size > kLargestRecord) return 0;
  std::vector<char> record(size + kBehindRecord);
  if (!GetFileVersionInfoA(path, 0, size, record.data())) return 0;
  void* root = nullptr;
  UINT rootSize = 0;
  if (!VerQueryValueA(record.data(), "\\", &root, &rootSize)) return 0;
  VS_FIXEDFILEINFO info;
  if (rootSize < sizeof info) return 0;
  memcpy(&info, root, sizeof info);
  ms = info.dwFileVersionMS;
  ls = info.dwFileVersionLS;
  return 1;
}

CString SysDllDescriptor::GetCurrentDll(const char* name) {
  char path[MAX_PATH];
  char* file = nullptr;
  const DWORD length = SearchPathA(nullptr, name, nullptr, MAX_PATH, path, &file);
  if (length == 0 || length >= MAX_PATH) return CString();
  ASSERT(file != nullptr && lstrcmpiA(file, name) == 0);
  return path;
}

CString SysDllDescriptor::GetCurrentDll() const { return GetCurrentDll(m_name); }

int SysDllDescriptor::GetSysVersionInfo(const char* name, unsigned long& ms, unsigned long& ls) {
  ms = ls = 0;
  const CString path = GetCurrentDll(name);
  if (path.IsEmpty()) return 0;
  const int found = GetVersionInfo(path, ms, ls);
  ASSERT(found != 0);
  return found;
}

int SysDllDescriptor::GetSysVersionInfo(unsigned long& ms, unsigned long& ls) const {
  return GetSysVersionInfo(m_name, ms, ls);
}

CString SysDllDescriptor::GetPath(const char* folder) const {
  return CString(folder) + "\\" + m_name;
}

CString SysDllDescriptor::GetDestination() const {
  char folder[MAX_PATH] = "";
  VERIFY(GetSystemDirectoryA(folder, MAX_PATH) != 0);
  return GetPath(folder);
}

// --- Is it enough? ---

int SysDllDescriptor::DstVersionOk(unsigned long ms, unsigned long ls) const {
  return ms != m_versionMS ? m_versionMS < ms : ls >= m_versionLS;
}

CString SysDllDescriptor::Version(unsigned long ms, unsigned long ls) {
  CString text;
  text.Format("%d.%d.%d.%d", HIWORD(ms), LOWORD(ms), HIWORD(ls), LOWORD(ls));
  return text;
}

void SysDllDescriptor::InfoVersion(CString& line, int& ok) const {
  unsigned long ms = 0, ls = 0;
  const int found = GetSysVersionInfo(ms, ls);
  ok = found != 0 && DstVersionOk(ms, ls) != 0;
  const char* const status = ok != 0 ? "OK" : found != 0 ? "Outdated" : "Missing";
  const CString path = GetCurrentDll();
  line.Format("%s (%s) - %s", path.IsEmpty() ? m_name : static_cast<const char*>(path),
              static_cast<const char*>(Version(ms, ls)), status);
}

void SysDllDescriptor::TestLibFiles(CString& line, int& ok) {
  ok = 1;
  for (const SysDllDescriptor& library : kLibraries) {
    library.InfoVersion(line, ok);
    if (ok == 0) return;
  }
}

// --- Fetching them ---

int SysDllDescriptor::DownloadLibs(const char* folder, CString& error, CString& url) {
  CString server = MakerAddress(IDS_DOWNLOAD_SERVER);
  server.TrimRight('/');
  url = server + kArchive;
  error = "Unknown";
  InternetDownload download(url, "", 1);
  download.SetTitle(url.Mid(url.ReverseFind('/') + 1), "Downloading...");
  const CString archive = download.GetFile();
  if (archive.IsEmpty()) {
    error = download.GetErrorStr();
    return 0;
  }
  CString lastPath;
  if (OpenZipFile(archive, folder, lastPath) != 0) {
    VERIFY(DeleteFileA(archive));
    return 1;
  }
  // The archive stays, for whoever wants to see what came.
  error.Format("Cannot unzip '%s' to Pellmark system folder.", static_cast<const char*>(archive));
  ASSERT(!"an archive");
  return 0;
}
