#include "foldercmp/RecentPairs.h"

#include <algorithm>

#include "foldercmp/FolderPath.h"
#include "settings/RegistryUtil.h"

namespace {

CString valueName(const char* what, size_t number) {
  CString name;
  name.Format("%s%u", what, static_cast<unsigned>(number + 1));
  return name;
}

constexpr char kBase[] = "RecentBase", kRevised[] = "RecentRevised";

}  // namespace

bool FolderPair::IsSame(const FolderPair& other) const {
  return IsSameFolder(base, other.base) && IsSameFolder(revised, other.revised);
}

void RecentPairs::Load() {
  m_pairs.clear();
  const MRegistry& registry = MRegistry::GetProductRegistry();
  for (size_t number = 0; number < kMost; ++number) {
    FolderPair pair;
    registry.GetUserKey(valueName(kBase, number), pair.base);
    registry.GetUserKey(valueName(kRevised, number), pair.revised);
    if (!pair.base.IsEmpty() && !pair.revised.IsEmpty()) m_pairs.push_back(pair);
  }
}

void RecentPairs::Add(const FolderPair& pair) {
  std::erase_if(m_pairs, [&](const FolderPair& kept) { return kept.IsSame(pair); });
  m_pairs.insert(m_pairs.begin(), pair);
  if (m_pairs.size() > kMost) m_pairs.resize(kMost);
  Store();
}

void RecentPairs::Store() const {
  const MRegistry& registry = MRegistry::GetProductRegistry();
  for (size_t number = 0; number < m_pairs.size(); ++number) {
    registry.SetUserKey(valueName(kBase, number), m_pairs[number].base);
    registry.SetUserKey(valueName(kRevised, number), m_pairs[number].revised);
  }
}

std::vector<CString> RecentPairs::Folders(CString FolderPair::*side) const {
  std::vector<CString> folders;
  const auto add = [&](const CString& folder) {
    const auto isSame = [&](const CString& kept) { return IsSameFolder(kept, folder); };
    if (std::none_of(folders.begin(), folders.end(), isSame)) folders.push_back(folder);
  };
  for (const FolderPair& pair : m_pairs) add(pair.*side);
  for (const FolderPair& pair : m_pairs) {
    add(pair.base);
    add(pair.revised);
  }
  return folders;
}
