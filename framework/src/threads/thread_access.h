// What the framework's own functions need of a CWinThread that is not public.
#pragma once

#include <afxwin.h>

struct _AfxThreadAccess {
  static const MSG& LastMessage(const CWinThread& thread) { return thread.m_msgCur; }
  static UINT Run(CWinThread& thread) {
    if (thread.m_pfnThreadProc != nullptr) return thread.m_pfnThreadProc(thread.m_pThreadParams);
    return static_cast<UINT>(thread.InitInstance() ? thread.Run() : thread.ExitInstance());
  }
  static void Delete(CWinThread& thread) { thread.Delete(); }
};
