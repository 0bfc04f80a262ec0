// The pairs of folders that were compared last, kept per user.
#pragma once

#include <afxwin.h>

#include <vector>

struct FolderPair {
  CString base, revised;
  bool IsSame(const FolderPair& other) const;
};

class RecentPairs {
 public:
  static constexpr size_t kMost = 10;

  // From the user's values. Pairs that are damaged are left out.
  void Load();
  // Puts a pair at the top, and keeps all.
  void Add(const FolderPair& pair);

  // Latest first.
  const std::vector<FolderPair>& Pairs() const { return m_pairs; }
  // The folders that a box offers, each once: those of its own side first.
  std::vector<CString> Folders(CString FolderPair::*side) const;

 private:
  void Store() const;

  std::vector<FolderPair> m_pairs;
};
