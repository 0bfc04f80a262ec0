// CList: a list linked both ways.
#pragma once

#include "afxelem_.h"
#include "afxplex_.h"

// Elements are of TYPE, arguments of ARG_TYPE. Positions stay valid until their element is removed;
// those given must be of this list. Nodes come from blocks of nBlockSize and go to a free list when
// removed. Members that need memory throw CMemoryException when there is none.
template <class TYPE, class ARG_TYPE = const TYPE&>
class CList : public CObject {
 public:
  explicit CList(int nBlockSize = 10) : m_nBlockSize(nBlockSize > 0 ? nBlockSize : 10) {}
  ~CList() override { RemoveAll(); }

  int GetCount() const { return m_nCount; }
  BOOL IsEmpty() const { return m_nCount == 0; }

  // Not for an empty list.
  TYPE& GetHead() { return m_pNodeHead->data; }
  TYPE GetHead() const { return m_pNodeHead->data; }
  TYPE& GetTail() { return m_pNodeTail->data; }
  TYPE GetTail() const { return m_pNodeTail->data; }
  TYPE RemoveHead() { return Take(m_pNodeHead); }
  TYPE RemoveTail() { return Take(m_pNodeTail); }

  // The new element's position.
  POSITION AddHead(ARG_TYPE newElement) { return Link(NewNode(newElement), m_pNodeHead); }
  POSITION AddTail(ARG_TYPE newElement) { return Link(NewNode(newElement), nullptr); }
  // All elements of another list, in its order.
  void AddHead(CList* pNewList);
  void AddTail(CList* pNewList);
  void RemoveAll();

  // Null when there is none.
  POSITION GetHeadPosition() const { return PositionOf(m_pNodeHead); }
  POSITION GetTailPosition() const { return PositionOf(m_pNodeTail); }
  // Give the position's element and move the position on, to null behind the last one.
  TYPE& GetNext(POSITION& rPosition);
  TYPE GetNext(POSITION& rPosition) const { return const_cast<CList*>(this)->GetNext(rPosition); }
  TYPE& GetPrev(POSITION& rPosition);
  TYPE GetPrev(POSITION& rPosition) const { return const_cast<CList*>(this)->GetPrev(rPosition); }

  TYPE& GetAt(POSITION position) { return NodeAt(position)->data; }
  TYPE GetAt(POSITION position) const { return NodeAt(position)->data; }
  void SetAt(POSITION position, ARG_TYPE newElement) { NodeAt(position)->data = newElement; }
  void RemoveAt(POSITION position) { Remove(NodeAt(position)); }

  // The new element's position. A null position means the head, the tail.
  POSITION InsertBefore(POSITION position, ARG_TYPE newElement);
  POSITION InsertAfter(POSITION position, ARG_TYPE newElement);

  // The first element equal to searchValue behind startAfter (null: from the head). Null: none.
  POSITION Find(ARG_TYPE searchValue, POSITION startAfter = nullptr) const;
  // The position of the element number nIndex, from 0. Null: none.
  POSITION FindIndex(int nIndex) const;

 private:
  struct CNode {
    CNode* pNext;
    CNode* pPrev;
    TYPE data;
  };

  static POSITION PositionOf(CNode* pNode) { return reinterpret_cast<POSITION>(pNode); }
  static CNode* NodeAt(POSITION position) { return reinterpret_cast<CNode*>(position); }
  CNode* NewNode(ARG_TYPE newElement);
  POSITION Link(CNode* pNode, CNode* pBefore);
  void Remove(CNode* pNode);
  TYPE Take(CNode* pNode);

  CNode* m_pNodeHead = nullptr;
  CNode* m_pNodeTail = nullptr;
  int m_nCount = 0;
  CNode* m_pNodeFree = nullptr;
  CPlex* m_pBlocks = nullptr;
  int m_nBlockSize;
};

template <class TYPE, class ARG_TYPE>
typename CList<TYPE, ARG_TYPE>::CNode* CList<TYPE, ARG_TYPE>::NewNode(ARG_TYPE newElement) {
  if (m_pNodeFree == nullptr) {
    CPlex* pBlock = CPlex::Create(m_pBlocks, m_nBlockSize, sizeof(CNode));
    CNode* pNodes = static_cast<CNode*>(pBlock->data());
    for (int i = m_nBlockSize - 1; i >= 0; --i) {
      pNodes[i].pNext = m_pNodeFree;
      m_pNodeFree = &pNodes[i];
    }
  }
  CNode* pNode = m_pNodeFree;
  ConstructElements<TYPE>(&pNode->data, 1);
  try {
    pNode->data = newElement;
  } catch (...) {
    DestructElements<TYPE>(&pNode->data, 1);
    throw;
  }
  m_pNodeFree = pNode->pNext;
  return pNode;
}

