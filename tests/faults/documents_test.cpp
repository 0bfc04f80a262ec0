// Documents that are written over, settings that are stored anew, downloads over files.
#include <afxwin.h>

#include <gtest/gtest.h>

#include "EveryFault.h"
#include "lists/DataFilter.h"
#include "markup/OXParser.h"
#include "net/InternetDownload.h"
#include "settings/RegistryUtil.h"
#include "support/LoopbackServer.h"
#include "support/RegistrySubtree.h"
#include "util/MFile.h"

TEST(Faults, MarkupOverAFile) {
  COXParser parser;
  std::string markup = "<root>";
  for (int i = 0; i < 20; ++i) markup += "<entry name=\"n\">" + std::string(3000, 't') + "</entry>";
  ASSERT_TRUE(parser.Parse((markup + "</root>").c_str()));
  WithEveryFault(
      {.prepare = [](const TempFolder& folder) { folder.Write("a.xml", std::string(50000, 'o')); },
       .act =
           [&](const TempFolder& folder) {
             Path path(folder, "a.xml");
             return parser.WriteFile(path) != 0;
           }});
}

TEST(Faults, TextOverAFile) {
  std::string wide = "\xFF\xFE";
  for (int i = 0; i < 40000; ++i) wide += std::string("\xE4\x01", 2);
  const auto prepare = [&](const TempFolder& folder) {
    folder.Write("wide", wide);
    folder.Write("a.txt", std::string(100000, 'o'));
  };
  WithEveryFault({.prepare = prepare, .act = [](const TempFolder& folder) {
                    Path source(folder, "wide");
                    Path target(folder, "a.txt");
                    MFile file;
                    CFileException error;
                    if (!file.Open(source, CFile::modeRead, &error, 1)) return false;
                    int nonAscii, wasUnicode;
                    return file.UnicodeToTextFile(target, nonAscii, wasUnicode) != 0;
                  }});
  CString text(CString('n', 20000));
  WithEveryFault({.prepare = prepare, .act = [&](const TempFolder& folder) {
                    Path target(folder, "a.txt");
                    int written, lost;
                    return MFile::SaveFileAscii(target, text, written, lost, "wb") != 0;
                  }});
}

// A filter is several values, and half of one would show other rows than any that was chosen.
TEST(Faults, SettingsOverSettings) {
  ASSERT_TRUE(MRegistry::InitProductRegistry("Software\\Orvane tests\\faults", 1));
  const RegistrySubtree subtree;
  const MRegistry registry(subtree.c_str());
  StringFilter oldText(nullptr, subtree.c_str()), newText(nullptr, subtree.c_str());
  oldText.Set({StringFilter::DoesNotContain, StringFilter::Contains, "old one", "old two", 0});
  newText.Set({StringFilter::BeginsWith, StringFilter::DoesNotBeginWith, "new one", "new two", 1});
  NumericFilter oldNumbers(subtree.c_str()), newNumbers(subtree.c_str());
  oldNumbers.Set(1, 2);
  newNumbers.Set(3, 4);
  const auto values = [&](std::initializer_list<const char*> names) {
    std::string text;
    for (const char* name : names) text += subtree.ReadRaw(HKEY_CURRENT_USER, name).bytes + "|";
    return text;
  };
  const std::initializer_list<faults::Kind> kinds = {faults::Kind::kMemory,
                                                     faults::Kind::kRegistry};
  for (const bool areThere : {true, false}) {
    const auto prepare = [&](const TempFolder&) {
      RegDeleteTreeA(HKEY_CURRENT_USER, subtree.c_str());
      if (!areThere) return;
      EXPECT_TRUE(oldText.Save() && oldNumbers.Save());
      EXPECT_TRUE(registry.SetUserKey("text", "old") && registry.SetUserKey("number", 1ul));
    };
    const auto look = [&](const TempFolder&) {
      return UserData{
          {"text filter", values({"FirstString", "SecondString", "FirstCondition",
                                  "SecondCondition", "andCondition"})},
          {"number filter", values({"FromNumeric", "ToNumeric", "invert"})},
          {"text", values({"text"})},
          {"number", values({"number"})},
      };
    };
    const auto act = [&](const TempFolder&) {
      const int saved = newText.Save() & newNumbers.Save();
      const int set = registry.SetUserKey("text", "new") & registry.SetUserKey("number", 2ul);
      return (saved & set) != 0;
    };
    WithEveryFault({.prepare = prepare, .act = act, .look = look}, kinds);
  }
  MRegistry::FreeProductRegistry();
}

TEST(Faults, DownloadOverAFile) {
  const std::string body(200'000, 'n');
  LoopbackServer server([&](LoopbackConnection& client) {
    if (client.ReadRequest()) client.SendReply(body);
  });
  const std::string url = server.Url("file");
  for (const int async : {0, 1}) {
    SCOPED_TRACE(async ? "asynchronous" : "synchronous");
    WithEveryFault({.prepare = [](const TempFolder& folder) { folder.Write("file", "old"); },
                    .act =
                        [&](const TempFolder& folder) {
                          InternetDownload download(url.c_str(), (folder / "file").c_str(), 0);
                          download.SetNoGui(1);
                          download.SetTimeOut(1, 1);
                          download.SetAsyncMode(async);
                          return !download.GetFile().IsEmpty();
                        }},
                   {faults::Kind::kOpen, faults::Kind::kWrite, faults::Kind::kMove,
                    faults::Kind::kFolder, faults::Kind::kInternet});
  }
}
