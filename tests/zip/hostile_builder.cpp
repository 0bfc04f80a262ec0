#include "hostile_builder.h"

#include <random>
#include <zlib.h>

namespace hostile {
namespace {

constexpr uint32_t kLocalSignature = 0x04034B50;
constexpr uint32_t kCentralSignature = 0x02014B50;

// Puts an archive together.
class Assembler {
 public:
  template <class... Values>
  void Put(const Values&... values) {
    (PutOne(values), ...);
  }

  void PutLocal(const Entry& entry) {
    PutOne(entry.local.signature);
    PutCommon(entry.local);
    Put(entry.local.name, entry.local.extra, entry.data, entry.descriptor);
  }

  void PutCentral(const Entry& entry, uint32_t offset) {
    Put(entry.central.signature, entry.madeBy);
    PutCommon(entry.central);
    Put(entry.commentLength.value_or(static_cast<uint16_t>(entry.comment.size())), entry.disk,
        entry.internal, entry.external, entry.offset.value_or(offset), entry.central.name,
        entry.central.extra, entry.comment);
  }

  size_t size() const { return m_layout.bytes.size(); }
  Layout& layout() { return m_layout; }

 private:
  void PutOne(uint16_t value) { PutNumber(value, 2); }
  void PutOne(uint32_t value) { PutNumber(value, 4); }
  void PutOne(const std::string& bytes) { m_layout.bytes += bytes; }

  void PutCommon(const Header& header) {
    Put(header.version, header.flags, header.method, header.time, header.date, header.crc,
        header.compressed, header.uncompressed,
        header.nameLength.value_or(static_cast<uint16_t>(header.name.size())),
        header.extraLength.value_or(static_cast<uint16_t>(header.extra.size())));
  }

  void PutNumber(uint32_t value, unsigned width) {
    for (unsigned i = 0; i < width; ++i) m_layout.bytes += static_cast<char>(value >> (8 * i));
  }

  Layout m_layout;
};

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

Entry Piped(Entry entry, bool withSignature) {
  entry.Both(&Header::flags, kHasDescriptor);
  entry.local.crc = entry.local.compressed = entry.local.uncompressed = 0;
  if (withSignature) entry.descriptor = "PK\7\10";
  entry.descriptor +=
      U32(entry.central.crc) + U32(entry.central.compressed) + U32(entry.central.uncompressed);
  return entry;
}

Entry Folder(const std::string& name) {
  Entry entry = MakeEntry(name, "");
  entry.external = 0x41C00010;
  return entry;
}

std::string LocalPart(const Entry& entry) {
  Assembler assembler;
  assembler.PutLocal(entry);
  return assembler.layout().bytes;
}

std::string CentralPart(const Entry& entry, size_t offset) {
  Assembler assembler;
  assembler.PutCentral(entry, static_cast<uint32_t>(offset));
  return assembler.layout().bytes;
}

Layout Archive::LayOut() const {
  Assembler assembler;
  std::vector<size_t> offsets;
  assembler.Put(stub);
  for (const Entry& entry : entries) {
    assembler.Put(entry.before);
    offsets.push_back(assembler.size());
    if (entry.hasLocal) assembler.PutLocal(entry);
  }
  assembler.Put(beforeDirectory);
  const size_t directory = assembler.size();
  uint16_t records = 0;
  for (size_t i = 0; i < entries.size(); ++i) {
    if (!entries[i].hasCentral) continue;
    assembler.PutCentral(entries[i], static_cast<uint32_t>(offsets[i] - stub.size()));
    ++records;
  }
  assembler.Put(insideDirectory);
  const size_t directoryEnd = assembler.size();
  assembler.Put(beforeEnd);
  const size_t end = assembler.size();
  assembler.Put(endSignature, disk, directoryDisk, countHere.value_or(records),
                count.value_or(records),
                directorySize.value_or(static_cast<uint32_t>(directoryEnd - directory)),
                directoryOffset.value_or(static_cast<uint32_t>(directory - stub.size())),
                commentLength.value_or(static_cast<uint16_t>(comment.size())), comment, behind);

  Layout layout = std::move(assembler.layout());
  layout.offsets = offsets;
  layout.directory = directory;
  layout.end = end;
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
