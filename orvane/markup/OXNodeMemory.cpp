#include "markup/OXNodeMemory.h"

#include "markup/OXNodePool.h"

void* COXNodeMemory::operator new(size_t size) {
  void* const block = COXNodePool::AllocateAlone(size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void* COXNodeMemory::operator new(size_t size, const std::nothrow_t&) noexcept {
  return COXNodePool::AllocateAlone(size);
}

void* COXNodeMemory::operator new(size_t size, const char*, int) {
  return COXNodeMemory::operator new(size);
}

void COXNodeMemory::operator delete(void* block) noexcept { COXNodePool::Release(block); }

void COXNodeMemory::operator delete(void* block, const std::nothrow_t&) noexcept {
  COXNodePool::Release(block);
}

void COXNodeMemory::operator delete(void* block, const char*, int) noexcept {
  COXNodePool::Release(block);
}
