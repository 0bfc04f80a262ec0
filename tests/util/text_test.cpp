// What hosts do with text files beyond reading them through; the encodings themselves are checked
// against another reader in tests/interop.
#include "util/MFile.h"

#include <gtest/gtest.h>

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
  for (uint8_t byte = file.ReadByte(ok); ok; byte = file.ReadByte(ok)) text += byte;
  return text;
}

}  // namespace

TEST(TextFile, PositionsAndLengths) {
  const TempFolder folder;
  std::string text;  // five blocks and a bit, every place different from its neighbours
  for (int i = 0; text.size() < 21000; ++i) text += std::to_string(i) + ",";
  for (const bool unicode : {false, true}) {
    const LONG width = unicode ? 2 : 1, mark = unicode ? 2 : 0;
    const std::string path = folder.Write("text", unicode ? Utf16(text) : text);
    MFile file;
    ASSERT_TRUE(file.Open(path.c_str(), kReading, nullptr, 1));
    EXPECT_EQ(file.GetLength(), text.size() - (unicode ? 1 : 0));
    for (const LONG place : {0L, 2048L, 2047L, 4097L, 4098L, 4099L, 0L, 20000L, 3L, 12294L}) {
      EXPECT_EQ(file.Seek(place, CFile::begin), place * width + mark);
      EXPECT_EQ(file.ReadByte(), text[place]) << place;
      EXPECT_EQ(file.Seek(-place - 2, CFile::begin), -1);
      EXPECT_EQ(file.ReadByte(), text[place + 1]) << "after an impossible place";
    }
    const DWORD block = file.GetPosition();
    const LONG there = file.Seek(100, CFile::current);
    EXPECT_EQ(there, static_cast<LONG>(block) + 100 * width + mark);
    EXPECT_EQ(file.ReadByte(), text[(there - mark) / width]);
    file.SeekToEnd();
    EXPECT_EQ(ReadAll(file), "");
  }
  MFile file;
  ASSERT_TRUE(file.Open(folder.Write("mark", "\xFF\xFE").c_str(), kReading, nullptr, 1));
  EXPECT_EQ(file.GetLength(), 4294967295u);
}

TEST(TextFile, NonLatinIsThrownWhenAsked) {
  const TempFolder folder;
  MFile file;
  file.Open(folder.Write("text", Utf16("zu") + "\x30\x75" + std::string("z\0", 2)).c_str(),
            kReading, nullptr, 1);
  EXPECT_EQ(ReadAll(file), "zu?z");
  file.AllowNonLatin(0);
  file.Seek(2, CFile::begin);
  EXPECT_THROW(file.ReadByte(), int);
  EXPECT_EQ(ReadAll(file), "z");
}

TEST(TextFile, WhatCannotBeOpenedOrRead) {
  const AssertionLog log;
  const TempFolder folder;
  const std::string missing = folder / "none";
  MFile file;
  CFileException error;
  EXPECT_EQ(file.Open(nullptr, kReading, &error, 1), 0);
  EXPECT_EQ(file.Open(missing.c_str(), kReading, &error, 1), 0);
  EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
  {
    const Boxes boxes({Boxes::Yes});
    EXPECT_EQ(file.Open(missing.c_str(), kReading, nullptr, 0), 0);
    const std::string begin = "Cannot open file '" + missing + "'\nReason: ", texts = boxes.Texts();
    EXPECT_EQ(texts.substr(0, begin.size()), begin);
    EXPECT_GT(texts.size(), begin.size() + 4) << "the system's words, in its language";
    EXPECT_TRUE(texts.ends_with(".|") && !texts.ends_with("..|")) << texts;
  }
  EXPECT_TRUE(log.Empty());
  ASSERT_TRUE(file.Open(folder.Write("text", "abc").c_str(), CFile::modeWrite, nullptr, 1));
  EXPECT_EQ(ReadAll(file), "");
  EXPECT_TRUE(file.HasFailed()) << "a file without leave to read has not ended";
  EXPECT_TRUE(log.Names("MFile"));
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
}

TEST(TextFile, Save) {
  const TempFolder folder;
  const std::string path = folder / "text",
                    wide("\xFE\xFF\x00y\x20\x1C\x20\xAC\xD8\x34\x00\n!", 13);
  const struct {
    const char* mode;
    std::string text;
    int result, written, lost;
    std::string file;
  } cases[] = {
      {"wb", "\xFC\xDF\n", 1, 3, 0, "\xFC\xDF\n"},
      {"ab", std::string("\0+", 2), 1, 2, 0, std::string("\xFC\xDF\n\0+", 5)},
      {"w", "a\nb", 1, 3, 0, "a\r\nb"},
      {"wb", wide, 1, 5, 2, "y\"??\n"},
      {"r", "never", 0, 0, 0, "y\"??\n"},
      {"q", "never", 0, 0, 0, "y\"??\n"},
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
