// Loading from files, and files that are missing, in use or not what was expected.
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "entry/Handles.h"
#include "support/TempFolder.h"
#include "tree_text.h"

namespace {

using Parser = COXParser;

unique_file Open(const std::string& path, DWORD share) {
  return unique_file(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, share, nullptr,
                                 OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
}

TEST(ParseFile, LoadsWholeFiles) {
  const TempFolder folder;
  Parser parser;
  EXPECT_TRUE(parser.ParseFile(folder.Write("a.xml", "\xEF\xBB\xBF<a>t</a>").c_str()));
  EXPECT_EQ(Describe(parser.Root()), "[Root]{a{\"t\"}}");
  EXPECT_TRUE(parser.ParseFile(folder.Write("empty.xml", "").c_str()));
  EXPECT_TRUE(parser.IsEmpty());
  EXPECT_FALSE(parser.ParseFile((folder / "none.xml").c_str()));
  EXPECT_FALSE(parser.ParseFile(folder.path().c_str()));
  EXPECT_FALSE(parser.ParseFile(nullptr));
  // Others may read it meanwhile, but not write.
  const unique_file writer = Open(folder / "a.xml", FILE_SHARE_READ);
  EXPECT_FALSE(parser.ParseFile((folder / "a.xml").c_str()));
}

TEST(ParseFileEx, SaysHowFarItCame) {
  const TempFolder folder;
  const auto before = std::filesystem::current_path();
  const std::string good = folder.Write("good.xml", "<XML a=1/>");
  struct {
    std::string path;
    int requirePrefix;
    Parser::ParseError status;
  } const cases[] = {
      {folder / "none.xml", FALSE, Parser::kFileMissing},
      {"none.xml", FALSE, Parser::kFileMissing},
      {folder / "no folder\\none.xml", FALSE, Parser::kFolderMissing},
      {folder / "no folder\\", FALSE, Parser::kFolderMissing},
      {folder.Write("empty.xml", ""), FALSE, Parser::kParseFailed},
      {folder.Write("bad.xml", "<a>"), FALSE, Parser::kParseFailed},
      {folder.Write("other.xml", "<a/>"), FALSE, Parser::kParsed},
      {folder / "other.xml", TRUE, Parser::kPrefixMissing},
      {folder.Write("short.xml", "<xm"), TRUE, Parser::kPrefixMissing},
      {folder.Write("marked.xml", "\xEF\xBB\xBF<xml/>"), TRUE, Parser::kParsed},
      {good, TRUE, Parser::kParsed},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.path);
    Parser parser;
    Parser::ParseError status;
    const DWORD start = GetTickCount();
    EXPECT_EQ(parser.ParseFileEx(each.path.c_str(), each.requirePrefix, status) != 0,
              each.status == Parser::kParsed);
    EXPECT_LT(GetTickCount() - start, 900u);  // nothing is waited for
    EXPECT_EQ(status, each.status);
    const bool permanent = status == 0 || status == 6 || status == 7;
    EXPECT_EQ(Parser::IsPermanentError(status) != 0, permanent);
  }
  EXPECT_EQ(std::filesystem::current_path(), before);
  EXPECT_TRUE(Parser().ParseFileEx(good.c_str()));
}

// Somebody uses the file: all the time, and then for a third of the second that is waited.
void ExpectPatience(const std::string& path, DWORD share, const std::function<bool()>& act) {
  unique_file user = Open(path, share);
  const DWORD start = GetTickCount();
  EXPECT_FALSE(act());
  EXPECT_GE(GetTickCount() - start, 990u);
  std::thread closing([&user] {
    Sleep(300);
    user.reset();
  });
  EXPECT_TRUE(act());
  closing.join();
}

TEST(ParseFileEx, TriesAgainAfterASecond) {
  const TempFolder folder;
  const std::string path = folder.Write("a.xml", "<a/>");
  Parser parser;
  Parser::ParseError status;
  ExpectPatience(path, 0, [&] {
    const bool parsed = parser.ParseFileEx(path.c_str(), FALSE, status) != 0;
    EXPECT_EQ(status, parsed ? Parser::kParsed : Parser::kFileNotOpened);
    return parsed;
  });
}

TEST(WriteFile, TriesAgainAfterASecond) {
  const TempFolder folder;
  const std::string path = folder.Write("a.xml", "old");
  Parser parser;
  parser.Root().AddElement("a");
  ExpectPatience(path, FILE_SHARE_READ, [&] { return parser.WriteFile(path.c_str()) != 0; });
  EXPECT_EQ(folder.Read("a.xml"), "<a/>\r\n");
}

}  // namespace