// Puts a node in front of another, or at the tail.
template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::Link(CNode* pNode, CNode* pBefore) {
  pNode->pNext = pBefore;
  pNode->pPrev = pBefore != nullptr ? pBefore->pPrev : m_pNodeTail;
  (pNode->pPrev != nullptr ? pNode->pPrev->pNext : m_pNodeHead) = pNode;
  (pBefore != nullptr ? pBefore->pPrev : m_pNodeTail) = pNode;
  ++m_nCount;
  return PositionOf(pNode);
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::Remove(CNode* pNode) {
  (pNode->pPrev != nullptr ? pNode->pPrev->pNext : m_pNodeHead) = pNode->pNext;
  (pNode->pNext != nullptr ? pNode->pNext->pPrev : m_pNodeTail) = pNode->pPrev;
  DestructElements<TYPE>(&pNode->data, 1);
  pNode->pNext = m_pNodeFree;
  m_pNodeFree = pNode;
  if (--m_nCount == 0) RemoveAll();
}

template <class TYPE, class ARG_TYPE>
TYPE CList<TYPE, ARG_TYPE>::Take(CNode* pNode) {
  TYPE data = pNode->data;
  Remove(pNode);
  return data;
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::RemoveAll() {
  for (CNode* pNode = m_pNodeHead; pNode != nullptr; pNode = pNode->pNext)
    DestructElements<TYPE>(&pNode->data, 1);
  m_pNodeHead = m_pNodeTail = m_pNodeFree = nullptr;
  m_nCount = 0;
  if (m_pBlocks != nullptr) m_pBlocks->FreeDataChain();
  m_pBlocks = nullptr;
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddHead(CList* pNewList) {
  int nCount = pNewList->m_nCount;  // the list may be this one
  CNode* const pBefore = m_pNodeHead;
  for (CNode* pNode = pNewList->m_pNodeHead; nCount > 0; --nCount, pNode = pNode->pNext)
    Link(NewNode(pNode->data), pBefore);
}

template <class TYPE, class ARG_TYPE>
void CList<TYPE, ARG_TYPE>::AddTail(CList* pNewList) {
  int nCount = pNewList->m_nCount;
  for (CNode* pNode = pNewList->m_pNodeHead; nCount > 0; --nCount, pNode = pNode->pNext)
    AddTail(pNode->data);
}

template <class TYPE, class ARG_TYPE>
TYPE& CList<TYPE, ARG_TYPE>::GetNext(POSITION& rPosition) {
  CNode* pNode = NodeAt(rPosition);
  rPosition = PositionOf(pNode->pNext);
  return pNode->data;
}

template <class TYPE, class ARG_TYPE>
TYPE& CList<TYPE, ARG_TYPE>::GetPrev(POSITION& rPosition) {
  CNode* pNode = NodeAt(rPosition);
  rPosition = PositionOf(pNode->pPrev);
  return pNode->data;
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertBefore(POSITION position, ARG_TYPE newElement) {
  return Link(NewNode(newElement), position == nullptr ? m_pNodeHead : NodeAt(position));
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::InsertAfter(POSITION position, ARG_TYPE newElement) {
  return Link(NewNode(newElement), position == nullptr ? nullptr : NodeAt(position)->pNext);
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::Find(ARG_TYPE searchValue, POSITION startAfter) const {
  CNode* pNode = startAfter == nullptr ? m_pNodeHead : NodeAt(startAfter)->pNext;
  while (pNode != nullptr && !CompareElements(&pNode->data, &searchValue)) pNode = pNode->pNext;
  return PositionOf(pNode);
}

template <class TYPE, class ARG_TYPE>
POSITION CList<TYPE, ARG_TYPE>::FindIndex(int nIndex) const {
  if (nIndex < 0 || nIndex >= m_nCount) return nullptr;
  CNode* pNode = m_pNodeHead;
  while (nIndex-- > 0) pNode = pNode->pNext;
  return PositionOf(pNode);
}
