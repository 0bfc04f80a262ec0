// Whether two contents are the same: byte for byte, or as texts in which white space or letter case
// doesn't count. Knows no window, so that console programs can use it, too.
//
//   ContentCompare comparison({.ignoreCase = true}, [&] { return stopped; });
//   if (comparison.Files(left, right) == ContentCompare::Result::Different) ...
#pragma once

#include <afxwin.h>

#include <functional>
#include <memory>

#include "dircmp/ByteSource.h"
#include "dircmp/DirCmpPrm.h"

class LetterCase;

struct CompareOptions {
  bool ignoreCase = false;
  int whiteSpaceMode = kWhiteSpaceExact;
  // Of the texts: tells what is a letter of another case.
  UINT codePage = CP_ACP;

  bool isBinary() const { return !ignoreCase && whiteSpaceMode == kWhiteSpaceExact; }
};

// How the documents of two folders are compared.
inline CompareOptions OptionsOf(const DirCmpPrm& prm) {
  return {.ignoreCase = prm.m_ignoreCase != 0, .whiteSpaceMode = prm.m_whiteSpaceMode};
}

// For one thread at a time; the object keeps its buffers, so use one for many pairs. White space is
// blank, tab, line feed, vertical tab, form feed and carriage return.
class ORVANE_API ContentCompare {
 public:
  enum class Result {
    Equal,
    Different,
    Stopped,     // before a difference was found
    Unreadable,  // one of them can't be opened or read to its end (GetLastError tells why of
                 // files), or there is no memory
  };

  // Asked before every block that is read (of kBlockSize bytes at most); true: nothing is read any
  // more.
  using StopPoll = std::function<bool()>;
  static constexpr int kBlockSize = 128 * 1024;

  explicit ContentCompare(const CompareOptions& options, StopPoll stop = {});
  ~ContentCompare();
  ContentCompare(const ContentCompare&) = delete;
  ContentCompare& operator=(const ContentCompare&) = delete;

  // Where every byte counts, files of different sizes are not read.
  Result Files(const char* left, const char* right);
  Result Streams(ByteSource& left, ByteSource& right);

 private:
  Result CompareFiles(const char* left, const char* right);
  Result CompareStreams(ByteSource& left, ByteSource& right);

  CompareOptions m_options;
  StopPoll m_stop;
  std::unique_ptr<LetterCase> m_letters;  // only where case is ignored
  std::unique_ptr<unsigned char[]> m_leftBlock;
  std::unique_ptr<unsigned char[]> m_rightBlock;
};
