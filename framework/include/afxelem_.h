// What the collection templates do with their elements. A program may specialise these functions
// for a type of its own.
#pragma once

#include "afxexc_.h"
#include "afxstr_.h"

#include <limits.h>
#include <string.h>

#include <new>
#include <type_traits>
#include <utility>

struct __POSITION;
typedef __POSITION* POSITION;

#undef min
#undef max

// Makes elements in raw memory: all bits zero, then the default constructor.
template <class TYPE>
inline void AFXAPI ConstructElements(TYPE* pElements, int nCount) {
  for (; nCount > 0; --nCount, ++pElements) ::new (static_cast<void*>(pElements)) TYPE();
}

// Ends elements; their memory stays.
template <class TYPE>
inline void AFXAPI DestructElements(TYPE* pElements, int nCount) {
  for (; nCount > 0; --nCount, ++pElements) pElements->~TYPE();
}

// Assigns elements to others that exist; the two ranges do not overlap.
template <class TYPE>
inline void AFXAPI CopyElements(TYPE* pDest, const TYPE* pSrc, int nCount) {
  for (; nCount > 0; --nCount) *pDest++ = *pSrc++;
}

template <class TYPE, class ARG_TYPE>
inline BOOL AFXAPI CompareElements(const TYPE* pElement1, const ARG_TYPE* pElement2) {
  return *pElement1 == *pElement2;
}

// The hash value of a number or a pointer: its value shifted right by four bits.
template <class ARG_KEY>
inline UINT AFXAPI HashKey(ARG_KEY key) {
  return static_cast<UINT>((DWORD_PTR)key) >> 4;
}

// Of a text, byte by byte.
template <>
inline UINT AFXAPI HashKey<LPCSTR>(LPCSTR key) {
  UINT nHash = 0;
  for (; *key != '\0'; ++key) nHash = (nHash << 5) + nHash + static_cast<unsigned char>(*key);
  return nHash;
}

template <>
inline UINT AFXAPI HashKey<LPCWSTR>(LPCWSTR key) {
  UINT nHash = 0;
  for (; *key != L'\0'; ++key) nHash = (nHash << 5) + nHash + *key;
  return nHash;
}

template <>
inline UINT AFXAPI HashKey<const CString&>(const CString& key) {
  return HashKey<LPCSTR>(key);
}
