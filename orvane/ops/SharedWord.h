// A word that the two threads of an operation share.
#pragma once

#include <atomic>

// Written by one thread and read by another without a lock; used like the plain variable that it
// stands for, and copied like one. Who sees a value also sees what its writer did before. An
// increment is a read and a write: only one thread counts.
template <class Word>
class SharedWord {
  static_assert(sizeof(Word) <= 4 && std::atomic<Word>::is_always_lock_free);

 public:
  SharedWord(Word value = Word()) : m_value(value) {}
  SharedWord(const SharedWord& other) : m_value(other) {}
  SharedWord& operator=(const SharedWord& other) { return *this = static_cast<Word>(other); }
  SharedWord& operator=(Word value) {
    m_value.store(value, std::memory_order_release);
    return *this;
  }
  operator Word() const { return m_value.load(std::memory_order_acquire); }

  SharedWord& operator+=(Word count) { return *this = *this + count; }
  SharedWord& operator++() { return *this += 1; }

 private:
  std::atomic<Word> m_value;
};
