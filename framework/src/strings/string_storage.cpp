#include "strings/string_storage.h"

#include <limits.h>
#include <stdlib.h>

#include <algorithm>
#include <utility>

namespace strings {
namespace {

struct NilBlock {
  CStringData head;
  TCHAR end;
};
// Locked for ever, so that nobody takes it for a block to be shared or written to.
constinit NilBlock nilBlock = {{-1, 0, 0}, '\0'};

// The heap hands out memory in steps of this; what is left over is room to grow.
constexpr int kStep = 8;
constexpr int kMaxLength = INT_MAX - static_cast<int>(sizeof(CStringData)) - 1 - kStep;

}  // namespace

CStringData* Nil() { return &nilBlock.head; }

CStringData* TryAllocate(int nLength) {
  if (nLength == 0) return Nil();
  if (nLength < 0 || nLength > kMaxLength) return nullptr;
  size_t size = sizeof(CStringData) + static_cast<size_t>(nLength) + 1;
  size = (size + kStep - 1) / kStep * kStep;
  auto* data = static_cast<CStringData*>(malloc(size));
  if (data == nullptr) return nullptr;
  data->nRefs = 1;
  data->nAllocLength = static_cast<int>(size - sizeof(CStringData) - 1);
  SetLength(data, nLength);
  return data;
}

CStringData* Allocate(int nLength) {
  CStringData* data = TryAllocate(nLength);
  if (data == nullptr) AfxThrowMemoryException();
  return data;
}

void Release(CStringData* data) {
  if (data != Nil() && InterlockedDecrement(&data->nRefs) <= 0) free(data);
}

int Length(size_t length) {
  if (length > static_cast<size_t>(kMaxLength)) AfxThrowMemoryException();
  return static_cast<int>(length);
}

int Length(LPCSTR text) { return text == nullptr ? 0 : Length(strlen(text)); }

}  // namespace strings

using namespace strings;

void CString::Attach(CStringData* pData) {
  Release(GetData());
  m_pchData = pData->data();
}

CString::CString() : m_pchData(Nil()->data()) {}

CString::CString(const CString& stringSrc) : CString() { *this = stringSrc; }

CString::CString(CString&& stringSrc) noexcept
    : m_pchData(std::exchange(stringSrc.m_pchData, Nil()->data())) {}

CString::CString(LPCSTR lpch, int nLength) : CString() { AssignCopy(nLength, lpch); }

CString::CString(TCHAR ch, int nRepeat) : CString() {
  if (nRepeat < 1) return;
  Attach(Allocate(nRepeat));
  memset(m_pchData, ch, nRepeat);
}

CString::CString(LPCSTR lpsz) : CString() {
  if (lpsz == nullptr) return;
  if (IS_INTRESOURCE(lpsz))
    LoadString(LOWORD(reinterpret_cast<DWORD_PTR>(lpsz)));
  else
    AssignCopy(Length(lpsz), lpsz);
}

CString::CString(const unsigned char* psz) : CString(reinterpret_cast<LPCSTR>(psz)) {}

CString::~CString() { Release(GetData()); }

void CString::Empty() {
  CStringData* data = GetData();
  if (data == Nil()) return;
  if (IsLocked(data))
    SetLength(data, 0);
  else
    Attach(Nil());
}

const CString& CString::operator=(const CString& stringSrc) {
  CStringData* data = stringSrc.GetData();
  if (data == GetData()) return *this;
  if (data == Nil()) {
    Empty();
  } else if (IsLocked(data) || (IsLocked(GetData()) && GetData() != Nil())) {
    AssignCopy(data->nDataLength, data->data());
  } else {
    InterlockedIncrement(&data->nRefs);
    Attach(data);
  }
  return *this;
}

const CString& CString::operator=(CString&& stringSrc) {
  // Locked characters stay where they are.
  const bool locked = IsLocked(GetData()) && GetData() != Nil();
  if (locked || IsLocked(stringSrc.GetData())) return *this = std::as_const(stringSrc);
  std::swap(m_pchData, stringSrc.m_pchData);
  return *this;
}

const CString& CString::operator=(TCHAR ch) {
  AssignCopy(1, &ch);
  return *this;
}

const CString& CString::operator=(LPCSTR lpsz) {
  AssignCopy(Length(lpsz), lpsz);
  return *this;
}

const CString& CString::operator=(const unsigned char* psz) {
  return *this = reinterpret_cast<LPCSTR>(psz);
}

void CString::AssignCopy(int nLength, LPCTSTR lpch) {
  CStringData* data = GetData();
  if (nLength <= 0 || lpch == nullptr) {
    Empty();
  } else if (!IsShared(data) && nLength <= data->nAllocLength) {
    memmove(m_pchData, lpch, nLength);
    SetLength(data, nLength);
  } else {
    Builder text(nLength);
    text.Append(lpch, nLength);
    Attach(text.Finish());
  }
}

void CString::AllocBeforeWrite(int nLength) {
  CStringData* data = GetData();
  if (!IsShared(data) && nLength <= data->nAllocLength) return;
  CStringData* copy = Allocate(std::max(nLength, data->nDataLength));
  memcpy(copy->data(), m_pchData, data->nDataLength);
  SetLength(copy, data->nDataLength);
  Attach(copy);
}

// Room grows by half, so that appending a character at a time costs a constant time each.
void CString::ConcatInPlace(int nLength, LPCTSTR lpch) {
  if (nLength <= 0) return;
  CStringData* data = GetData();
  const int oldLength = data->nDataLength;
  const int newLength = Length(static_cast<size_t>(oldLength) + nLength);
  if (!IsShared(data) && newLength <= data->nAllocLength) {
    memmove(m_pchData + oldLength, lpch, nLength);
    SetLength(data, newLength);
    return;
  }
  const int room = oldLength == 0 ? newLength : std::max(newLength, oldLength + oldLength / 2);
  CStringData* grown = room > newLength ? TryAllocate(room) : nullptr;
  if (grown == nullptr) grown = Allocate(newLength);
  memcpy(grown->data(), m_pchData, oldLength);
  memcpy(grown->data() + oldLength, lpch, nLength);
  SetLength(grown, newLength);
  Attach(grown);
}

void CString::SetAt(int nIndex, TCHAR ch) {
  AllocBeforeWrite(GetLength());
  m_pchData[nIndex] = ch;
}

LPTSTR CString::GetBuffer(int nMinBufLength) {
  AllocBeforeWrite(std::max(nMinBufLength, GetLength()));
  return m_pchData;
}

void CString::ReleaseBuffer(int nNewLength) {
  AllocBeforeWrite(GetLength());
  if (nNewLength == -1) nNewLength = static_cast<int>(strlen(m_pchData));
  if (GetData() != Nil()) SetLength(GetData(), nNewLength);
}

LPTSTR CString::GetBufferSetLength(int nNewLength) {
  GetBuffer(nNewLength);
  if (GetData() != Nil()) SetLength(GetData(), nNewLength);
  return m_pchData;
}

void CString::FreeExtra() {
  CStringData* data = GetData();
  if (data == Nil() || IsLocked(data) || data->nAllocLength - data->nDataLength < kStep) return;
  Builder text(data->nDataLength);
  text.Append(m_pchData, data->nDataLength);
  Attach(text.Finish());
}

LPTSTR CString::LockBuffer() {
  const int length = GetLength();
  GetBuffer(std::max(length, 1));
  GetData()->nRefs = -1;
  return m_pchData;
}

void CString::UnlockBuffer() {
  if (GetData() != Nil() && IsLocked(GetData())) GetData()->nRefs = 1;
}
