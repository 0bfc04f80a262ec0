// What hosts do with text files beyond reading them through; the encodings themselves are checked
// against another reader in tests/interop.
#include "util/MFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <thread>

#include "support/AssertionLog.h"
#include "support/TempFolder.h"
#include "util/Boxes.h"

namespace {

constexpr unsigned kReading = CFile::modeRead | CFile::shareDenyWrite;

std::string Utf16(const std::string& text) {
  std::string bytes = "\xFF\xFE";
  for (const char c : text) bytes += {c, '\0'};
  return bytes;
}

std::string ReadAll(MFile& file) {
  std::string text;
  int ok;
  for (uint8_t byte = file.ReadByte(ok); ok; byte = file.ReadByte(ok)) {
    text += static_cast<char>(byte);
  }
  return text;
}

// Five blocks and a bit, in which every place is different from its neighbours.
std::string Numbered() {
  std::string text;
  for (int i = 0; text.size() < 21000; ++i) text += std::to_string(i) + ",";
  return text;
}

}  // namespace

TEST(TextFile, SeekInAndOutOfTheBuffer) {
  const TempFolder folder;
  const std::string text = Numbered();
  for (const bool unicode : {false, true}) {
    MFile file;
    ASSERT_TRUE(file.Open(folder.Write("text", unicode ? Utf16(text) : text).c_str(), kReading,
                          nullptr, 1));
    const LONG width = unicode ? 2 : 1, mark = unicode ? 2 : 0;
    EXPECT_EQ(file.GetLength(), text.size() - (unicode ? 1 : 0));
    for (const LONG place : {0L, 2048L, 2047L, 4097L, 4098L, 4099L, 0L, 20000L, 3L, 12294L}) {
      EXPECT_EQ(file.Seek(place, CFile::begin), place * width + mark);
      EXPECT_EQ(file.ReadByte(), text[place]) << place;
      EXPECT_EQ(file.Seek(-place - 2, CFile::begin), -1);
      EXPECT_EQ(file.ReadByte(), text[place + 1]) << "after an impossible place";
    }
    // The position is the end of the block; "current" counts from there.
    file.Seek(0, CFile::begin);
    file.ReadByte();
    const DWORD block = file.GetPosition();
    const LONG there = file.Seek(100, CFile::current);
    EXPECT_EQ(there, static_cast<LONG>(block) + 100 * width + mark);
    EXPECT_EQ(file.ReadByte(), text[(there - mark) / width]);
    file.SeekToEnd();
    EXPECT_EQ(ReadAll(file), "");
  }
}

TEST(TextFile, LengthOfAMarkAlone) {
  const TempFolder folder;
  MFile file;
  ASSERT_TRUE(file.Open(folder.Write("text", "\xFF\xFE").c_str(), kReading, nullptr, 1));
  EXPECT_EQ(file.GetLength(), 4294967295u);
  EXPECT_EQ(ReadAll(file), "");
}

TEST(TextFile, NonLatinIsThrownOnlyWhenAsked) {
  const TempFolder folder;
  const std::string bytes("\xFE\xFF\x20\x14\x20\x22\x20\xAC\x00z", 10);
  MFile file;
  ASSERT_TRUE(file.Open(folder.Write("text", bytes).c_str(), kReading, nullptr, 1));
  EXPECT_EQ(ReadAll(file), "-??z");
  file.Seek(0, CFile::begin);
  file.AllowNonLatin(0);
  EXPECT_EQ(ReadAll(file), "-??z") << "the Euro sign too is of the range U+20xx";
  file.Open(folder.Write("other", std::string("\xFF\xFE\x30\x75z\0", 6)).c_str(), kReading, nullptr,
            1);
  try {
    file.ReadByte();
    ADD_FAILURE() << "nothing was thrown";
  } catch (int value) {
    EXPECT_EQ(value, 1);
  }
  EXPECT_EQ(ReadAll(file), "z");
}

