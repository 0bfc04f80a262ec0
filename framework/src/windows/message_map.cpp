#include "windows/message_map.h"

namespace {

constexpr UINT kRegisteredMessage = 0xC000;  // the least number of one, and what entries say

template <class Matches>
const AFX_MSGMAP_ENTRY* findEntry(const AFX_MSGMAP* map, Matches matches) {
  while (map != nullptr) {
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nSig != _AfxSigEnd; ++entry)
      if (matches(*entry)) return entry;
    map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
  }
  return nullptr;
}

bool isRegistered(const AFX_MSGMAP_ENTRY& entry) { return entry.nMessage == kRegisteredMessage; }

}  // namespace

const AFX_MSGMAP_ENTRY* FindMessageEntry(const AFX_MSGMAP* map, UINT message) {
  if (message < kRegisteredMessage)
    return findEntry(map, [=](const auto& entry) { return entry.nMessage == message; });
  return findEntry(map, [=](const auto& entry) {
    return isRegistered(entry) && *reinterpret_cast<const UINT*>(entry.nSig) == message;
  });
}

const AFX_MSGMAP_ENTRY* FindCommandEntry(const AFX_MSGMAP* map, UINT nMessage, UINT nCode,
                                         UINT nID) {
  return findEntry(map, [=](const auto& entry) {
    return entry.nMessage == nMessage && entry.nCode == nCode && entry.nID <= nID &&
           nID <= entry.nLastID;
  });
}
