// Single values and keys, in the real registry.
#include "settings/RegistryUtil.h"

#include <gtest/gtest.h>

#include "support/AssertionLog.h"
#include "support/CodePage.h"
#include "support/RegistrySubtree.h"

namespace {

const HKEY kUser = HKEY_CURRENT_USER;

// Lets a root key be a key of the test's for a scope.
class RootInstead {
 public:
  RootInstead(HKEY root, const RegistrySubtree& subtree) : m_root(root) {
    HKEY key = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, subtree.c_str(), &key);
    RegOverridePredefKey(root, key);
    RegCloseKey(key);
  }
  ~RootInstead() { RegOverridePredefKey(m_root, nullptr); }

 private:
  HKEY m_root;
};

}  // namespace

TEST(Values, TextsAreStoredWithTheirZeroAndReadBack) {
  const RegistrySubtree subtree;
  const std::string longest(259, 'x');
  const std::string letters = Ansi(UpperLetter()) + "t" + Ansi(LowerLetter()) + " \t\r\n%PATH%";
  for (const char* text : {"", "text", letters.c_str(), longest.c_str()}) {
    EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), text, "name"), 1);
    EXPECT_EQ(subtree.ReadRaw(kUser, "name"),
              (RegistrySubtree::Value{REG_SZ, std::string(text) + '\0'}));
    CString read = "old";
    EXPECT_EQ(MRegistry::GetKey(kUser, subtree.c_str(), read, "name"), 1);
    EXPECT_STREQ(read, text);
  }
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), static_cast<const char*>(nullptr), nullptr),
            1);
  EXPECT_EQ(subtree.ReadRaw(kUser, ""), (RegistrySubtree::Value{REG_SZ, std::string(1, '\0')}));
}

TEST(Values, TextsThatOthersStored) {
  using namespace std::string_literals;
  const RegistrySubtree subtree;
  const struct {
    const char* what;
    DWORD type;
    std::string bytes;
    int result;
    std::string text;
  } cases[] = {
      {"not expanded", REG_EXPAND_SZ, "%TEMP%\\x\0"s, 1, "%TEMP%\\x"},
      {"without zero", REG_SZ, "abc", 1, "abc"},
      {"no bytes", REG_SZ, "", 1, ""},
      {"a zero inside", REG_SZ, "ab\0cd\0"s, 1, "ab"},
      {"259 and a zero", REG_SZ, std::string(259, 'y') + '\0', 1, std::string(259, 'y')},
      {"260 without zero", REG_SZ, std::string(260, 'y'), 1, std::string(260, 'y')},
      {"260 and a zero", REG_SZ, std::string(260, 'y') + '\0', 0, ""},
      {"261 without zero", REG_EXPAND_SZ, std::string(261, 'y'), 0, ""},
      {"a list", REG_MULTI_SZ, "a\0b\0\0"s, 0, ""},
      {"long bytes", REG_BINARY, std::string(5000, 'y'), 0, ""},
      {"a number", REG_DWORD, "abc\0"s, 0, ""},
  };
  for (const auto& c : cases) {
    subtree.WriteRaw("name", c.type, c.bytes);
    CString text = "old";
    EXPECT_EQ(MRegistry::GetKey(kUser, subtree.c_str(), text, "name"), c.result) << c.what;
    EXPECT_EQ(std::string(text), c.text) << c.what;
  }
}

TEST(Values, NumbersThatOthersStored) {
  using namespace std::string_literals;
  const RegistrySubtree subtree;
  const struct {
    DWORD type;
    std::string bytes;
    int result;
  } cases[] = {
      {REG_DWORD, "\x78\x56\x34\x92"s, 1},  {REG_DWORD_BIG_ENDIAN, "\x78\x56\x34\x92"s, 0},
      {REG_DWORD, "\x78\x56"s, 0},          {REG_DWORD, ""s, 0},
      {REG_DWORD, std::string(8, 1), 0},    {REG_QWORD, std::string(8, 1), 0},
      {REG_BINARY, "\x78\x56\x34\x92"s, 0}, {REG_SZ, "123\0"s, 0},
  };
  for (const auto& c : cases) {
    subtree.WriteRaw("name", c.type, c.bytes);
    unsigned long number = 7;
    EXPECT_EQ(MRegistry::GetKey(kUser, subtree.c_str(), number, "name"), c.result)
        << c.type << " of " << c.bytes.size();
    EXPECT_EQ(number, c.result ? 0x92345678 : 7);
  }
}

TEST(Values, NumbersAreStoredUnderTheTypeAskedFor) {
  const RegistrySubtree subtree;
  const std::string bytes = "\xFE\xFF\xFF\xFF";
  const struct {
    int type;
    DWORD stored;
  } cases[] = {
      {1, REG_DWORD}, {4, REG_DWORD}, {0, REG_DWORD_BIG_ENDIAN}, {-1, REG_DWORD_BIG_ENDIAN}};
  for (const auto& c : cases) {
    EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), 0xFFFFFFFEul, "number", c.type), 1);
    EXPECT_EQ(subtree.ReadRaw(kUser, "number"), (RegistrySubtree::Value{c.stored, bytes}));
  }
}

TEST(Values, Bytes) {
  const RegistrySubtree subtree;
  const std::string bytes("\0\xFF\0ab", 5);
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), bytes.data(), 5, "bytes"), 1);
  EXPECT_EQ(subtree.ReadRaw(kUser, "bytes"), (RegistrySubtree::Value{REG_BINARY, bytes}));
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), bytes.data(), -1, "bytes"), 0);
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), static_cast<void*>(nullptr), 5, "bytes"), 0);
  EXPECT_EQ(subtree.ReadRaw(kUser, "bytes").bytes, bytes);
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), static_cast<void*>(nullptr), 0, "bytes"), 1);
  EXPECT_EQ(subtree.ReadRaw(kUser, "bytes"), (RegistrySubtree::Value{REG_BINARY, ""}));
}

