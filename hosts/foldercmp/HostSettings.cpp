#include "foldercmp/HostSettings.h"

#include "foldercmp/TypeList.h"
#include "settings/RegistryUtil.h"

const char kProductKey[] = "SOFTWARE\\Orvane\\foldercmp";
const char kListKey[] = "SOFTWARE\\Orvane\\foldercmp\\Documents";

namespace {

constexpr char kSubFolders[] = "SubFolders", kTypeList[] = "TypeList",
               kExcludeTypes[] = "ExcludeTypes", kIgnoreCase[] = "IgnoreCase",
               kWhiteSpace[] = "WhiteSpaceMode", kOlderOnLeft[] = "OlderOnLeft",
               kColours[] = "useColourMarking", kShownStates[] = "ShownStates",
               kFilterColumn[] = "FilterColumn";

MRegistry& registry() { return MRegistry::GetProductRegistry(); }

}  // namespace

int LoadNumber(const char* name, int most, int fromTheStart) {
  unsigned long value = 0;
  const bool isThere = registry().GetUserKey(name, value, 0) != 0;
  return isThere && value <= static_cast<unsigned long>(most) ? static_cast<int>(value)
                                                              : fromTheStart;
}

void StoreNumber(const char* name, int value) {
  registry().SetUserKey(name, static_cast<unsigned long>(value));
}

DirCmpPrm LoadComparisonOptions() {
  DirCmpPrm prm;
  prm.m_scanFlags = LoadNumber(kSubFolders, 1, 1) != 0 ? kScanSubFolders : 0;
  prm.m_ignoreCase = LoadNumber(kIgnoreCase, 1, prm.m_ignoreCase);
  prm.m_whiteSpaceMode = LoadNumber(kWhiteSpace, kWhiteSpaceIgnored, prm.m_whiteSpaceMode);
  prm.m_olderOnLeft = LoadNumber(kOlderOnLeft, 1, prm.m_olderOnLeft);
  CString types;
  registry().GetUserKey(kTypeList, types);
  prm.m_typeList = NormalizedTypeList(types);
  // Without types there is nothing to leave out: all are compared.
  prm.m_excludeListedTypes = prm.m_typeList.IsEmpty() ? 0 : LoadNumber(kExcludeTypes, 1, 0);
  return prm;
}

void StoreComparisonOptions(const DirCmpPrm& prm) {
  StoreNumber(kSubFolders, (prm.m_scanFlags & kScanSubFolders) != 0);
  StoreNumber(kIgnoreCase, prm.m_ignoreCase);
  StoreNumber(kWhiteSpace, prm.m_whiteSpaceMode);
  StoreNumber(kOlderOnLeft, prm.m_olderOnLeft);
  registry().SetUserKey(kTypeList, prm.m_typeList);
  StoreNumber(kExcludeTypes, prm.m_excludeListedTypes);
}

bool LoadColourMarking() { return LoadNumber(kColours, 1, 1) != 0; }
void StoreColourMarking(bool isOn) { StoreNumber(kColours, isOn); }

ShownDocuments LoadShownDocuments(const ShownDocuments& fromTheStart, int columns) {
  const int allStates = static_cast<int>(fromTheStart.states);
  ShownDocuments shown;
  shown.states = static_cast<unsigned>(LoadNumber(kShownStates, allStates, allStates));
  shown.column = LoadNumber(kFilterColumn, columns - 1, fromTheStart.column);
  return shown;
}

void StoreShownDocuments(const ShownDocuments& shown) {
  StoreNumber(kShownStates, static_cast<int>(shown.states));
  StoreNumber(kFilterColumn, shown.column);
}
