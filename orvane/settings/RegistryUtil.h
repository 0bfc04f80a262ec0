// Access to the system's registry, and the registry of the host's product.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

// The static helpers read and write one value under a key, given by its root and its path. The
// members do the same under the key path of one object: product values below HKEY_LOCAL_MACHINE,
// user values below the user root.
//
// Operations that return an int return 1, or 0 when the registry refused; nothing is thrown, and
// keys are always closed. A key path is relative to its root, without "\" at its ends. A null or
// empty value name is the key's default value.
//
// In a web server's process only HKEY_LOCAL_MACHINE is an expected root: any other one is reported
// by ASSERT, and used.
class ORVANE_API MRegistry {
 public:
  // The answer that a user gave to a message once and for all.
  enum DisplayMessageVal {
    DMV_SHOW,  // none: show the message
    DMV_YES,   // don't show it, the answer is yes
    DMV_NO     // don't show it, the answer is no
  };

  // An empty path is for the null registry: such an object stores and finds nothing, and its use is
  // reported by ASSERT.
  explicit MRegistry(const char* path = nullptr) : m_path(path) {}

  // --- The product registry of the process, set once at the start of the host ---

  // Makes it. path: the product's key path, such as "SOFTWARE\\Maker\\Product". perUser: from now
  // on user values go to HKEY_CURRENT_USER instead of HKEY_LOCAL_MACHINE. 0, and nothing changes,
  // when there is one already, or when path is null or empty (ASSERT).
  static int InitProductRegistry(const char* path, int perUser);
  // Deletes it; references to it end.
  static void FreeProductRegistry();
  // It, or the null registry, with an ASSERT, when there is none.
  static MRegistry& GetProductRegistry();
  static int HasProductRegistry();
  static MRegistry& Null();
  // Whether this is the null registry itself; a copy of it is not.
  int IsNull() const { return this == &Null(); }

  // --- One value of a key ---

  // Stores a text (null: an empty one) as REG_SZ, creating the key when it is missing. A store that
  // fails is tried once more.
  static int SetKey(HKEY root, const char* path, const char* value, const char* name);

  // Reads a text of type REG_SZ or REG_EXPAND_SZ, not expanded, of at most 260 bytes with its
  // terminating zero, which may be missing. 0, and an empty value, when there is none, or one that
  // is longer. Reading creates a missing key, by design.
  static int GetKey(HKEY root, const char* path, CString& value, const char* name);

  // Stores a number as REG_DWORD when type is above 0, and else, by design, the same bytes as
  // REG_DWORD_BIG_ENDIAN.
  static int SetKey(HKEY root, const char* path, unsigned long value, const char* name, int type);

  // Reads a REG_DWORD. 0, and value as it was, when there is none, or its size is wrong.
  static int GetKey(HKEY root, const char* path, unsigned long& value, const char* name);

  // Stores bytes as REG_BINARY.
  static int SetKey(HKEY root, const char* path, const void* data, int size, const char* name);

  // Deletes the value, creating the key when it is missing.
  static int DeleteKeyValue(HKEY root, const char* path, const char* name);

  // --- Keys ---

  // Deletes a key with all that is below it. Never a whole root: an empty path, or one of nothing
  // but "\", is refused with an ASSERT.
  static int DeleteKey(HKEY root, const char* path);
  static int KeyExists(HKEY root, const char* path);

  // Whether a root is expected in this process, as said above.
  static int ValidRootKey(HKEY root);

  // --- Values under this object's path ---

  int SetProductKey(const char* name, const char* value) const;
  int GetProductKey(const char* name, CString& value) const;
  int SetProductKey(const char* name, unsigned long value) const;
  // The number, or defaultValue and the result 0.
  int GetProductKey(const char* name, unsigned long& value, unsigned long defaultValue) const;
  int DeleteProductKey(const char* name) const;
  // Deletes the whole key, below HKEY_LOCAL_MACHINE.
  int DeleteProductKeyAll() const;

  int SetUserKey(const char* name, const char* value) const;
  int GetUserKey(const char* name, CString& value) const;
  int SetUserKey(const char* name, unsigned long value) const;
  int GetUserKey(const char* name, unsigned long& value, unsigned long defaultValue) const;
  int GetUserKey(const char* name, int& value, int defaultValue) const;
  int DeleteUserKey(const char* name) const;
  // Deletes the whole key, below the user root.
  int DeleteUserKeyAll() const;

  // --- Messages: user values of this object ---

  // Messages of a lower type than this are not shown; 0 when nothing is stored.
  int SetMessageDisplayLevel(int level) const;
  int GetMessageDisplayLevel() const;

  // Stores whether the message with an id is shown no more, and the answer it then has: not 0 is
  // yes.
  int SetDontShowMessage(int id, int dontShow, int answer) const;
  // Where no message may be shown (AssertVerifyTrace::BlockGui) always DMV_YES.
  DisplayMessageVal GetDisplayMessageVal(int id) const;

  // --- Other ---

  // Scrambles a text, and gives the text back. This keeps a value from a casual reader's eye and is
  // no protection whatsoever: everybody who has this library can read it. The result has letters,
  // digits, "-" and "_" only, so that it stands unchanged in a registry value, a CDATA section or a
  // command line. It has four characters for three bytes and three more, and differs from call to
  // call. What was scrambled once can be read by all later versions of the library.
  static CString EncriptStr(const char* text);
  // Empty for a text that EncriptStr did not make: of those, one in 4,096 goes unnoticed.
  static CString DescriptStr(const char* text);

  // The folder where programs are installed, without a "\" at its end.
  static CString GetWinProgramBase();

 private:
  // Whether there is a key path to work under.
  int HasPath() const;
  CString MessagesPath() const { return m_path + "\\Messages"; }

  CString m_path;
};
