// Memory for many elements of one size, allocated in blocks.
#pragma once

#include "afxexc_.h"

// A block's head; its elements follow.
struct alignas(8) CPlex {
  CPlex* pNext;

  void* data() { return this + 1; }

  // A new block for nMax elements of cbElement bytes, put at the head of the chain. Throws
  // CMemoryException when there is no memory.
  static CPlex* PASCAL Create(CPlex*& pHead, UINT nMax, UINT cbElement) {
    constexpr UINT kMaxBytes = 0x7FFFFFFF - sizeof(CPlex);
    if (nMax == 0 || cbElement > kMaxBytes / nMax) AfxThrowMemoryException();
    auto* block = static_cast<CPlex*>(CObject::operator new(sizeof(CPlex) + nMax * cbElement));
    block->pNext = pHead;
    pHead = block;
    return block;
  }

  // Frees this block and all behind it.
  void FreeDataChain() {
    for (CPlex* block = this; block != nullptr;) {
      CPlex* next = block->pNext;
      CObject::operator delete(block);
      block = next;
    }
  }
};
