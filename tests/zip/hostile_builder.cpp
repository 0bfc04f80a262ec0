#include "hostile_builder.h"

#include <random>
#include <zlib.h>

namespace hostile {
namespace {

constexpr uint32_t kLocalSignature = 0x04034B50;
constexpr uint32_t kCentralSignature = 0x02014B50;
constexpr uint16_t kVersion = 20, kMadeBy = 0x0B17, kNoAttributes = 0;

std::string Common(const Header& header) {
  const size_t name = header.nameLength.value_or(static_cast<uint16_t>(header.name.size()));
  const size_t extra = header.extraLength.value_or(static_cast<uint16_t>(header.extra.size()));
  return U16(kVersion) + U16(header.flags) + U16(header.method) + U16(header.time) +
         U16(header.date) + U32(header.crc) + U32(header.compressed) + U32(header.uncompressed) +
         U16(name) + U16(extra);
}

Entry MakeEntry(const std::string& name, const std::string& plain) {
  Entry entry;
  entry.plain = plain;
  entry.data = plain;
  entry.local.signature = kLocalSignature;
  entry.central.signature = kCentralSignature;
  entry.Both(&Header::name, name);
  entry.Both(&Header::crc, Crc(plain));
  entry.Both(&Header::uncompressed, plain.size());
  entry.Both(&Header::compressed, plain.size());
  return entry;
}

}  // namespace

Entry Stored(const std::string& name, const std::string& plain) { return MakeEntry(name, plain); }

Entry Deflated(const std::string& name, const std::string& plain) {
  Entry entry = MakeEntry(name, plain);
  entry.data = Deflate(plain);
  entry.Both(&Header::method, kDeflated);
  entry.Both(&Header::compressed, entry.data.size());
  return entry;
}

Entry Piped(Entry entry) {
  entry.Both(&Header::flags, kHasDescriptor);
  entry.local.crc = entry.local.compressed = entry.local.uncompressed = 0;
  entry.descriptor = "PK\7\10" + U32(entry.central.crc) + U32(entry.central.compressed) +
                     U32(entry.central.uncompressed);
  return entry;
}

Entry Folder(const std::string& name) {
  Entry entry = MakeEntry(name, "");
  entry.external = 0x41C00010;
  return entry;
}

std::string LocalPart(const Entry& entry) {
  return U32(entry.local.signature) + Common(entry.local) + entry.local.name + entry.local.extra +
         entry.data + entry.descriptor;
}

std::string CentralPart(const Entry& entry, size_t offset) {
  return U32(entry.central.signature) + U16(kMadeBy) + Common(entry.central) +
         U16(entry.comment.size()) + U16(entry.disk) + U16(kNoAttributes) + U32(entry.external) +
         U32(entry.offset.value_or(static_cast<uint32_t>(offset))) + entry.central.name +
         entry.central.extra + entry.comment;
}

Layout Archive::LayOut() const {
  Layout layout;
  std::string& bytes = layout.bytes = stub;
  for (const Entry& entry : entries) {
    bytes += entry.before;
    layout.offsets.push_back(bytes.size());
    if (entry.hasLocal) bytes += LocalPart(entry);
  }
  bytes += beforeDirectory;
  layout.directory = bytes.size();
  uint16_t records = 0;
  for (size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].hasCentral) continue;
    bytes += CentralPart(entries[i], layout.offsets[i] - stub.size());
    ++records;
  }
  bytes += insideDirectory;
  layout.end = bytes.size();
  const auto size = static_cast<uint32_t>(layout.end - layout.directory);
  const auto offset = static_cast<uint32_t>(layout.directory - stub.size());
  const uint16_t announced = count.value_or(records);
  bytes += U32(endSignature) + U16(disk) + U16(disk) + U16(announced) + U16(announced) +
           U32(directorySize.value_or(size)) + U32(directoryOffset.value_or(offset)) +
           U16(commentLength.value_or(static_cast<uint16_t>(comment.size()))) + comment + behind;
  return layout;
}

Archive GoodArchive() {
  std::string text;
  for (int line = 0; line < 40; ++line) {
    text += "line " + std::to_string(line * line) + " of a text\r\n";
  }
  Archive archive;
  archive.entries = {
      Deflated("text.txt", text), Stored("noise.bin", Noise(300, 1)),
      Folder("folder/"),          Deflated("folder/inner.txt", text.substr(100, 500)),
      Stored("empty", ""),        Piped(Deflated("streamed.txt", text.substr(50)))};
  return archive;
}

std::string U16(uint32_t value) {
  return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

std::string U32(uint32_t value) { return U16(value) + U16(value >> 16); }

std::string ExtraBlock(uint16_t id, const std::string& bytes) {
  return U16(id) + U16(static_cast<uint32_t>(bytes.size())) + bytes;
}

std::string Deflate(const std::string& plain) {
  z_stream stream = {};
  if (deflateInit2(&stream, 8, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK) return {};
  std::string data(deflateBound(&stream, static_cast<uLong>(plain.size())), 0);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.data()));
  stream.avail_in = static_cast<uInt>(plain.size());
  stream.next_out = reinterpret_cast<Bytef*>(data.data());
  stream.avail_out = static_cast<uInt>(data.size());
  deflate(&stream, Z_FINISH);
  data.resize(stream.total_out);
  deflateEnd(&stream);
  return data;
}

uint32_t Crc(const std::string& bytes) {
  return crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size()));
}

std::string Noise(size_t size, uint32_t seed) {
  std::mt19937 random(seed);
  std::string noise(size, 0);
  for (char& c : noise) c = static_cast<char>(random());
  return noise;
}

}  // namespace hostile
