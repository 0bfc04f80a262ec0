#include "settings/RegistryUtil.h"

#include <shlwapi.h>

#include <cstring>
#include <memory>

#include "diag/trace.h"
#include "entry/Handles.h"

namespace {

constexpr DWORD kTextSize = 260;  // the longest text that is read, with its terminating zero

std::unique_ptr<MRegistry> productRegistry;
HKEY userRoot = HKEY_LOCAL_MACHINE;

unique_registry_key CreateOrOpen(HKEY root, const char* path) {
  ASSERT(MRegistry::ValidRootKey(root));
  HKEY key = nullptr;
  if (RegCreateKeyA(root, path, &key) != ERROR_SUCCESS) return unique_registry_key();
  return unique_registry_key(key);
}

bool Store(HKEY root, const char* path, const char* name, DWORD type, const void* data,
           DWORD size) {
  const unique_registry_key key = CreateOrOpen(root, path);
  return key && RegSetValueExA(key.get(), name, 0, type, static_cast<const BYTE*>(data), size) ==
                    ERROR_SUCCESS;
}

}  // namespace

int MRegistry::InitProductRegistry(const char* path, int perUser) {
  ASSERT(path != nullptr && *path != 0);
  if (productRegistry != nullptr || path == nullptr || *path == 0) return 0;
  productRegistry = std::make_unique<MRegistry>(path);
  userRoot = perUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
  return 1;
}

void MRegistry::FreeProductRegistry() { productRegistry.reset(); }

MRegistry& MRegistry::GetProductRegistry() {
  ASSERT(HasProductRegistry());
  return productRegistry != nullptr ? *productRegistry : Null();
}

int MRegistry::HasProductRegistry() { return productRegistry != nullptr; }

MRegistry& MRegistry::Null() {
  static MRegistry null;
  return null;
}

int MRegistry::ValidRootKey(HKEY root) {
  return root == HKEY_LOCAL_MACHINE || !AssertVerifyTrace::BlockGui();
}

// The second try opens the key anew: another process may have deleted it in between.
int MRegistry::SetKey(HKEY root, const char* path, const char* value, const char* name) {
  if (value == nullptr) value = "";
  const DWORD size = static_cast<DWORD>(strlen(value)) + 1;
  return Store(root, path, name, REG_SZ, value, size) ||
         Store(root, path, name, REG_SZ, value, size);
}

// Nothing says that a value ends with a zero, so there is room for one more; what the system leaves
// in the buffer for a value that does not fit is not looked at.
int MRegistry::GetKey(HKEY root, const char* path, CString& value, const char* name) {
  char text[kTextSize + 1];
  DWORD size = kTextSize, type = REG_NONE;
  const unique_registry_key key = CreateOrOpen(root, path);
  if (!key ||
      RegQueryValueExA(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) !=
          ERROR_SUCCESS ||
      (type != REG_SZ && type != REG_EXPAND_SZ)) {
    value.Empty();
    return 0;
  }
  text[size] = 0;
  value = text;
  return 1;
}

int MRegistry::SetKey(HKEY root, const char* path, unsigned long value, const char* name,
                      int type) {
  return Store(root, path, name, type > 0 ? REG_DWORD : REG_DWORD_BIG_ENDIAN, &value, sizeof value);
}

int MRegistry::GetKey(HKEY root, const char* path, unsigned long& value, const char* name) {
  ASSERT(ValidRootKey(root));
  HKEY opened = nullptr;
  if (RegOpenKeyExA(root, path, 0, KEY_READ, &opened) != ERROR_SUCCESS) return 0;
  const unique_registry_key key(opened);
  unsigned long number = 0;
  DWORD size = sizeof number, type = REG_NONE;
  if (RegQueryValueExA(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&number), &size) !=
          ERROR_SUCCESS ||
      type != REG_DWORD || size != sizeof number) {
    return 0;
  }
  value = number;
  return 1;
}

int MRegistry::SetKey(HKEY root, const char* path, const void* data, int size, const char* name) {
  ASSERT(size == 0 || (size > 0 && data != nullptr));
  if (size < 0 || (size > 0 && data == nullptr)) return 0;
  return Store(root, path, name, REG_BINARY, data, static_cast<DWORD>(size));
}

int MRegistry::DeleteKeyValue(HKEY root, const char* path, const char* name) {
  const unique_registry_key key = CreateOrOpen(root, path);
  return key && RegDeleteValueA(key.get(), name) == ERROR_SUCCESS;
}

