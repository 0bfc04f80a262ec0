// What programs include: the foundation, the program's state and resources, windows, the standard
// controls, drawing and threads.
#pragma once

#include "afx.h"
#include "afxstat_.h"
#include "afxdll_.h"
#include "afxgeo_.h"
#include "afxgdi_.h"
#include "afxdc_.h"
#include "afxmenu_.h"
#include "afxwnd_.h"
#include "afxctl_.h"
#include "afxdd_.h"
#include "afxdlg_.h"
#include "afxframe_.h"
#include "afxthrd_.h"
#include "afxapp_.h"
#include "afxmsg_.h"
#include "afxres.h"

// The program's module, without an application object the one of the .exe file.
AFX_CORE_DATA HINSTANCE AFXAPI AfxGetInstanceHandle();
// Where resources are looked for first; the program's module unless set.
AFX_CORE_DATA HINSTANCE AFXAPI AfxGetResourceHandle();
AFX_CORE_DATA void AFXAPI AfxSetResourceHandle(HINSTANCE hInstResource);
// The module that has a resource: looks in the current resource module, then in the extension
// modules, latest first, then in the framework. The current one when none has it.
AFX_CORE_DATA HINSTANCE AFXAPI AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

// Copies a string resource, at most nMaxBuf - 1 characters and a null, looking in the same modules
// for the first that has it. Returns the count of characters; 0, and an empty text, when none has.
AFX_CORE_DATA int AFXAPI AfxLoadString(UINT nIDS, LPTSTR lpszBuf, UINT nMaxBuf = 256);

// Puts texts in the place of %1 and %2 in a string resource. A null text counts as empty; when the
// resource is missing the result is empty.
AFX_CORE_DATA void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
AFX_CORE_DATA void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1,
                                           LPCTSTR lpsz2);

// The part number iSubString, from 0, of a text whose parts are separated by chSep. FALSE, and an
// empty result, when there are fewer parts.
AFX_CORE_DATA BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString,
                                              int iSubString, TCHAR chSep = '\n');
