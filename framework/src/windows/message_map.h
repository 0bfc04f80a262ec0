// Looking for handlers in message maps, and calling them.
#pragma once

#include <afxwin.h>

// The map and those of the base classes are searched. Null: there is no handler.
// A message: its entry, or that of the registered message of the number.
const AFX_MSGMAP_ENTRY* FindMessageEntry(const AFX_MSGMAP* map, UINT message);
// A command or notification: nMessage is the message that carries it.
const AFX_MSGMAP_ENTRY* FindCommandEntry(const AFX_MSGMAP* map, UINT nMessage, UINT nCode,
                                         UINT nID);

// Calls the handler of a window message. False: it leaves the message to the default procedure.
bool CallHandler(CWnd& window, const AFX_MSGMAP_ENTRY& entry, const MSG& message, LRESULT* pResult);
// Calls the handler of a command or notification. False: it wants others to handle it too.
bool CallCommandHandler(CCmdTarget& target, const AFX_MSGMAP_ENTRY& entry, UINT nID, void* pExtra);

// The handler as it was written in the map.
template <_AfxSig sig>
typename _AfxHandler<sig>::Type HandlerOf(const AFX_MSGMAP_ENTRY& entry) {
  return std::bit_cast<typename _AfxHandler<sig>::Type>(entry.pfn);
}
