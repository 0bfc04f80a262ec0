// Raw deflate at the library's level, one stream for all entries of an archive.
#pragma once

#include <new>

#include "zip/ZipZlib.h"

class ZipDeflater {
 public:
  ZipDeflater() = default;
  ZipDeflater(const ZipDeflater&) = delete;
  ZipDeflater& operator=(const ZipDeflater&) = delete;
  ~ZipDeflater() { deflateEnd(&m_stream); }

  // Begins a new stream of compressed data. Throws bad_alloc.
  z_stream& Start() {
    if (m_stream.state != nullptr) {
      deflateReset(&m_stream);
    } else if (deflateInit2(&m_stream, kLevel, Z_DEFLATED, -MAX_WBITS, kMemoryLevel,
                            Z_DEFAULT_STRATEGY) != Z_OK) {
      throw std::bad_alloc();
    }
    return m_stream;
  }

 private:
  static constexpr int kLevel = 8;
  static constexpr int kMemoryLevel = 8;

  z_stream m_stream = {};
};
