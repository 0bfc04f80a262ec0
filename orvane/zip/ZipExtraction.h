// Takes the data of one entry out of an archive, piece by piece, and checks them: they are never
// more than announced, and at their end their size and CRC must be as announced too.
#pragma once

#include <cstdint>

#include "zip/ZipDirectory.h"
#include "zip/ZipInput.h"
#include "zip/ZipZlib.h"

class ZipExtraction {
 public:
  explicit ZipExtraction(ZipInput& input) : m_input(input) {}
  ZipExtraction(const ZipExtraction&) = delete;
  ZipExtraction& operator=(const ZipExtraction&) = delete;
  ~ZipExtraction() { inflateEnd(&m_stream); }

  // Begins with an entry whose data start at a position of the archive. kZipCorrupt when it needs
  // what is not done here. Throws bad_alloc.
  ZipResult Start(const ZipCentralRecord& record, uint64_t dataPosition);

  enum class State {
    kReading,
    kDone,      // all bytes were read and are as announced
    kMismatch,  // the entry's size or CRC is not as announced
    kBroken,    // the data can't be read or aren't what deflate makes
  };

  // The next bytes, at most capacity of them; none at the end, where the state tells how it went.
  // What was read before a fault shows is given out first. Throws bad_alloc.
  State Read(uint8_t* to, size_t capacity, size_t& got);

 private:
  size_t Copy(uint8_t* to, size_t capacity);
  size_t Inflate(uint8_t* to, size_t capacity);
  void Finish();

  ZipInput& m_input;
  z_stream m_stream = {};
  State m_state = State::kDone;
  bool m_isDeflated = false;
  bool m_isStreamEnded = false;   // of deflated data
  uint64_t m_position = 0;        // of the next compressed byte in the archive
  uint32_t m_compressedLeft = 0;  // from there on
  uint32_t m_left = 0;            // bytes that are announced and not yet given out
  uint32_t m_crc = 0;             // of the bytes so far
  uint32_t m_announcedCrc = 0;
};
