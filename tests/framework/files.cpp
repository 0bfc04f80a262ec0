// CFile and CStdioFile.

#include <afx.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/TempFolder.h"

namespace {

// The cause of the CFileException that a call throws; -1 when it throws none.
template <class Call>
int causeOf(Call call) {
  try {
    call();
  } catch (CFileException* e) {
    const int cause = e->m_cause;
    e->Delete();
    return cause;
  }
  return -1;
}

constexpr char kFile[] = "a file.txt";

class Files : public testing::Test {
 protected:
  CString PathOf(const char* name) const { return CString((m_folder / name).c_str()); }
  std::string Contents() const { return m_folder.Read(kFile); }
  void Write(const std::string& text) const { m_folder.Write(kFile, text); }

  TempFolder m_folder;
  const CString m_name = PathOf(kFile);
};

TEST_F(Files, PositionsFollowReadingAndWriting) {
  CFile file(m_name, CFile::modeCreate | CFile::modeReadWrite);
  file.Write("0123456789", 10);
  EXPECT_EQ(file.GetPosition(), 10u);
  EXPECT_EQ(file.Seek(-4, CFile::end), 6);
  char text[20] = "";
  EXPECT_EQ(file.Read(text, 20), 4u);
  EXPECT_STREQ(text, "6789");
  EXPECT_EQ(file.Read(text, 20), 0u);
  EXPECT_EQ(file.Seek(2, CFile::begin), 2);
  EXPECT_EQ(file.Seek(3, CFile::current), 5);
  file.SetLength(5);
  EXPECT_EQ(file.GetLength(), 5u);
  file.SeekToBegin();
  file.Write("ab", 2);
  EXPECT_EQ(file.SeekToEnd(), 5u);
  EXPECT_EQ(causeOf([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
  file.Flush();
  file.Close();
  EXPECT_EQ(Contents(), "ab234");
}

TEST_F(Files, ModesDecideWhatBecomesOfAnOldFile) {
  Write("old text");
  { CFile file(m_name, CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite); }
  EXPECT_EQ(Contents(), "old text");
  { CFile file(m_name, CFile::modeWrite); }
  EXPECT_EQ(Contents(), "old text");
  CFile file(m_name, CFile::modeCreate | CFile::modeWrite);
  EXPECT_EQ(Contents(), "");
  EXPECT_STREQ(file.GetFilePath(), m_name);
  EXPECT_STREQ(file.GetFileName(), "a file.txt");
  EXPECT_STREQ(file.GetFileTitle(), "a file");
}

TEST_F(Files, OpenSaysWhyItFails) {
  Write("text");
  CFile holder(m_name, CFile::modeRead | CFile::shareDenyWrite);
  CFile reader(m_name, CFile::modeRead | CFile::shareDenyNone);
  const CString longName = PathOf(CString('x', MAX_PATH));
  struct Case {
    CString name;
    UINT flags;
    int cause;
    LONG osError;
  } const cases[] = {
      {PathOf("none"), CFile::modeRead, CFileException::fileNotFound, ERROR_FILE_NOT_FOUND},
      {PathOf("none\\none"), CFile::modeCreate | CFile::modeWrite, CFileException::badPath,
       ERROR_PATH_NOT_FOUND},
      {m_name, CFile::modeWrite | CFile::shareDenyNone, CFileException::sharingViolation,
       ERROR_SHARING_VIOLATION},
      {m_name, CFile::modeRead | CFile::shareExclusive, CFileException::sharingViolation,
       ERROR_SHARING_VIOLATION},
      {longName, CFile::modeRead, CFileException::badPath, ERROR_FILENAME_EXCED_RANGE},
      {"", CFile::modeRead, CFileException::badPath, ERROR_PATH_NOT_FOUND},
  };
  for (const Case& c : cases) {
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(c.name, c.flags, &error));
    EXPECT_FALSE(file.Open(c.name, c.flags));
    EXPECT_EQ(error.m_cause, c.cause) << c.name;
    EXPECT_EQ(error.m_lOsError, c.osError) << c.name;
    EXPECT_STREQ(error.m_strFileName, c.name);
    EXPECT_EQ(file.m_hFile, CFile::hFileNull);
    EXPECT_EQ(causeOf([&] { CFile(c.name, c.flags); }), c.cause) << c.name;
  }
}

TEST_F(Files, WritingWithoutTheRightThrows) {
  Write("text");
  CFile file(m_name, CFile::modeRead);
  { CFile guest(static_cast<int>(file.m_hFile)); }  // somebody else's handle stays open
  EXPECT_EQ(causeOf([&] { file.Write("x", 1); }), CFileException::accessDenied);
  file.Close();
  EXPECT_EQ(causeOf([&] { file.Write("x", 1); }), CFileException::invalidFile);
  file.Close();  // closed already: nothing happens
}

TEST_F(Files, PositionsPastFourGigabytesAreAnErrorNotAWrongNumber) {
  CFile file(m_name, CFile::modeCreate | CFile::modeReadWrite);
  file.SetLength(3'000'000'000);
  EXPECT_EQ(file.GetLength(), 3'000'000'000);
  EXPECT_EQ(file.SeekToEnd(), 3'000'000'000);
  EXPECT_EQ(file.GetPosition(), 3'000'000'000);
  EXPECT_EQ(causeOf([&] { file.Seek(2'000'000'000, CFile::current); }),
            CFileException::genericException);
  EXPECT_EQ(causeOf([&] { file.GetPosition(); }), CFileException::genericException);
}

TEST_F(Files, StatusCanBeReadAndSet) {
  Write("12345");
  CFileStatus status;
  ASSERT_TRUE(CFile::GetStatus(m_name, status));
  EXPECT_EQ(status.m_size, 5);
  EXPECT_STREQ(status.m_szFullName, m_name);
  EXPECT_LT((CTime::GetCurrentTime() - status.m_mtime).GetTotalSeconds(), 60);
  // A read-only file too gets its time.
  for (const time_t time : {1'000'000'000, 1'100'000'000}) {
    status.m_mtime = CTime(time);
    status.m_attribute = CFile::readOnly;
    CFile::SetStatus(m_name, status);
    CFile file(m_name, CFile::modeRead);
    ASSERT_TRUE(file.GetStatus(status));
    EXPECT_EQ(status.m_mtime.GetTime(), time);
    EXPECT_TRUE(status.m_attribute & CFile::readOnly);
  }
  EXPECT_FALSE(CFile::GetStatus(PathOf("none"), status));
  EXPECT_EQ(causeOf([&] { CFile::SetStatus(PathOf("none"), status); }),
            CFileException::fileNotFound);
}

TEST_F(Files, RenamingAndRemovingSayWhenTheyFail) {
  Write("text");
  const CString other = PathOf("other");
  CFile::Rename(m_name, other);
  EXPECT_EQ(m_folder.Read("other"), "text");
  EXPECT_EQ(causeOf([&] { CFile::Rename(m_name, other); }), CFileException::fileNotFound);
  CFile::Remove(other);
  EXPECT_EQ(causeOf([&] { CFile::Remove(other); }), CFileException::fileNotFound);
}

TEST_F(Files, LinesAreTextUnlessSaidOtherwise) {
  {
    CStdioFile file(m_name, CFile::modeCreate | CFile::modeWrite);
    file.WriteString("one\n\n");
    file.WriteString(CString('x', 1000) + "\n");
    file.Write("a\0b", 3);
  }
  EXPECT_EQ(Contents(), "one\r\n\r\n" + std::string(1000, 'x') + "\r\n" + std::string("a\0b", 3));
  {
    CStdioFile file(m_name, CFile::modeRead);
    CString line;
    for (const CString& expected :
         {CString("one"), CString(), CString('x', 1000), CString("a\0b", 3)}) {
      EXPECT_TRUE(file.ReadString(line));
      EXPECT_EQ(line, expected);
      EXPECT_EQ(line.GetLength(), expected.GetLength());
    }
    EXPECT_FALSE(file.ReadString(line));
    EXPECT_TRUE(line.IsEmpty());
  }
  CStdioFile file(m_name, CFile::modeReadWrite | CFile::typeBinary);
  char text[5];
  EXPECT_STREQ(file.ReadString(text, 5), "one\r");
  EXPECT_EQ(file.GetPosition(), 4u);
  EXPECT_EQ(file.Seek(1, CFile::begin), 1);
  file.WriteString("wn");
  EXPECT_EQ(file.GetLength(), 1012u);
  file.SetLength(3);
  file.WriteString("!");
  file.Close();
  EXPECT_EQ(Contents(), "own!");
  EXPECT_EQ(causeOf([&] { CStdioFile(PathOf("none"), CFile::modeRead); }),
            CFileException::fileNotFound);
}

}  // namespace
