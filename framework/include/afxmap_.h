// CMap: a hash map.
#pragma once

#include "afxelem_.h"
#include "afxplex_.h"

// Entries hold a KEY and a VALUE, one entry a key; arguments are of ARG_KEY, for which HashKey and
// CompareElements must work, and ARG_VALUE. Entries come from blocks of nBlockSize and go to a free
// list when removed. The table has 17 buckets unless InitHashTable says otherwise, and keeps them.
//
// Iteration goes through the buckets in their order, in each from the newest entry to the oldest.
// The entry just returned may be removed meanwhile.
//
// Members that need memory throw CMemoryException when there is none.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap : public CObject {
 public:
  explicit CMap(int nBlockSize = 10) : m_nBlockSize(nBlockSize > 0 ? nBlockSize : 10) {}
  ~CMap() override { RemoveAll(); }

  int GetCount() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  // FALSE, with rValue as it was, when there is no such key.
  BOOL Lookup(ARG_KEY key, VALUE& rValue) const;
  // The value of a key, which is added when missing. Valid until the entry is removed.
  VALUE& operator[](ARG_KEY key);
  void SetAt(ARG_KEY key, ARG_VALUE newValue) { (*this)[key] = newValue; }

  // FALSE when there is no such key.
  BOOL RemoveKey(ARG_KEY key);
  // Frees all memory; the number of buckets stays.
  void RemoveAll();

  // Null for an empty map.
  POSITION GetStartPosition() const;
  // Gives the entry of the position, and the next position, null behind the last one.
  void GetNextAssoc(POSITION& rNextPosition, KEY& rKey, VALUE& rValue) const;

  UINT GetHashTableSize() const { return m_nHashTableSize; }
  // Sets the number of buckets; a prime number serves best. Only for an empty map. bAllocNow: FALSE
  // allocates the table with the first entry.
  void InitHashTable(UINT nHashSize, BOOL bAllocNow = TRUE);

 private:
  struct CAssoc {
    CAssoc* pNext;  // in the bucket, or the free list
    CAssoc* pPrev;
    CAssoc* pNextInIndex;
    UINT nHashValue;
    KEY key;
    VALUE value;
  };

  static CAssoc** NewTable(UINT nSize);
  void SeeToIndex();
  CAssoc*& IndexAt(UINT nHashValue) const { return m_pIndex[nHashValue * kMix >> m_nIndexShift]; }
  CAssoc* NewAssoc(ARG_KEY key);
  void FreeAssoc(CAssoc* pAssoc);
  CAssoc* GetAssocAt(ARG_KEY key, UINT nHashValue) const;
  CAssoc* FirstFrom(UINT nBucket) const;

  CAssoc** m_pHashTable = nullptr;  // null as long as the map is empty, unless asked for
  UINT m_nHashTableSize = 17;
  // The buckets give the order of iteration, and keep their number even when they become long. A
  // map with many entries a bucket finds them by this second table, which grows with the map.
  CAssoc** m_pIndex = nullptr;
  UINT m_nIndexShift = 32;                   // the table has two to the power of 32 less this
  static constexpr UINT kMix = 2654435769u;  // spreads hash values that are near each other
  int m_nCount = 0;
  CAssoc* m_pFreeList = nullptr;
  CPlex* m_pBlocks = nullptr;
  int m_nBlockSize;
};

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::InitHashTable(UINT nHashSize, BOOL bAllocNow) {
  if (m_nCount != 0 || nHashSize == 0) return;
  CObject::operator delete(m_pHashTable);
  m_pHashTable = nullptr;
  m_nHashTableSize = nHashSize;
  if (bAllocNow) m_pHashTable = NewTable(nHashSize);
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
typename CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::CAssoc**
CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::NewTable(UINT nSize) {
  if (nSize > INT_MAX / sizeof(CAssoc*)) AfxThrowMemoryException();
  const size_t nBytes = nSize * sizeof(CAssoc*);
  CAssoc** pTable = static_cast<CAssoc**>(CObject::operator new(nBytes));
  memset(pTable, 0, nBytes);
  return pTable;
}

// Makes or doubles the index when one more entry calls for it.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::SeeToIndex() {
  constexpr UINT kLongBucket = 4, kFirstBits = 7;
  const UINT nCount = static_cast<UINT>(m_nCount);
  if (m_pIndex == nullptr ? nCount / kLongBucket < m_nHashTableSize
                          : nCount < 1u << (32 - m_nIndexShift))
    return;
  UINT nBits = kFirstBits;
  while (1u << nBits <= nCount) ++nBits;
  CAssoc** pIndex = NewTable(1u << nBits);
  CObject::operator delete(m_pIndex);
  m_pIndex = pIndex;
  m_nIndexShift = 32 - nBits;
  for (UINT nBucket = 0; nBucket < m_nHashTableSize; ++nBucket)
    for (CAssoc* pAssoc = m_pHashTable[nBucket]; pAssoc != nullptr; pAssoc = pAssoc->pNext) {
      CAssoc*& pHead = IndexAt(pAssoc->nHashValue);
      pAssoc->pNextInIndex = pHead;
      pHead = pAssoc;
    }
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveAll() {
  for (UINT nBucket = 0; m_pHashTable != nullptr && nBucket < m_nHashTableSize; ++nBucket)
    for (CAssoc* pAssoc = m_pHashTable[nBucket]; pAssoc != nullptr; pAssoc = pAssoc->pNext) {
      DestructElements<VALUE>(&pAssoc->value, 1);
      DestructElements<KEY>(&pAssoc->key, 1);
    }
  CObject::operator delete(m_pHashTable);
  CObject::operator delete(m_pIndex);
  m_pHashTable = m_pIndex = nullptr;
  m_nCount = 0;
  m_pFreeList = nullptr;
  if (m_pBlocks != nullptr) m_pBlocks->FreeDataChain();
  m_pBlocks = nullptr;
}

// An entry outside of the table.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
typename CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::CAssoc*
CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::NewAssoc(ARG_KEY key) {
  if (m_pFreeList == nullptr) {
    CPlex* pBlock = CPlex::Create(m_pBlocks, m_nBlockSize, sizeof(CAssoc));
    CAssoc* pAssocs = static_cast<CAssoc*>(pBlock->data());
    for (int i = m_nBlockSize - 1; i >= 0; --i) {
      pAssocs[i].pNext = m_pFreeList;
      m_pFreeList = &pAssocs[i];
    }
  }
  CAssoc* pAssoc = m_pFreeList;
  ConstructElements<KEY>(&pAssoc->key, 1);
  try {
    pAssoc->key = key;
    ConstructElements<VALUE>(&pAssoc->value, 1);
  } catch (...) {
    DestructElements<KEY>(&pAssoc->key, 1);
    throw;
  }
  m_pFreeList = pAssoc->pNext;
  return pAssoc;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::FreeAssoc(CAssoc* pAssoc) {
  DestructElements<VALUE>(&pAssoc->value, 1);
  DestructElements<KEY>(&pAssoc->key, 1);
  pAssoc->pNext = m_pFreeList;
  m_pFreeList = pAssoc;
  if (--m_nCount == 0) RemoveAll();
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
typename CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::CAssoc*
CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::GetAssocAt(ARG_KEY key, UINT nHashValue) const {
  if (m_pHashTable == nullptr) return nullptr;
  const bool bIndex = m_pIndex != nullptr;
  CAssoc* pAssoc = bIndex ? IndexAt(nHashValue) : m_pHashTable[nHashValue % m_nHashTableSize];
  while (pAssoc != nullptr &&
         !(pAssoc->nHashValue == nHashValue && CompareElements(&pAssoc->key, &key)))
    pAssoc = bIndex ? pAssoc->pNextInIndex : pAssoc->pNext;
  return pAssoc;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::Lookup(ARG_KEY key, VALUE& rValue) const {
  const CAssoc* pAssoc = GetAssocAt(key, HashKey<ARG_KEY>(key));
  if (pAssoc == nullptr) return FALSE;
  rValue = pAssoc->value;
  return TRUE;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
VALUE& CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::operator[](ARG_KEY key) {
  const UINT nHashValue = HashKey<ARG_KEY>(key);
  CAssoc* pAssoc = GetAssocAt(key, nHashValue);
  if (pAssoc == nullptr) {
    if (m_pHashTable == nullptr) m_pHashTable = NewTable(m_nHashTableSize);
    SeeToIndex();
    pAssoc = NewAssoc(key);
    CAssoc*& pHead = m_pHashTable[nHashValue % m_nHashTableSize];
    pAssoc->nHashValue = nHashValue;
    pAssoc->pNext = pHead;
    pAssoc->pPrev = nullptr;
    if (pHead != nullptr) pHead->pPrev = pAssoc;
    pHead = pAssoc;
    if (m_pIndex != nullptr) {
      pAssoc->pNextInIndex = IndexAt(nHashValue);
      IndexAt(nHashValue) = pAssoc;
    }
    ++m_nCount;
  }
  return pAssoc->value;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
BOOL CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::RemoveKey(ARG_KEY key) {
  const UINT nHashValue = HashKey<ARG_KEY>(key);
  CAssoc* pAssoc = GetAssocAt(key, nHashValue);
  if (pAssoc == nullptr) return FALSE;
  CAssoc*& pHead = m_pHashTable[nHashValue % m_nHashTableSize];
  (pAssoc->pPrev != nullptr ? pAssoc->pPrev->pNext : pHead) = pAssoc->pNext;
  if (pAssoc->pNext != nullptr) pAssoc->pNext->pPrev = pAssoc->pPrev;
  if (m_pIndex != nullptr) {
    CAssoc** ppLink = &IndexAt(nHashValue);
    while (*ppLink != pAssoc) ppLink = &(*ppLink)->pNextInIndex;
    *ppLink = pAssoc->pNextInIndex;
  }
  FreeAssoc(pAssoc);
  return TRUE;
}

// The first entry of the first bucket, from nBucket on, that has one.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
typename CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::CAssoc*
CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::FirstFrom(UINT nBucket) const {
  for (; nBucket < m_nHashTableSize; ++nBucket)
    if (m_pHashTable[nBucket] != nullptr) return m_pHashTable[nBucket];
  return nullptr;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
POSITION CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::GetStartPosition() const {
  return m_nCount == 0 ? nullptr : reinterpret_cast<POSITION>(FirstFrom(0));
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::GetNextAssoc(POSITION& rNextPosition, KEY& rKey,
                                                        VALUE& rValue) const {
  const CAssoc* pAssoc = reinterpret_cast<const CAssoc*>(rNextPosition);
  const CAssoc* pNext = pAssoc->pNext;
  if (pNext == nullptr) pNext = FirstFrom(pAssoc->nHashValue % m_nHashTableSize + 1);
  rNextPosition = reinterpret_cast<POSITION>(const_cast<CAssoc*>(pNext));
  rKey = pAssoc->key;
  rValue = pAssoc->value;
}
