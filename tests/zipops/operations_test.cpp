// The operations that pack files into bounded archives and that extract an archive.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"
#include "zip/UnZipOp.h"
#include "zip/ZipFiles.h"
#include "zip/ZipOp.h"

namespace {

using Names = std::vector<std::string>;
using StringArray = CArray<CString, const char*>;

Names ToNames(StringArray& array) {
  Names names;
  for (int i = 0; i < array.GetSize(); ++i) names.push_back(array[i].GetBuffer(0));
  return names;
}

Names EntriesOf(const char* archive) {
  StringArray files;
  EXPECT_EQ(UnZipFileList(archive, "", files), 1);
  Names names = ToNames(files);
  for (std::string& name : names) name.erase(0, 1);  // the backslash
  return names;
}

bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

class Packer : public ZipOp {
 public:
  Packer(const StringArray& files, const std::string& root, unsigned long limit)
      : ZipOp(files, root.c_str(), limit) {
    SetNoGui(1);
  }
  ~Packer() override {
    for (const std::string& path : m_paths) EXPECT_FALSE(Exists(path)) << path;
  }

  std::vector<Names> m_archives;  // that were handed over
  Names m_paths;                  // of all that were begun
  OperationReturnState m_answer = OperationDone;
  bool m_throws = false;  // instead of an answer
  int m_stopBefore = -1;  // stops the run from within this item

 protected:
  OperationReturnState Operation(unsigned int index) override {
    if (static_cast<int>(index) == m_stopBefore) StopLoop();
    const OperationReturnState state = ZipOp::Operation(index);
    if (m_archive != nullptr) m_paths.push_back(m_archivePath.GetBuffer(0));
    return state;
  }
  OperationReturnState ProcessZipFile(const char* archivePath) override {
    m_archives.push_back(EntriesOf(archivePath));
    m_paths.push_back(archivePath);
    if (m_throws) throw std::runtime_error("refused");
    return m_answer;
  }
};

class ZipOpTest : public testing::Test {
 protected:
  void Add(const std::string& name, size_t size = 10) {
    std::string bytes(size, 0);
    for (char& byte : bytes) byte = static_cast<char>(rand());
    m_files.Add(m_folder.Write(name, bytes).c_str());
  }

  const TempFolder m_folder;
  StringArray m_files;
};

}  // namespace

TEST_F(ZipOpTest, LimitDividesTheList) {
  for (const char* name : {"1", "sub\\2", "3", "4", "5"}) Add(name, 1000);
  const struct {
    unsigned long limit;
    std::vector<Names> archives;
  } kCases[] = {
      {0, {{"1"}, {"sub/2"}, {"3"}, {"4"}, {"5"}}},
      {1500, {{"1", "sub/2"}, {"3", "4"}, {"5"}}},
      {1000000, {{"1", "sub/2", "3", "4", "5"}}},
  };
  for (const auto& c : kCases) {
    const AssertionLog log;
    Packer packer(m_files, m_folder.path(), c.limit);
    EXPECT_STREQ(packer.GetRootPath(), m_folder.path().c_str());
    EXPECT_EQ(packer.DoOperation(0), 1) << c.limit;
    EXPECT_EQ(packer.m_archives, c.archives) << c.limit;
    EXPECT_TRUE(log.Empty()) << log.Text();
  }
}

TEST_F(ZipOpTest, EntryNames) {
  Add("sub\\file");
  StringArray files;
  files.Add("\\sub\\file");
  CString upper = m_files[0];
  upper.MakeUpper();
  files.Add(upper);
  for (const std::string& root : {m_folder.path(), m_folder.path() + "\\"}) {
    const AssertionLog log;
    Packer packer(files, root, 1000000);
    EXPECT_EQ(packer.DoOperation(0), 1);
    EXPECT_EQ(packer.m_archives, (std::vector<Names>{{"sub/file", "SUB/FILE"}}));
    EXPECT_TRUE(log.Empty()) << log.Text();
  }
  // A share's path begins with two backslashes.
  const std::string share = "\\\\?\\" + m_folder.path();
  StringArray shared;
  shared.Add((share + "\\sub\\file").c_str());
  Packer sharePacker(shared, share, 0);
  EXPECT_EQ(sharePacker.DoOperation(0), 1);
  EXPECT_EQ(sharePacker.m_archives, (std::vector<Names>{{"sub/file"}}));

  const AssertionLog log;
  files.RemoveAll();
  files.Add("elsewhere");
  Packer stranger(files, m_folder.path(), 0);
  EXPECT_EQ(stranger.DoOperation(0), 0);
  EXPECT_TRUE(log.Names("ZipOp")) << log.Text();
}

