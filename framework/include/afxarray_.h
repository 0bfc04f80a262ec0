// CArray: a growable array.
#pragma once

#include "afxelem_.h"

// Elements are of TYPE, arguments of ARG_TYPE, which must be assignable to it. Positions run from
// 0; they are not checked. Members that need memory throw CMemoryException when there is none.
// Adding one element at a time costs a constant time each, whatever growth was asked for.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray : public CObject {
 public:
  CArray() = default;
  ~CArray() override { RemoveAll(); }

  int GetSize() const { return m_nSize; }
  int GetUpperBound() const { return m_nSize - 1; }
  // New elements are made as ConstructElements makes them, surplus ones are ended. Size 0 frees the
  // memory. nGrowBy: the least number of elements by which memory grows when it must; -1: as
  // before.
  void SetSize(int nNewSize, int nGrowBy = -1);
  // Frees memory that no element uses.
  void FreeExtra();
  void RemoveAll() { SetSize(0); }

  TYPE GetAt(int nIndex) const { return m_pData[nIndex]; }
  void SetAt(int nIndex, ARG_TYPE newElement) { m_pData[nIndex] = newElement; }
  TYPE& ElementAt(int nIndex) { return m_pData[nIndex]; }
  TYPE operator[](int nIndex) const { return m_pData[nIndex]; }
  TYPE& operator[](int nIndex) { return m_pData[nIndex]; }

  // All elements, in their order; valid until the array grows. Null for an empty array.
  const TYPE* GetData() const { return m_pData; }
  TYPE* GetData() { return m_pData; }

  // As SetAt, but the array grows to hold the position.
  void SetAtGrow(int nIndex, ARG_TYPE newElement);
  // At the end. Both return the position of the first new element.
  int Add(ARG_TYPE newElement);
  int Append(const CArray& src);
  void Copy(const CArray& src);

  // The elements from nIndex on move up; past the end the array grows to nIndex first.
  void InsertAt(int nIndex, ARG_TYPE newElement, int nCount = 1);
  void InsertAt(int nStartIndex, CArray* pNewArray);
  // The elements behind those removed move down.
  void RemoveAt(int nIndex, int nCount = 1);

 private:
  // Raw memory for elements. A block that grows is filled before it takes the place of the old one,
  // because what is added may lie in the old one.
  struct Block {
    explicit Block(int nMax)
        : pData(static_cast<TYPE*>(CObject::operator new(nMax * sizeof(TYPE)))), nMaxSize(nMax) {}
    ~Block() { CObject::operator delete(pData); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    TYPE* pData;
    int nMaxSize;
  };

  static void Relocate(TYPE* pDest, TYPE* pSrc, int nCount);
  int GrownSize(int nNewSize) const;
  void MoveTo(Block& block);
  void MakeLast(TYPE* pData, int nNewSize, ARG_TYPE newElement);
  TYPE* MakeGap(int nIndex, int nCount);

  TYPE* m_pData = nullptr;
  int m_nSize = 0;
  int m_nMaxSize = 0;
  int m_nGrowBy = 0;
};

// Moves elements to raw memory, which may overlap their own on either side.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Relocate(TYPE* pDest, TYPE* pSrc, int nCount) {
  if constexpr (std::is_trivially_copyable_v<TYPE> || !std::is_move_constructible_v<TYPE>) {
    if (nCount > 0) memmove(static_cast<void*>(pDest), pSrc, nCount * sizeof(TYPE));
  } else {
    const bool upwards = pDest > pSrc && pDest < pSrc + nCount;
    for (int i = 0; i < nCount; ++i) {
      const int k = upwards ? nCount - 1 - i : i;
      ::new (static_cast<void*>(pDest + k)) TYPE(std::move(pSrc[k]));
      pSrc[k].~TYPE();
    }
  }
}

// The elements to make room for when nNewSize of them no longer fit.
template <class TYPE, class ARG_TYPE>
int CArray<TYPE, ARG_TYPE>::GrownSize(int nNewSize) const {
  constexpr int nLimit = static_cast<int>(INT_MAX / sizeof(TYPE));
  if (nNewSize < 0 || nNewSize > nLimit) AfxThrowMemoryException();
  int nGrowth = m_nGrowBy;
  if (m_nMaxSize > 0) {
    if (nGrowth < 4) nGrowth = 4;
    if (nGrowth < m_nSize / 2) nGrowth = m_nSize / 2;
  }
  const int nGrown = nGrowth > nLimit - m_nMaxSize ? nLimit : m_nMaxSize + nGrowth;
  return nGrown > nNewSize ? nGrown : nNewSize;
}