TEST(Keys, OnlyReadingATextCreatesAMissingOne) {
  const RegistrySubtree subtree;
  const std::string path = subtree / "deep\\key";
  unsigned long number = 7;
  EXPECT_EQ(MRegistry::GetKey(kUser, path.c_str(), number, "name"), 0);
  EXPECT_EQ(number, 7u);
  EXPECT_EQ(MRegistry::DeleteKey(kUser, path.c_str()), 0);
  EXPECT_EQ(MRegistry::KeyExists(kUser, path.c_str()), 0);
  CString text = "old";
  EXPECT_EQ(MRegistry::GetKey(kUser, path.c_str(), text, "name"), 0);
  EXPECT_STREQ(text, "");
  EXPECT_EQ(MRegistry::KeyExists(kUser, path.c_str()), 1);
}

TEST(Keys, AreDeletedWithAllBelow) {
  const RegistrySubtree subtree;
  const std::string key = subtree / "key";
  for (const std::string& path : {key, key + "\\a", key + "\\a\\b", subtree / "neighbour"}) {
    ASSERT_EQ(MRegistry::SetKey(kUser, path.c_str(), "text", "name"), 1);
  }
  EXPECT_EQ(MRegistry::DeleteKeyValue(kUser, key.c_str(), "name"), 1);
  EXPECT_EQ(MRegistry::DeleteKeyValue(kUser, key.c_str(), "name"), 0);
  EXPECT_EQ(MRegistry::KeyExists(kUser, (key + "\\a\\b").c_str()), 1);
  EXPECT_EQ(MRegistry::DeleteKey(kUser, key.c_str()), 1);
  EXPECT_EQ(MRegistry::KeyExists(kUser, key.c_str()), 0);
  EXPECT_EQ(MRegistry::KeyExists(kUser, (subtree / "neighbour").c_str()), 1);
}

TEST(Keys, AWholeRootIsNeverDeleted) {
  const RegistrySubtree subtree;
  const RootInstead instead(kUser, subtree);
  ASSERT_EQ(MRegistry::SetKey(kUser, "key", "text", "name"), 1);
  for (const char* path : {"", "\\", "\\\\", static_cast<const char*>(nullptr)}) {
    const AssertionLog log;
    EXPECT_EQ(MRegistry::DeleteKey(kUser, path), 0);
    EXPECT_TRUE(log.Names("RegistryUtil"));
  }
  EXPECT_EQ(MRegistry::KeyExists(kUser, "key"), 1);
}

TEST(Keys, ThatCannotBeOpened) {
  const RegistrySubtree subtree;
  const std::string tooLong = subtree / std::string(300, 'k');
  const struct {
    HKEY root;
    const char* path;
  } cases[] = {{kUser, tooLong.c_str()},
               {nullptr, subtree.c_str()},
               {reinterpret_cast<HKEY>(0x12345678), subtree.c_str()}};
  for (const auto& c : cases) {
    CString text = "old";
    unsigned long number = 7;
    EXPECT_EQ(MRegistry::SetKey(c.root, c.path, "text", "name"), 0);
    EXPECT_EQ(MRegistry::GetKey(c.root, c.path, text, "name"), 0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(MRegistry::SetKey(c.root, c.path, 1ul, "name", 1), 0);
    EXPECT_EQ(MRegistry::GetKey(c.root, c.path, number, "name"), 0);
    EXPECT_EQ(number, 7u);
    EXPECT_EQ(MRegistry::SetKey(c.root, c.path, "text", 4, "name"), 0);
    EXPECT_EQ(MRegistry::DeleteKeyValue(c.root, c.path, "name"), 0);
    EXPECT_EQ(MRegistry::DeleteKey(c.root, c.path), 0);
    EXPECT_EQ(MRegistry::KeyExists(c.root, c.path), 0);
  }
}

TEST(Keys, AServersHostExpectsOnlyTheMachinesRoot) {
  const RegistrySubtree subtree;
  const AssertionLog log;
  EXPECT_EQ(MRegistry::SetKey(kUser, subtree.c_str(), "text", "name"), 1);
  AssertVerifyTrace::BlockGuiMessages(1);
  EXPECT_EQ(MRegistry::SetKey(HKEY_LOCAL_MACHINE, subtree.c_str(), "text", "name"), 1);
  EXPECT_TRUE(log.Empty());
  CString text;
  EXPECT_EQ(MRegistry::GetKey(kUser, subtree.c_str(), text, "name"), 1);
  EXPECT_STREQ(text, "text");
  EXPECT_TRUE(log.Names("RegistryUtil"));
  AssertVerifyTrace::BlockGuiMessages(0);
}

TEST(Keys, WhereProgramsAreInstalled) {
  const RegistrySubtree subtree;
  EXPECT_TRUE(MRegistry::GetWinProgramBase().Find(":\\") == 1);
  const RootInstead instead(HKEY_LOCAL_MACHINE, subtree);
  EXPECT_STREQ(MRegistry::GetWinProgramBase(), "C:\\Program Files");
  MRegistry::SetKey(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion",
                    "E:\\Programs", "ProgramFilesDir");
  EXPECT_STREQ(MRegistry::GetWinProgramBase(), "E:\\Programs");
}
