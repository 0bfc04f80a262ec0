// A registry key of a test's own, below HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE, missing when the
// test starts and removed with all that is below it at its end.
#pragma once

#include <string>

#include <windows.h>
#include <winreg.h>

class RegistrySubtree {
 public:
  RegistrySubtree() {
    static int count = 0;
    m_path = std::string(kParent) + "\\" + std::to_string(GetCurrentProcessId()) + "-" +
             std::to_string(++count);
    Remove();
  }
  ~RegistrySubtree() { Remove(); }
  RegistrySubtree(const RegistrySubtree&) = delete;
  RegistrySubtree& operator=(const RegistrySubtree&) = delete;

  // The key's path below either root.
  const std::string& path() const { return m_path; }
  const char* c_str() const { return m_path.c_str(); }
  // The path of a key below it.
  std::string operator/(const std::string& name) const { return m_path + "\\" + name; }

  // Stores exactly these bytes as a value of any type under HKEY_CURRENT_USER.
  void WriteRaw(const std::string& name, DWORD type, const std::string& bytes) const {
    const std::string followed = bytes + "#";  // the system would add a zero that follows
    RegSetKeyValueA(HKEY_CURRENT_USER, c_str(), name.c_str(), type, followed.data(),
                    static_cast<DWORD>(bytes.size()));
  }

  struct Value {
    DWORD type;
    std::string bytes;
    bool operator==(const Value&) const = default;
  };

  // A value as it is stored; type REG_NONE without bytes: there is none.
  Value ReadRaw(HKEY root, const std::string& name) const { return ReadRaw(root, m_path, name); }
  static Value ReadRaw(HKEY root, const std::string& path, const std::string& name) {
    Value value = {REG_NONE, std::string(4096, 0)};
    DWORD size = static_cast<DWORD>(value.bytes.size());
    HKEY key = nullptr;
    if (RegOpenKeyA(root, path.c_str(), &key) != ERROR_SUCCESS) return {REG_NONE, {}};
    if (RegQueryValueExA(key, name.c_str(), nullptr, &value.type,
                         reinterpret_cast<BYTE*>(value.bytes.data()), &size) != ERROR_SUCCESS) {
      value.type = REG_NONE;
      size = 0;
    }
    RegCloseKey(key);
    value.bytes.resize(size);
    return value;
  }

 private:
  static constexpr const char* kParent = "Software\\Orvane tests";

  // The parent is deleted only when it is empty.
  void Remove() const {
    for (HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
      RegDeleteTreeA(root, c_str());
      RegDeleteKeyA(root, kParent);
    }
  }

  std::string m_path;
};
