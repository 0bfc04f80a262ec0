// Exceptions: their texts and causes.

#include <afx.h>

#include <gtest/gtest.h>

#include <errno.h>

namespace {

class CSilentException : public CException {
  DECLARE_DYNAMIC(CSilentException)
};
IMPLEMENT_DYNAMIC(CSilentException, CException)

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
  CSilentException silent;
  EXPECT_FALSE(silent.GetErrorMessage(text, sizeof text));
  EXPECT_STREQ(text, "");
}

TEST(Exception, CausesFollowTheSystemsErrors) {
  EXPECT_EQ(CFileException::OsErrorToException(NO_ERROR), CFileException::none);
  EXPECT_EQ(CFileException::OsErrorToException(ERROR_DISK_FULL), CFileException::diskFull);
  EXPECT_EQ(CFileException::OsErrorToException(ERROR_WRITE_PROTECT), CFileException::accessDenied);
  EXPECT_EQ(CFileException::OsErrorToException(123456), CFileException::genericException);
  EXPECT_EQ(CFileException::ErrnoToException(ENOENT), CFileException::fileNotFound);
  EXPECT_EQ(CFileException::ErrnoToException(ENOSPC), CFileException::diskFull);
  EXPECT_EQ(CFileException::ErrnoToException(12345), CFileException::genericException);
}

}  // namespace
