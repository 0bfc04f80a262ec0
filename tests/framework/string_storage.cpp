// CString: where characters are kept, shared and written.

#include <afx.h>
#include <oleauto.h>

#include <gtest/gtest.h>

#include "support/CodePage.h"

#include <limits.h>
#include <string.h>

#include <thread>
#include <vector>

#include "support/Allocations.h"

namespace {

LPCTSTR characters(const CString& s) { return s; }

TEST(StringConstruction, FromEveryKindOfText) {
  EXPECT_STREQ(CString(), "");
  EXPECT_STREQ(CString("text"), "text");
  EXPECT_STREQ(CString(static_cast<LPCSTR>(nullptr)), "");
  EXPECT_STREQ(CString(static_cast<LPCWSTR>(nullptr)), "");
  EXPECT_STREQ(CString("text", 2), "te");
  EXPECT_STREQ(CString('x', 3), "xxx");
  EXPECT_STREQ(CString('x', -1), "");
  EXPECT_STREQ(CString((L"d" + LowerLetter()).c_str()), ("d" + Ansi(LowerLetter())).c_str());
  EXPECT_STREQ(CString(L"wide", 2), "wi");
  EXPECT_STREQ(CString(reinterpret_cast<const unsigned char*>("bytes")), "bytes");
  const CString withNull("a\0b", 3);
  EXPECT_EQ(withNull.GetLength(), 3);
  EXPECT_EQ((withNull + withNull).GetLength(), 6);
}

TEST(StringSharing, EveryWriterGetsCharactersOfItsOwn) {
  struct Case {
    const char* name;
    void (*write)(CString&);
    const char* expected;
  } const cases[] = {
      {"SetAt", [](CString& s) { s.SetAt(0, 'x'); }, "x-Text-"},
      {"MakeUpper", [](CString& s) { s.MakeUpper(); }, "--TEXT-"},
      {"MakeLower", [](CString& s) { s.MakeLower(); }, "--text-"},
      {"MakeReverse", [](CString& s) { s.MakeReverse(); }, "-txeT--"},
      {"TrimLeft", [](CString& s) { s.TrimLeft('-'); }, "Text-"},
      {"TrimRight", [](CString& s) { s.TrimRight('-'); }, "--Text"},
      {"Replace", [](CString& s) { s.Replace('-', '+'); }, "++Text+"},
      {"Remove", [](CString& s) { s.Remove('-'); }, "Text"},
      {"Insert", [](CString& s) { s.Insert(2, '['); }, "--[Text-"},
      {"Delete", [](CString& s) { s.Delete(0, 2); }, "Text-"},
      {"+=", [](CString& s) { s += "!"; }, "--Text-!"},
      {"Empty", [](CString& s) { s.Empty(); }, ""},
      {"GetBuffer", [](CString& s) { s.GetBuffer(4)[0] = 'x', s.ReleaseBuffer(4); }, "x-Te"},
      {"AnsiToOem", [](CString& s) { s.AnsiToOem(); }, "--Text-"},
  };
  for (const Case& c : cases) {
    const CString original("--Text-");
    CString copy = original;
    ASSERT_EQ(characters(copy), characters(original));
    c.write(copy);
    EXPECT_STREQ(copy, c.expected) << c.name;
    EXPECT_STREQ(original, "--Text-") << c.name;
  }
}

TEST(StringSharing, CopiesComeAndGoInManyThreads) {
  const CString shared("shared by all threads");
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([&shared] {
      for (int i = 0; i < 20000; ++i) {
        CString copy = shared;
        CString another = copy;
        if (i % 3 == 0) another += 'x';
      }
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_STREQ(shared, "shared by all threads");
}

TEST(StringSharing, LockedCharactersStayPut) {
  CString s("locked");
  LPTSTR buffer = s.LockBuffer();
  CString copy = s;
  EXPECT_NE(characters(copy), characters(s));
  s = CString("abc");  // fits: the characters come to the buffer, not the other way round
  EXPECT_EQ(characters(s), buffer);
  EXPECT_STREQ(buffer, "abc");
  s.UnlockBuffer();
  const CString sharing = s;
  EXPECT_EQ(characters(sharing), characters(s));
  EXPECT_STREQ(copy, "locked");
}

TEST(StringAliasing, ArgumentsMayLieInTheStringItself) {
  CString s("abc");
  s += s;
  EXPECT_STREQ(s, "abcabc");
  s += characters(s) + 4;
  EXPECT_STREQ(s, "abcabcbc");
  s = characters(s) + 5;
  EXPECT_STREQ(s, "cbc");
  s = s;
  s = s.Mid(1) + s;
  EXPECT_STREQ(s, "bccbc");
  s.Insert(1, s);
  EXPECT_STREQ(s, "bbccbcccbc");
  s = "a.b";
  EXPECT_EQ(s.Replace(characters(s) + 1, s), 1);  // ".b" by "a.b"
  EXPECT_STREQ(s, "aa.b");
}

TEST(StringGrowth, AppendingReusesItsRoom) {
  CString s;
  int moves = 0;
  for (int i = 0; i < 1'000'000; ++i) {
    LPCTSTR before = s;
    s += static_cast<char>('a' + i % 26);
    moves += characters(s) != before;
  }
  EXPECT_EQ(s.GetLength(), 1'000'000);
  EXPECT_EQ(s[999'999], 'a' + 999'999 % 26);
  EXPECT_LT(moves, 60);
  s.FreeExtra();
  EXPECT_EQ(s.GetLength(), 1'000'000);
}

TEST(StringBuffer, LengthsAreTakenFromWhatWasWritten) {
  CString s("abc");
  strcpy(s.GetBuffer(100), "written");
  s.ReleaseBuffer();
  EXPECT_EQ(s.GetLength(), 7);
  s.GetBuffer(0);
  s.ReleaseBuffer(2);
  EXPECT_STREQ(s, "wr");
  memcpy(s.GetBufferSetLength(5), "12345", 5);
  EXPECT_STREQ(s, "12345");
  CString empty;
  empty.GetBuffer(0);
  empty.ReleaseBuffer();
  EXPECT_STREQ(empty, "");
}

TEST(StringMemory, WhatDoesNotFitThrowsAndChangesNothing) {
  CString s("kept");
  EXPECT_THROW(s.GetBuffer(INT_MAX), CMemoryException*);
  EXPECT_THROW(CString("text", INT_MAX), CMemoryException*);
  EXPECT_THROW(CString('x', INT_MAX), CMemoryException*);
  EXPECT_STREQ(s, "kept");
}

TEST(StringMemory, ACallThatFailsChangesNothing) {
  void (*const calls[])(CString&) = {
      [](CString& s) { s = "another text, which needs room of its own"; },
      [](CString& s) { s = L"another text"; },
      [](CString& s) { s += "more"; },
      [](CString& s) { s = s + "more"; },
      [](CString& s) { s.SetAt(0, 'x'); },
      [](CString& s) { s.MakeUpper(); },
      [](CString& s) { s.TrimLeft('-'); },
      [](CString& s) { s.Replace("-", "+-+"); },
      [](CString& s) { s.Remove('-'); },
      [](CString& s) { s.Insert(2, "["); },
      [](CString& s) { s.Delete(0, 2); },
      [](CString& s) { s.Format("%s%1000d", static_cast<LPCTSTR>(s), 1); },
      [](CString& s) { s.FormatMessage("<%1>", static_cast<LPCTSTR>(s)); },
      [](CString& s) { s.GetBuffer(1000); },
      [](CString& s) { s.LockBuffer(); },
  };
  for (const auto call : calls) {
    const CString original("--Text-");
    for (unsigned n = 1;; ++n) {
      CString s = original;
      bool threw = false, happened;
      {
        allocations::FailNth failure(n);
        try {
          call(s);
        } catch (CMemoryException* e) {
          e->Delete();
          threw = true;
        }
        happened = failure.Happened();
      }
      EXPECT_EQ(threw, happened) << &call - calls;
      if (!happened) break;
      EXPECT_STREQ(s, original) << &call - calls;
    }
  }
}

TEST(StringSystemString, GoesThereAndBack) {
  const CString s((Ansi(LowerLetter()) + " vu").c_str());
  BSTR text = s.AllocSysString();
  EXPECT_STREQ(CString(text), s);
  CString("other").SetSysString(&text);
  EXPECT_STREQ(CString(text), "other");
  SysFreeString(text);
}

}  // namespace
