#include "foldercmp/HostSettings.h"

#include "foldercmp/TypeList.h"
#include "foldercmp/common/UserNumbers.h"
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

DirCmpPrm LoadComparisonOptions() {
  DirCmpPrm prm;
  prm.m_scanFlags = LoadFlag(kSubFolders, true) ? kScanSubFolders : 0;
  prm.m_ignoreCase = LoadFlag(kIgnoreCase, prm.m_ignoreCase != 0);
  prm.m_whiteSpaceMode =
      LoadNumber(kWhiteSpace, kWhiteSpaceExact, kWhiteSpaceIgnored, prm.m_whiteSpaceMode);
  prm.m_olderOnLeft = LoadFlag(kOlderOnLeft, prm.m_olderOnLeft != 0);
  CString types;
  registry().GetUserKey(kTypeList, types);
  prm.m_typeList = NormalizedTypeList(types);
  // Without types there is nothing to leave out: all are compared.
  prm.m_excludeListedTypes = prm.m_typeList.IsEmpty() ? 0 : LoadFlag(kExcludeTypes, false);
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

bool LoadColourMarking() { return LoadFlag(kColours, true); }
void StoreColourMarking(bool isOn) { StoreNumber(kColours, isOn); }

ShownDocuments LoadShownDocuments(const ShownDocuments& fromTheStart, int columns) {
  const int allStates = static_cast<int>(fromTheStart.states);
  ShownDocuments shown;
  shown.states = static_cast<unsigned>(LoadNumber(kShownStates, 0, allStates, allStates));
  shown.column = LoadNumber(kFilterColumn, 0, columns - 1, fromTheStart.column);
  return shown;
}

void StoreShownDocuments(const ShownDocuments& shown) {
  StoreNumber(kShownStates, static_cast<int>(shown.states));
  StoreNumber(kFilterColumn, shown.column);
}
