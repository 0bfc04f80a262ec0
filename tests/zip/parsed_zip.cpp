#include "parsed_zip.h"

#include <gtest/gtest.h>
#include <zlib.h>

namespace {

class Cursor {
 public:
  Cursor(const std::string& bytes, size_t at) : m_bytes(bytes), m_at(at) {}

  uint32_t Number(size_t width) {
    const std::string field = Text(width);
    uint32_t value = 0;
    for (size_t i = field.size(); i-- > 0;) value = value << 8 | static_cast<uint8_t>(field[i]);
    return value;
  }
  std::string Text(size_t size) {
    EXPECT_LE(m_at + size, m_bytes.size());
    const std::string text = m_bytes.substr(std::min(m_at, m_bytes.size()), size);
    m_at += size;
    return text;
  }
  size_t at() const { return m_at; }

 private:
  const std::string& m_bytes;
  size_t m_at;
};

ParsedHeader ParseHeader(Cursor& cursor, bool isCentral) {
  ParsedHeader header;
  EXPECT_EQ(cursor.Text(4), isCentral ? "PK\1\2" : "PK\3\4");
  if (isCentral) header.madeBy = cursor.Number(2);
  header.needed = cursor.Number(2);
  header.flags = cursor.Number(2);
  header.method = cursor.Number(2);
  header.time = cursor.Number(2);
  header.date = cursor.Number(2);
  header.crc = cursor.Number(4);
  header.compressed = cursor.Number(4);
  header.size = cursor.Number(4);
  const uint32_t nameLength = cursor.Number(2);
  const uint32_t extraLength = cursor.Number(2);
  if (isCentral) {
    header.commentLength = cursor.Number(2);
    header.disk = cursor.Number(2);
    header.internal = cursor.Number(2);
    header.external = cursor.Number(4);
    header.offset = cursor.Number(4);
  }
  header.name = cursor.Text(nameLength);
  header.extra = cursor.Text(extraLength);
  return header;
}

std::string Unpack(const std::string& packed, const ParsedHeader& header) {
  if (header.method == 0) return packed;
  std::string bytes(header.size + 1, 0);
  z_stream stream = {};
  inflateInit2(&stream, -MAX_WBITS);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
  stream.avail_out = static_cast<uInt>(bytes.size());
  EXPECT_EQ(inflate(&stream, Z_FINISH), Z_STREAM_END) << header.name;
  bytes.resize(stream.total_out);
  inflateEnd(&stream);
  return bytes;
}

}  // namespace

std::vector<std::string> ParsedZip::Names() const {
  std::vector<std::string> names;
  for (const ParsedEntry& entry : entries) names.push_back(entry.central.name);
  return names;
}

ParsedZip ParseZip(const std::string& archive, bool allowGaps) {
  ParsedZip zip;
  if (archive.size() < 22) {
    ADD_FAILURE() << "an archive of " << archive.size() << " bytes";
    return zip;
  }
  Cursor end(archive, archive.size() - 22);
  EXPECT_EQ(end.Text(4), "PK\5\6");
  zip.disk = end.Number(2);
  zip.directoryDisk = end.Number(2);
  zip.countHere = end.Number(2);
  zip.count = end.Number(2);
  zip.directorySize = end.Number(4);
  zip.directoryOffset = end.Number(4);
  zip.commentLength = end.Number(2);

  Cursor directory(archive, zip.directoryOffset);
  for (unsigned i = 0; i < zip.count; ++i) {
    zip.entries.emplace_back().central = ParseHeader(directory, true);
    if (testing::Test::HasFailure()) return zip;
  }
  EXPECT_EQ(directory.at(), zip.directoryOffset + zip.directorySize);
  EXPECT_EQ(directory.at(), archive.size() - 22);

  size_t at = 0;
  for (size_t i = 0; i < zip.entries.size(); ++i) {
    ParsedEntry& entry = zip.entries[i];
    EXPECT_TRUE(allowGaps || entry.central.offset == at) << entry.central.offset << ", not " << at;
    Cursor local(archive, entry.central.offset);
    entry.local = ParseHeader(local, false);
    entry.packed = local.Text(entry.central.compressed);
    entry.bytes = Unpack(entry.packed, entry.central);
    EXPECT_EQ(entry.bytes.size(), entry.central.size) << entry.central.name;
    EXPECT_EQ(CrcOf(entry.bytes), entry.central.crc) << entry.central.name;
    entry.behind = local.Text(entry.local.flags & 8 ? 16 : 0);
    at = local.at();
  }
  EXPECT_TRUE(allowGaps || at == zip.directoryOffset);
  return zip;
}

uint32_t CrcOf(const std::string& bytes) {
  return crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size()));
}
