// The system libraries that a product needs in at least a certain version.
//
//   CString line;
//   int ok = 0;
//   SysDllDescriptor::TestLibFiles(line, ok);
//   if (!ok) ... "C:\WINDOWS\MSVCP60.dll (6.0.8168.0) - Outdated"
//
// Versions are two words, each of two 16-bit parts: major and minor, build and revision.
#pragma once

#include <afxwin.h>

#include "entry/export.h"

class ORVANE_API SysDllDescriptor {
 public:
  // name: a file name without folder; stays the caller's and must outlive the descriptor. flag: the
  // caller's own.
  SysDllDescriptor(const char* name, unsigned long versionMS, unsigned long versionLS, int flag);
  SysDllDescriptor(const char* name, unsigned short major, unsigned short minor,
                   unsigned short build, unsigned short revision);

  // The libraries that programs built on this one need. i: from 0 to one below the number; others
  // give the first (ASSERT). GetDscr: by file name without regard to case; null: there is none.
  static int LibDescriptorNum();
  static const SysDllDescriptor& GetLibDescriptor(int i);
  static const SysDllDescriptor* GetDscr(const char* name);

  // The version in a file's version record: 1, or 0 and a version of zeros when it has none.
  static int GetVersionInfo(const char* path, unsigned long& ms, unsigned long& ls);

  // The full path of the library that the system would load; empty: none.
  static CString GetCurrentDll(const char* name);
  CString GetCurrentDll() const;
  // Its version, as GetVersionInfo. One that is there without a version record is an ASSERT.
  static int GetSysVersionInfo(const char* name, unsigned long& ms, unsigned long& ls);
  int GetSysVersionInfo(unsigned long& ms, unsigned long& ls) const;

  // The path of the library in a folder, and in the system's.
  CString GetPath(const char* folder) const;
  CString GetDestination() const;

  // Whether a version is at least the required one.
  int DstVersionOk(unsigned long ms, unsigned long ls) const;

  // "6.0.9782.0".
  static CString Version(unsigned long ms, unsigned long ls);

  // line: "path (version) - OK", "Outdated" or "Missing", the latter with the bare name and
  // 0.0.0.0. ok: 1 for the first of them, else 0.
  void InfoVersion(CString& line, int& ok) const;
  // The same for the first of the libraries that is not OK; when all are, for the last.
  static void TestLibFiles(CString& line, int& ok);

  // Fetches the libraries from the maker's download server, with a progress window, and unpacks
  // them into folder. 1, or 0: error says why. url: where they were fetched from.
  static int DownloadLibs(const char* folder, CString& error, CString& url);

 private:
  const char* m_name;
  unsigned long m_versionMS;
  unsigned long m_versionLS;
  unsigned long m_reserved = 0;  // of the record that hosts keep; not used here
  int m_flag = 0;                // likewise
};
