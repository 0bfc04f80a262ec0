// The ground that every header of the framework stands on: the system's own header, and the macros
// that say how a declaration crosses the border of a library.
#pragma once

#ifdef UNICODE
#error The framework is the 8-bit one: UNICODE must not be defined.
#endif

#include <windows.h>
#include <tchar.h>

#include <stddef.h>

// The system's header has a function of this name, which would rename CTime's member.
#undef GetCurrentTime

#define _AFX 1
#define _MFC_VER 0x0421

// What the framework's own library exports, whole classes and functions alike. _AFX_CORE_IMPL is
// defined while that library itself is compiled.
#ifdef _AFX_CORE_IMPL
#define AFX_CORE_DATA __declspec(dllexport)
#else
#define AFX_CORE_DATA __declspec(dllimport)
#endif

// For extension libraries, which define _AFXEXT while they are compiled: a class so marked is
// exported by its library and imported by the library's users.
#ifdef _AFXEXT
#define AFX_EXT_DATA __declspec(dllexport)
#else
#define AFX_EXT_DATA __declspec(dllimport)
#endif
#define AFX_EXT_CLASS AFX_EXT_DATA
#define AFX_EXT_API AFX_EXT_DATA

// What DECLARE_DYNAMIC puts before its static member; an extension library may redefine it as
// AFX_EXT_DATA to export that member of a class that is not exported whole.
#define AFX_DATA
#define AFX_DATADEF
#define AFX_API

#define AFXAPI __stdcall
#define AFX_CDECL __cdecl
#define AFX_INLINE inline
