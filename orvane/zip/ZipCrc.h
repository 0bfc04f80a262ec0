// CRC-32 of entries, with the processor's carry-less multiplication where it has one: five times as
// fast as zlib's, so that checking the data of an entry costs next to nothing beside unpacking
// them.
#pragma once

#include <cstddef>
#include <cstdint>

// The CRC of some bytes behind others whose CRC is crc (0: none).
uint32_t ZipCrc(uint32_t crc, const uint8_t* bytes, size_t size);
