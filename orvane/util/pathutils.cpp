#include "util/pathutils.h"

#include <io.h>
#include <mbstring.h>
#include <sys/stat.h>

#include <cstring>

#include "diag/trace.h"
#include "entry/Handles.h"
#include "markup/NoException.h"
#include "messages/message.h"
#include "ops/DirOp.h"
#include "resources/resource.h"

// Where this library is loaded; the linker's own symbol.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace {

constexpr char kWriteProbe[] = "\\dummy.tst";
constexpr char kLongNameProbe[] = "\\Long Name Test.tst,v";
constexpr DWORD kLongestNamePart = 255;

// The library's own texts, whatever the host has under the same ids.
class OwnTexts {
 public:
  OwnTexts() { AfxSetResourceHandle(reinterpret_cast<HINSTANCE>(&__ImageBase)); }
  ~OwnTexts() { AfxSetResourceHandle(m_previous); }
  OwnTexts(const OwnTexts&) = delete;
  OwnTexts& operator=(const OwnTexts&) = delete;

 private:
  const HINSTANCE m_previous = AfxGetResourceHandle();
};

// A drive without a disk is an error, without a box of the system's that waits for one.
class NoSystemBoxes {
 public:
  NoSystemBoxes() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &m_previous); }
  ~NoSystemBoxes() { SetThreadErrorMode(m_previous, nullptr); }
  NoSystemBoxes(const NoSystemBoxes&) = delete;
  NoSystemBoxes& operator=(const NoSystemBoxes&) = delete;

 private:
  DWORD m_previous = 0;
};

const char* Find(const char* text, char c) {
  return reinterpret_cast<const char*>(_mbschr(reinterpret_cast<const unsigned char*>(text), c));
}

void TurnSlashes(char* path) {
  while ((path = const_cast<char*>(Find(path, '/'))) != nullptr) *path++ = '\\';
}

bool IsShared(const char* path) { return path[0] == '\\' && path[1] == '\\'; }

// Of an absolute path: "C:\", or "\\server\share\".
CString RootOf(const char* path) {
  if (!IsShared(path)) return CString(path, 2) + "\\";
  const char* end = Find(path + 2, '\\');
  if (end != nullptr) end = Find(end + 1, '\\');
  return (end == nullptr ? CString(path) : CString(path, static_cast<int>(end - path))) + "\\";
}

bool EndsIncomplete(const char* path) {
  const auto* const bytes = reinterpret_cast<const unsigned char*>(path);
  const unsigned char* const last = _mbsdec(bytes, bytes + strlen(path));
  return strchr("\\/.", *last) != nullptr;
}

// Whether a file of the name can be written in the folder. One that is there already is neither
// changed nor removed.
bool Probe(const char* folder, const char* name) {
  const CString path = CString(folder) + name;
  unique_file file(CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return false;
  if (GetLastError() == ERROR_ALREADY_EXISTS) return true;
  file.reset();
  struct _stat64 status;
  if (_stat64(path, &status) != 0) return false;
  if (_chmod(path, _S_IREAD | _S_IWRITE) == 0) VERIFY(_unlink(path) == 0);
  return true;
}

// The checks, each of which tells the user of its failure.
class FolderChecks {
 public:
  // errorText: null, or what receives the text of the failure.
  explicit FolderChecks(char* path, CString* errorText = nullptr)
      : m_path(path), m_errorText(errorText) {}

  bool Refuse(UINT id, const char* insert = "") const {
    if (m_errorText != nullptr) {
      MString text;
      text.FormatMessage(id, insert);
      *m_errorText = text;
    }
    Message::DisplayErrorMessage(id, insert);
    return false;
  }

  bool IsWellFormed() {
    if (m_path == nullptr || *m_path == 0) return Refuse(IDS_SPECIFY_PATH);
    TurnSlashes(m_path);
    if (m_path[1] != ':' && !IsShared(m_path)) return Refuse(IDS_SPECIFY_ABSOLUTE_PATH);
    if (EndsIncomplete(m_path)) return Refuse(IDS_SLASH_AT_END);
    return true;
  }

  bool IsReachable() {
    m_root = RootOf(m_path);
    char volume[MAX_PATH + 1];
    return GetVolumeInformationA(m_root, volume, sizeof volume, nullptr, nullptr, nullptr, nullptr,
                                 0) ||
           Refuse(IDS_NO_DRIVE_ACCESS, m_root);
  }

  bool TakesLongNames() const {
    // A folder that is still missing is judged by its drive.
    const bool takesThem =
        Probe(m_path, kWriteProbe) ? Probe(m_path, kLongNameProbe) : DriveTakesLongNames();
    return takesThem || Message::GetConfirmation(IDS_NO_LONG_NAMES);
  }

  bool Exists() const {
    char previous[MAX_PATH] = "";
    const DWORD length = GetCurrentDirectoryA(sizeof previous, previous);
    VERIFY(length > 0 && length < sizeof previous);
    const bool exists = SetCurrentDirectoryA(m_path);
    SetCurrentDirectoryA(previous);
    return exists;
  }

  bool Create() const { return CreateDirectoryA(m_path) || Refuse(IDS_FOLDER_NOT_CREATED, m_path); }

  bool IsWritable() const { return Probe(m_path, kWriteProbe) || Refuse(IDS_NO_WRITE_ACCESS); }

 private:
  bool DriveTakesLongNames() const {
    DWORD longest = 0;
    return GetVolumeInformationA(m_root, nullptr, 0, nullptr, &longest, nullptr, nullptr, 0) &&
           longest == kLongestNamePart;
  }

  char* m_path;
  CString* m_errorText;
  CString m_root;
};

}  // namespace

int ValidatePath(char* path, int mustExist, int checkLongNames, int checkWritable, int askCreate,
                 int failIfNotCreated) {
  const OwnTexts texts;
  const NoSystemBoxes noBoxes;
  FolderChecks checks(path);
  return WithoutException([&] {
    if (!checks.IsWellFormed() || !checks.IsReachable()) return false;
    if (checkLongNames && !checks.TakesLongNames()) return false;
    if (!checks.Exists()) {
      if (mustExist) return checks.Refuse(IDS_FOLDER_MISSING, path);
      if (askCreate && !Message::GetConfirmation(IDS_CREATE_FOLDER, path)) return !failIfNotCreated;
      if (!checks.Create()) return false;
    }
    return !checkWritable || checks.IsWritable();
  });
}

int ValidatePathServer(char* path, CString& errorText) {
  const OwnTexts texts;
  const NoSystemBoxes noBoxes;
  errorText.Empty();
  FolderChecks checks(path, &errorText);
  return WithoutException([&] {
    return checks.IsWellFormed() && checks.IsReachable() && (checks.Exists() || checks.Create()) &&
           checks.IsWritable();
  });
}

void ValidatePath(CDataExchange* dx, int controlId, int mustExist, int checkLongNames,
                  int checkWritable, int askCreate, int failIfNotCreated) {
  if (!dx->m_bSaveAndValidate) return;
  CString path;
  DDX_Text(dx, controlId, path);
  const int isValid = ValidatePath(path.GetBuffer(0), mustExist, checkLongNames, checkWritable,
                                   askCreate, failIfNotCreated);
  if (!isValid) dx->Fail();
}

int IsFolder(CString path) {
  struct _stat64 status;
  return _stat64(path, &status) == 0 && (status.st_mode & _S_IFDIR) != 0;
}