// Moves all elements into the block, and makes it the array's.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::MoveTo(Block& block) {
  Relocate(block.pData, m_pData, m_nSize);
  std::swap(m_pData, block.pData);
  std::swap(m_nMaxSize, block.nMaxSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetSize(int nNewSize, int nGrowBy) {
  if (nGrowBy >= 0) m_nGrowBy = nGrowBy;
  if (nNewSize == 0) {
    DestructElements<TYPE>(m_pData, m_nSize);
    CObject::operator delete(m_pData);
    m_pData = nullptr;
    m_nSize = m_nMaxSize = 0;
  } else if (nNewSize >= 0 && nNewSize <= m_nSize) {
    DestructElements<TYPE>(m_pData + nNewSize, m_nSize - nNewSize);
    m_nSize = nNewSize;
  } else {
    if (nNewSize < 0 || nNewSize > m_nMaxSize) {
      Block block(GrownSize(nNewSize));
      MoveTo(block);
    }
    ConstructElements<TYPE>(m_pData + m_nSize, nNewSize - m_nSize);
    m_nSize = nNewSize;
  }
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::FreeExtra() {
  if (m_nSize == m_nMaxSize) return;
  if (m_nSize == 0) return RemoveAll();
  Block block(m_nSize);
  MoveTo(block);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::SetAtGrow(int nIndex, ARG_TYPE newElement) {
  if (nIndex < m_nSize) {
    m_pData[nIndex] = newElement;
    return;
  }
  if (nIndex == INT_MAX) AfxThrowMemoryException();
  const int nNewSize = nIndex + 1;
  if (nNewSize <= m_nMaxSize) {
    MakeLast(m_pData, nNewSize, newElement);
  } else {
    Block block(GrownSize(nNewSize));
    MakeLast(block.pData, nNewSize, newElement);
    MoveTo(block);
  }
  m_nSize = nNewSize;
}

// Makes the elements behind the present ones in a block, the last of which is given.
template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::MakeLast(TYPE* pData, int nNewSize, ARG_TYPE newElement) {
  ConstructElements<TYPE>(pData + m_nSize, nNewSize - m_nSize);
  try {
    pData[nNewSize - 1] = newElement;
  } catch (...) {
    DestructElements<TYPE>(pData + m_nSize, nNewSize - m_nSize);
    throw;
  }
}

template <class TYPE, class ARG_TYPE>
int CArray<TYPE, ARG_TYPE>::Add(ARG_TYPE newElement) {
  const int nIndex = m_nSize;
  SetAtGrow(nIndex, newElement);
  return nIndex;
}

template <class TYPE, class ARG_TYPE>
int CArray<TYPE, ARG_TYPE>::Append(const CArray& src) {
  const int nOldSize = m_nSize, nAdded = src.m_nSize;
  if (nAdded > INT_MAX - nOldSize) AfxThrowMemoryException();
  SetSize(nOldSize + nAdded);
  CopyElements<TYPE>(m_pData + nOldSize, src.m_pData, nAdded);
  return nOldSize;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::Copy(const CArray& src) {
  if (this == &src) return;
  SetSize(src.m_nSize);
  CopyElements<TYPE>(m_pData, src.m_pData, src.m_nSize);
}

// New elements in front of the one at nIndex.
template <class TYPE, class ARG_TYPE>
TYPE* CArray<TYPE, ARG_TYPE>::MakeGap(int nIndex, int nCount) {
  const int nOldSize = m_nSize > nIndex ? m_nSize : nIndex;
  if (nCount > INT_MAX - nOldSize) AfxThrowMemoryException();
  if (nIndex >= m_nSize) {
    SetSize(nIndex + nCount);
    return m_pData + nIndex;
  }
  if (m_nSize + nCount > m_nMaxSize) {
    Block block(GrownSize(m_nSize + nCount));
    MoveTo(block);
  }
  Relocate(m_pData + nIndex + nCount, m_pData + nIndex, m_nSize - nIndex);
  ConstructElements<TYPE>(m_pData + nIndex, nCount);
  m_nSize += nCount;
  return m_pData + nIndex;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(int nIndex, ARG_TYPE newElement, int nCount) {
  if (nCount < 1) return;
  TYPE element = TYPE();
  element = newElement;
  TYPE* pGap = MakeGap(nIndex, nCount);
  while (nCount-- > 0) *pGap++ = element;
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::InsertAt(int nStartIndex, CArray* pNewArray) {
  if (pNewArray == nullptr || pNewArray->m_nSize == 0) return;
  if (pNewArray == this) {
    CArray copy;
    copy.Copy(*this);
    return InsertAt(nStartIndex, &copy);
  }
  TYPE* pGap = MakeGap(nStartIndex, pNewArray->m_nSize);
  CopyElements<TYPE>(pGap, pNewArray->m_pData, pNewArray->m_nSize);
}

template <class TYPE, class ARG_TYPE>
void CArray<TYPE, ARG_TYPE>::RemoveAt(int nIndex, int nCount) {
  if (nCount < 1) return;
  const int nBehind = nIndex + nCount;
  DestructElements<TYPE>(m_pData + nIndex, nCount);
  Relocate(m_pData + nIndex, m_pData + nBehind, m_nSize - nBehind);
  m_nSize -= nCount;
}