int MRegistry::DeleteKey(HKEY root, const char* path) {
  ASSERT(ValidRootKey(root));
  const bool namesKey = path != nullptr && path[strspn(path, "\\")] != 0;
  ASSERT(namesKey);
  return namesKey && SHDeleteKeyA(root, path) == ERROR_SUCCESS;
}

int MRegistry::KeyExists(HKEY root, const char* path) {
  ASSERT(ValidRootKey(root));
  HKEY opened = nullptr;
  if (RegOpenKeyA(root, path, &opened) != ERROR_SUCCESS) return 0;
  const unique_registry_key key(opened);
  return 1;
}

CString MRegistry::GetWinProgramBase() {
  CString folder;
  if (!GetKey(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion", folder,
              "ProgramFilesDir")) {
    folder = "C:\\Program Files";
  }
  return folder;
}

// Without a path the values would land in the root key itself, and deleting would delete the root.
int MRegistry::HasPath() const {
  ASSERT(!m_path.IsEmpty());
  return !m_path.IsEmpty();
}

int MRegistry::SetProductKey(const char* name, const char* value) const {
  return HasPath() && SetKey(HKEY_LOCAL_MACHINE, m_path, value, name);
}

int MRegistry::GetProductKey(const char* name, CString& value) const {
  if (HasPath()) return GetKey(HKEY_LOCAL_MACHINE, m_path, value, name);
  value.Empty();
  return 0;
}

int MRegistry::SetProductKey(const char* name, unsigned long value) const {
  return HasPath() && SetKey(HKEY_LOCAL_MACHINE, m_path, value, name, 1);
}

int MRegistry::GetProductKey(const char* name, unsigned long& value,
                             unsigned long defaultValue) const {
  value = defaultValue;
  return HasPath() && GetKey(HKEY_LOCAL_MACHINE, m_path, value, name);
}

int MRegistry::DeleteProductKey(const char* name) const {
  return HasPath() && DeleteKeyValue(HKEY_LOCAL_MACHINE, m_path, name);
}

int MRegistry::DeleteProductKeyAll() const {
  return HasPath() && DeleteKey(HKEY_LOCAL_MACHINE, m_path);
}

int MRegistry::SetUserKey(const char* name, const char* value) const {
  return HasPath() && SetKey(userRoot, m_path, value, name);
}

int MRegistry::GetUserKey(const char* name, CString& value) const {
  if (HasPath()) return GetKey(userRoot, m_path, value, name);
  value.Empty();
  return 0;
}

int MRegistry::SetUserKey(const char* name, unsigned long value) const {
  return HasPath() && SetKey(userRoot, m_path, value, name, 1);
}

int MRegistry::GetUserKey(const char* name, unsigned long& value,
                          unsigned long defaultValue) const {
  value = defaultValue;
  return HasPath() && GetKey(userRoot, m_path, value, name);
}

int MRegistry::GetUserKey(const char* name, int& value, int defaultValue) const {
  unsigned long number = 0;
  const int read = GetUserKey(name, number, static_cast<unsigned long>(defaultValue));
  value = static_cast<int>(number);
  return read;
}

int MRegistry::DeleteUserKey(const char* name) const {
  return HasPath() && DeleteKeyValue(userRoot, m_path, name);
}

int MRegistry::DeleteUserKeyAll() const { return HasPath() && DeleteKey(userRoot, m_path); }

int MRegistry::SetMessageDisplayLevel(int level) const {
  return SetUserKey("MessageDisplayLevel", static_cast<unsigned long>(level));
}

int MRegistry::GetMessageDisplayLevel() const {
  int level = 0;
  GetUserKey("MessageDisplayLevel", level, 0);
  return level;
}

int MRegistry::SetDontShowMessage(int id, int dontShow, int answer) const {
  CString name;
  name.Format("%d", id);
  const char* const value = dontShow == 0 ? "D" : answer != 0 ? "Y" : "N";
  return HasPath() && SetKey(userRoot, MessagesPath(), value, name);
}

MRegistry::DisplayMessageVal MRegistry::GetDisplayMessageVal(int id) const {
  if (AssertVerifyTrace::BlockGui()) return DMV_YES;
  if (!HasPath()) return DMV_SHOW;
  CString name, value;
  name.Format("%d", id);
  GetKey(userRoot, MessagesPath(), value, name);
  switch (value.IsEmpty() ? 0 : value[0]) {
    case 'Y':
      return DMV_YES;
    case 'N':
      return DMV_NO;
    default:
      return DMV_SHOW;
  }
}
