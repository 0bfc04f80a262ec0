// How the characters of strings are stored: one block each, counted, with the characters behind the
// head. Only CString's sources include this.
#pragma once

#include <afx.h>

#include <string.h>

#include <atomic>

namespace strings {

// A counted block with room for nLength characters, its length set and its null written, owned by
// the caller alone. Throws CMemoryException, for lengths below 0 too. Length 0 gives the one empty
// block that all empty strings share and nobody frees.
CStringData* Allocate(int nLength);
// The same, but null where Allocate would throw.
CStringData* TryAllocate(int nLength);

// The block of empty strings.
CStringData* Nil();

// The caller's share in the block ends. A locked block has one owner, who frees it by this.
void Release(CStringData* data);

// A text's length for a block. Throws CMemoryException when no block could hold it.
int Length(LPCSTR text);
int Length(size_t length);

inline void SetLength(CStringData* data, int length) {
  data->nDataLength = length;
  data->data()[length] = '\0';
}

inline bool IsShared(CStringData* data) { return std::atomic_ref(data->nRefs).load() > 1; }

inline bool IsLocked(CStringData* data) { return std::atomic_ref(data->nRefs).load() < 0; }

// Puts together the text of a string that is not seen until Finish: the sources of the new text may
// lie in the old one.
class Builder {
 public:
  explicit Builder(int length) : m_data(Allocate(length)) {}
  ~Builder() {
    if (m_data != nullptr) Release(m_data);
  }
  Builder(const Builder&) = delete;
  Builder& operator=(const Builder&) = delete;

  Builder& Append(LPCSTR text, int length) {
    if (length > 0) memcpy(m_data->data() + m_used, text, length);
    m_used += length;
    return *this;
  }
  CStringData* Finish() {
    CStringData* data = m_data;
    m_data = nullptr;
    return data;
  }

 private:
  CStringData* m_data;
  int m_used = 0;
};

}  // namespace strings
