// Scrambled texts.
#include "settings/RegistryUtil.h"

#include <gtest/gtest.h>

#include <random>

TEST(Scrambling, GivesEveryTextBack) {
  std::mt19937 random(1);
  for (int i = 0; i < 3000; ++i) {
    std::string text(i < 300 ? i % 30 : random() % 300, 0);
    for (char& c : text) c = static_cast<char>(1 + random() % 255);
    if (i % 3 == 0) std::fill(text.begin(), text.end(), static_cast<char>(1 + i % 255));
    const CString scrambled = MRegistry::EncriptStr(text.c_str());
    EXPECT_EQ(scrambled.GetLength(), static_cast<int>(3 + (text.size() * 8 + 5) / 6));
    EXPECT_EQ(
        scrambled.SpanIncluding("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_"),
        scrambled);
    EXPECT_EQ(std::string(MRegistry::DescriptStr(scrambled)), text);
  }
  EXPECT_STREQ(MRegistry::DescriptStr(MRegistry::EncriptStr(nullptr)), "");
}

// Files and registries out there hold such texts.
TEST(Scrambling, TextsOfEarlierVersionsStayReadable) {
  EXPECT_STREQ(MRegistry::DescriptStr("T_O_c4rDb-68C19NLQpkBI"), "A secret, \xE9t\xE9!");
}

TEST(Scrambling, OtherTextsGiveAnEmptyOne) {
  for (const char* text : {"", "A", "AB", "plain text", "AAAA", "AAAAAAAA", "]]>", "password"}) {
    EXPECT_STREQ(MRegistry::DescriptStr(text), "") << text;
  }
  EXPECT_STREQ(MRegistry::DescriptStr(nullptr), "");
  // One character changed, missing or too much.
  const std::string sound(MRegistry::EncriptStr("password"));
  std::mt19937 random(2);
  int unnoticed = 0;
  for (int i = 0; i < 4096; ++i) {
    std::string damaged = sound;
    const size_t place = random() % damaged.size();
    switch (i % 3) {
      case 0:
        damaged[place] = static_cast<char>('a' + random() % 26);
        break;
      case 1:
        damaged.erase(place);
        break;
      default:
        damaged.insert(place, 1, "A]~\x80"[random() % 4]);
        break;
    }
    unnoticed += damaged != sound && !MRegistry::DescriptStr(damaged.c_str()).IsEmpty();
  }
  EXPECT_LE(unnoticed, 8);
}