TEST_F(ZipOpTest, FilesThatCannotBeAdded) {
  Add("1");
  m_files.Add((m_folder / "missing").c_str());
  Add("2");
  {
    Packer packer(m_files, m_folder.path(), 1000000);
    EXPECT_EQ(packer.DoOperation(0), 0);
    EXPECT_EQ(packer.m_archives, (std::vector<Names>{{"1", "2"}}));
  }
  m_files.Add((m_folder / "missing").c_str());
  Packer last(m_files, m_folder.path(), 1000000);
  EXPECT_EQ(last.DoOperation(0), 0);
  EXPECT_EQ(last.m_archives, (std::vector<Names>{{"1", "2"}})) << "what could be added is not lost";
}

TEST_F(ZipOpTest, AnswersAndStop) {
  for (const char* name : {"1", "2", "3"}) Add(name);
  Packer refused(m_files, m_folder.path(), 0);
  refused.m_answer = OperationFailedStop;
  EXPECT_EQ(refused.DoOperation(0), 0);
  EXPECT_EQ(refused.m_archives, std::vector<Names>{{"1"}});

  Packer stopped(m_files, m_folder.path(), 1000000);
  stopped.m_stopBefore = 1;
  EXPECT_EQ(stopped.DoOperation(0), 1);
  EXPECT_TRUE(stopped.wasAborted());
  EXPECT_TRUE(stopped.m_archives.empty());
  EXPECT_FALSE(stopped.m_paths.empty());

  Packer thrower(m_files, m_folder.path(), 1000000);
  thrower.m_throws = true;
  EXPECT_EQ(thrower.DoOperation(0), 0);
  EXPECT_EQ(thrower.m_archives.size(), 1u);
}

TEST_F(ZipOpTest, ExtractsEverything) {
  const AssertionLog log;
  for (const char* name : {"tree\\a.txt", "tree\\sub\\b.txt"}) Add(name);
  const std::string archive = m_folder / "all.zip";
  ASSERT_EQ(ZipDir(archive.c_str(), (m_folder / "tree").c_str(), "*.*"), 1);
  const std::string target = m_folder / "out";
  m_folder.Write("out\\a.txt", "in the way");
  SetFileAttributesA((target + "\\a.txt").c_str(), FILE_ATTRIBUTE_READONLY);

  CUnZipOp unzip(archive.c_str(), target.c_str());
  EXPECT_EQ(unzip.GetNumberOfFilesInZip(), 2);
  StringArray files;
  files.Add("of before");
  EXPECT_EQ(unzip.GetFileList(files), 1);
  Names names = ToNames(files);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Names{target + "\\a.txt", target + "\\sub\\b.txt"}));
  unzip.SetNoGui(1);
  EXPECT_EQ(unzip.DoOperation(0), 1);
  EXPECT_EQ(m_folder.Read("out\\a.txt"), m_folder.Read("tree\\a.txt"));
  EXPECT_EQ(m_folder.Read("out\\sub\\b.txt"), m_folder.Read("tree\\sub\\b.txt"));

  CUnZipOp bare(archive.c_str(), "");
  EXPECT_EQ(bare.GetFileList(files), 1);
  names = ToNames(files);
  EXPECT_EQ(std::count(names.begin(), names.end(), "sub\\b.txt"), 1);
  EXPECT_TRUE(log.Empty()) << log.Text();
}

TEST_F(ZipOpTest, NothingToExtract) {
  StringArray files;
  const std::string empty = m_folder / "empty.zip";
  CloseZipZ(CreateZipZ(const_cast<char*>(empty.c_str()), 0, kZipFileName));
  const struct {
    std::string archive;
    int listed;
  } kCases[] = {{empty, 1}, {m_folder.Write("bad.zip", "no archive"), 0}, {m_folder / "none", 0}};
  for (const auto& c : kCases) {
    CUnZipOp unzip(c.archive.c_str(), m_folder.path().c_str());
    EXPECT_EQ(unzip.DoOperation(1), 0) << c.archive;
    EXPECT_EQ(unzip.GetNumberOfFilesInZip(), 0) << c.archive;
    EXPECT_EQ(unzip.GetFileList(files), c.listed) << c.archive;
    EXPECT_EQ(files.GetSize(), 0);
  }
}

// Neither what leaves the folder nor what can't be written stops the rest.
TEST_F(ZipOpTest, WhatIsNotExtractedIsReported) {
  const std::string archive = m_folder / "evil.zip";
  HZIP zip = CreateZipZ(const_cast<char*>(archive.c_str()), 0, kZipFileName);
  for (const char* name : {"../outside", "taken", "good"}) ZipAdd(zip, name, "text", 4, kZipMemory);
  CloseZipZ(zip);
  std::filesystem::create_directories(m_folder / "out\\taken\\folder");

  const AssertionLog log;
  CUnZipOp unzip(archive.c_str(), (m_folder / "out").c_str());
  unzip.SetNoGui(1);
  EXPECT_EQ(unzip.DoOperation(0), 1);
  EXPECT_FALSE(m_folder.Has("outside"));
  EXPECT_EQ(m_folder.Read("out\\good"), "text");
  EXPECT_TRUE(log.Names("EntryPath")) << log.Text();
  EXPECT_TRUE(log.Names("UnZipOp")) << log.Text();
}