TEST(TextFile, CannotBeOpened) {
  const TempFolder folder;
  const std::string path = folder / "none";
  MFile file;
  CFileException error;
  EXPECT_EQ(file.Open(path.c_str(), kReading, &error, 1), 0);
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  Boxes boxes({Boxes::Yes});
  EXPECT_EQ(file.Open(path.c_str(), kReading, nullptr, 0), 0);
  EXPECT_EQ(boxes.Texts(), "Cannot open file '" + path + "'\nReason: File not found.|");
}

TEST(TextFile, WhatCannotBeReadHasNotEnded) {
  const AssertionLog log;
  const TempFolder folder;
  const std::string path = folder.Write("text", "abc");
  char bytes[4];
  MFile file;
  file.Open(path.c_str(), kReading, nullptr, 1);
  EXPECT_EQ(ReadAll(file), "abc");
  EXPECT_FALSE(file.HasFailed());
  EXPECT_TRUE(log.Empty());
  EXPECT_EQ(file.Read(bytes, sizeof bytes), 0u);
  EXPECT_TRUE(log.Names("MFile"));

  MFile writing;
  file.Close();
  ASSERT_TRUE(writing.Open(path.c_str(), CFile::modeWrite, nullptr, 1));
  EXPECT_EQ(ReadAll(writing), "");
  EXPECT_TRUE(writing.HasFailed());
}

TEST(TextFile, StreamIsReadFromWhereItStands) {
  const TempFolder folder;
  FILE* const stream = fopen(folder.Write("text", "line\r\nrest\r\n").c_str(), "rt");
  char line[20];
  fgets(line, sizeof line, stream);
  {
    MFile file;
    ASSERT_TRUE(file.OpenStdFile(stream));
    EXPECT_EQ(ReadAll(file), "rest\r\n");
    EXPECT_EQ(file.Seek(1, CFile::begin), 1);
    EXPECT_EQ(file.ReadByte(), 'i');
  }
  EXPECT_EQ(fclose(stream), 0);
  EXPECT_EQ(MFile().OpenStdFile(nullptr), 0);
}

TEST(TextFile, PipeThatGivesSingleBytes) {
  HANDLE reading, writing;
  CreatePipe(&reading, &writing, nullptr, 0);
  std::thread writer([writing] {
    for (const char byte : Utf16("ab")) {
      DWORD written;
      WriteFile(writing, &byte, 1, &written, nullptr);
      Sleep(20);
    }
    CloseHandle(writing);
  });
  FILE* const stream = _fdopen(_open_osfhandle(reinterpret_cast<intptr_t>(reading), 0), "rb");
  MFile file;
  file.OpenStdFile(stream);
  EXPECT_TRUE(file.IsUnicode());
  EXPECT_EQ(ReadAll(file), "ab");
  EXPECT_FALSE(file.HasFailed()) << "the writer's end is the file's";
  writer.join();
  fclose(stream);
}

TEST(TextFile, Save) {
  const TempFolder folder;
  const std::string path = folder / "text";
  const std::string wide("\xFE\xFF\x00y\x20\x1C\x20\xAC\xD8\x34\x00\n!", 13);
  const struct {
    const char* mode;
    std::string text;
    int result, written, lost;
    std::string file;
  } cases[] = {
      {"wb",
       "Gr\xFC\xDF"
       "e\n",
       1, 6, 0,
       "Gr\xFC\xDF"
       "e\n"},
      {"ab", std::string("\0+", 2), 1, 2, 0,
       std::string("Gr\xFC\xDF"
                   "e\n\0+",
                   8)},
      {"w", "a\nb", 1, 3, 0, "a\r\nb"},
      {"wb", wide, 1, 5, 2, "y\"??\n"},
      {"wb", "", 1, 0, 0, ""},
      {"r", "never", 0, 0, 0, ""},
      {"q", "never", 0, 0, 0, ""},
  };
  for (const auto& c : cases) {
    CString text(c.text.data(), static_cast<int>(c.text.size()));
    int written = -1, lost = -1;
    EXPECT_EQ(MFile::SaveFileAscii(path.c_str(), text, written, lost, c.mode), c.result) << c.text;
    EXPECT_EQ(written, c.written) << c.text;
    EXPECT_EQ(lost, c.lost) << c.text;
    EXPECT_EQ(folder.Read("text"), c.file);
  }
}
