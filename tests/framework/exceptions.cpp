// Exceptions: their texts, who deletes them, and the macros.

#include <afx.h>

#include <gtest/gtest.h>

namespace {

class CCountedException : public CException {
  DECLARE_DYNAMIC(CCountedException)
 public:
  CCountedException() { ++alive; }
  ~CCountedException() override { --alive; }
  static inline int alive = 0;
};
IMPLEMENT_DYNAMIC(CCountedException, CException)

// clang-format takes the macros' braces for its own.
// clang-format off
TEST(Exception, CatchMacrosDeleteWhatTheyCaught) {
  const char* caught = "none";
  TRY { THROW(new CCountedException); }
  CATCH(CMemoryException, e) { caught = "memory"; }
  AND_CATCH(CCountedException, e) { caught = "counted"; }
  END_CATCH
  EXPECT_STREQ(caught, "counted");
  EXPECT_EQ(CCountedException::alive, 0);

  TRY {
    TRY { THROW(new CCountedException); }
    CATCH_ALL(e) {
      EXPECT_TRUE(e->IsKindOf(RUNTIME_CLASS(CCountedException)));
      THROW_LAST();
    }
    END_CATCH_ALL
  }
  CATCH(CException, e) {
    EXPECT_EQ(CCountedException::alive, 1);
    caught = "again";
  }
  END_CATCH
  EXPECT_STREQ(caught, "again");
  EXPECT_EQ(CCountedException::alive, 0);
}
// clang-format on

TEST(Exception, TextsFitTheBuffer) {
  struct Case {
    void (*raise)();
    const char* text;
  } const cases[] = {
      {[] { AfxThrowMemoryException(); }, "Out of memory."},
      {[] { AfxThrowNotSupportedException(); }, "An unsupported operation was attempted."},
      {[] { AfxThrowResourceException(); }, "A required resource was unavailable."},
      {[] { AfxThrowUserException(); }, "The operation was ended after a message to the user."},
      {[] { AfxThrowFileException(CFileException::diskFull, -1, "a:\\b"); },
       "Disk full while accessing a:\\b."},
      {[] { AfxThrowFileException(CFileException::endOfFile); },
       "An attempt was made to access an unnamed file past its end."},
      {[] { AfxThrowFileException(999, -1, "x"); },
       "An unspecified error occurred while accessing x."},
  };
  for (const Case& c : cases) {
    try {
      c.raise();
      FAIL() << c.text;
    } catch (CException* e) {
      char text[100], shortText[4];
      EXPECT_TRUE(e->GetErrorMessage(text, sizeof text));
      EXPECT_STREQ(text, c.text);
      EXPECT_TRUE(e->GetErrorMessage(shortText, sizeof shortText));
      EXPECT_EQ(CString(shortText), CString(c.text, 3));
      e->Delete();
    }
  }
  char text[10] = "old";
  CCountedException silent;
  EXPECT_FALSE(silent.GetErrorMessage(text, sizeof text));
  EXPECT_STREQ(text, "");
}

}  // namespace
