// Archives over archives, and entries over files.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <optional>

#include "EveryFault.h"
#include "zip/UnZipOp.h"
#include "zip/ZipFiles.h"
#include "zip/ZipOp.h"

namespace {

using StringArray = CArray<CString, const char*>;

// Does not pack well, and is more than one piece.
std::string Noise(size_t size) {
  std::string bytes(size, 0);
  unsigned state = 1;
  for (char& byte : bytes) byte = static_cast<char>((state = state * 1664525 + 1013904223) >> 24);
  return bytes;
}

const std::string kLarge = Noise(150'000);
const std::string kText(3000, 't');

void WriteTree(const TempFolder& folder) {
  folder.Write("tree\\large", kLarge);
  folder.Write("tree\\sub\\text", kText);
}

void WriteArchive(const TempFolder& folder, const char* name) {
  const HZIP archive = CreateZipZ(const_cast<char*>((folder / name).c_str()), 0, kZipFileName);
  const struct {
    const char* name;
    std::string bytes;
  } entries[] = {{"large", kLarge}, {"sub/text", kText}, {"read-only", "new"}};
  for (const auto& entry : entries) {
    EXPECT_EQ(ZipAdd(archive, entry.name, entry.bytes.data(),
                     static_cast<unsigned>(entry.bytes.size()), kZipMemory),
              kZipOk);
  }
  EXPECT_EQ(CloseZipZ(archive), kZipOk);
}

// Files that could not be read are left out, by design of the functions that zip whole folders.
bool IsArchiveOfSome(const std::string& entries) {
  const std::string large = "[large]" + kLarge, text = "[sub/text]" + kText;
  return entries.empty() || entries == large || entries == text || entries == text + large;
}

void WriteOldFiles(const TempFolder& folder) {
  folder.Write("out\\large", "old and short");
  folder.Write("out\\sub\\text", std::string(5000, 'o'));
  SetFileAttributesA(folder.Write("out\\read-only", "old").c_str(), FILE_ATTRIBUTE_READONLY);
}

}  // namespace

TEST(Faults, FolderZippedOverAnArchive) {
  WithEveryFault({
      .prepare =
          [](const TempFolder& folder) {
            WriteTree(folder);
            WriteArchive(folder, "a.zip");
          },
      .act =
          [](const TempFolder& folder) {
            Path archive(folder, "a.zip");
            Path tree(folder, "tree");
            return ZipDir(archive, tree, "*.*") != 0;
          },
      .isRight = IsArchiveOfSome,
  });
}

TEST(Faults, ArchiveOverAnArchive) {
  const std::string text = "new entry", large = kLarge;
  unsigned long results[4];
  WithEveryFault({
      .prepare = [](const TempFolder& folder) { WriteArchive(folder, "a.zip"); },
      .act =
          [&](const TempFolder& folder) {
            Path path(folder, "a.zip");
            const HZIP archive = CreateZipZ(path, 0, kZipFileName);
            if (archive == nullptr) return false;
            results[0] = ZipAdd(archive, "large", large.data(), static_cast<unsigned>(large.size()),
                                kZipMemory);
            results[1] = ZipAdd(archive, "text", text.data(), static_cast<unsigned>(text.size()),
                                kZipMemory);
            results[2] = CloseZipZ(archive);
            return results[0] == kZipOk && results[1] == kZipOk && results[2] == kZipOk;
          },
      // An entry that there was no memory for is not there, and its result said so.
      .isRight =
          [&](const std::string& entries) {
            return results[2] == kZipOk &&
                   entries == (results[0] == kZipOk ? "[large]" + large : "") +
                                  (results[1] == kZipOk ? "[text]" + text : "");
          },
  });
}

TEST(Faults, EntriesOverFiles) {
  Work work;
  work.prepare = [](const TempFolder& folder) {
    WriteArchive(folder, "a.zip");
    WriteOldFiles(folder);
  };
  work.act = [](const TempFolder& folder) {
    Path archive(folder, "a.zip");
    Path target(folder, "out\\large");
    const HZIP zip = OpenZipU(archive, 0, kZipFileName, nullptr);
    if (zip == nullptr) return false;
    const bool done = UnzipItem(zip, 0, target, 0, kZipFileName) == kZipOk;
    CloseZipU(zip);
    return done;
  };
  WithEveryFault(work);
  work.answersForAll = false;
  work.act = [](const TempFolder& folder) {
    CString last;
    return OpenZipFile(Path(folder, "a.zip"), Path(folder, "out"), last) != 0;
  };
  WithEveryFault(work);
}

// The operation's own archive is a temporary one.
TEST(Faults, OperationsOnArchives) {
  class Packer : public ZipOp {
   public:
    Packer(const StringArray& files, const char* root) : ZipOp(files, root, 1000) { SetNoGui(1); }
    OperationReturnState ProcessZipFile(const char*) override { return OperationDone; }
  };
  StringArray files;
  std::optional<Packer> packer;
  const auto prepare = [&](const TempFolder& folder) {
    WriteTree(folder);
    files.RemoveAll();
    for (const char* name : {"large", "sub\\text"}) files.Add((folder / "tree\\" + name).c_str());
    packer.emplace(files, folder.path().c_str());
  };
  WithEveryFault(
      {.prepare = prepare, .act = [&](const TempFolder&) { return packer->DoOperation(0) != 0; }},
      {faults::Kind::kMemory, faults::Kind::kMapping, faults::Kind::kOpen, faults::Kind::kRead,
       faults::Kind::kWrite, faults::Kind::kMove});
}
