// Extension libraries in the program: their resources, classes and exceptions.

#include <afxwin.h>

#include <gtest/gtest.h>

#include <memory>

#include "framework/test_strings.h"

namespace {

class CProgramThing : public CObject {
  DECLARE_DYNCREATE(CProgramThing)
};
IMPLEMENT_DYNCREATE(CProgramThing, CObject)

class CProgramSubThing : public CProgramThing {
  DECLARE_DYNAMIC(CProgramSubThing)
};
IMPLEMENT_DYNAMIC(CProgramSubThing, CProgramThing)

TEST(RuntimeClass, KnowsItsNameAndBases) {
  CProgramSubThing thing;
  CObject* object = &thing;
  EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "CProgramSubThing");
  EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_EQ(DYNAMIC_DOWNCAST(CProgramThing, object), &thing);
  EXPECT_EQ(DYNAMIC_DOWNCAST(CFile, object), nullptr);
  EXPECT_EQ(DYNAMIC_DOWNCAST(CFile, static_cast<CObject*>(nullptr)), nullptr);
}

TEST(RuntimeClass, MakesObjectsByName) {
  EXPECT_EQ(CRuntimeClass::FromName("CFile"), RUNTIME_CLASS(CFile));
  EXPECT_EQ(CRuntimeClass::FromName("CNoSuchThing"), nullptr);
  const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CProgramThing"));
  ASSERT_NE(object, nullptr);
  EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CProgramThing)));
  EXPECT_EQ(CRuntimeClass::CreateObject("CProgramSubThing"), nullptr);
}

// A loaded library, unloaded at the end.
class Library {
 public:
  explicit Library(LPCSTR name) : m_handle(LoadLibrary(name)) { EXPECT_NE(m_handle, nullptr); }
  ~Library() { FreeLibrary(m_handle); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;

  HMODULE Handle() const { return m_handle; }
  template <class Function>
  Function* Get(LPCSTR name) const {
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(m_handle, name)));
  }

 private:
  HMODULE m_handle;
};

CString loaded(UINT id) {
  CString text("old");
  const BOOL found = text.LoadString(id);
  EXPECT_EQ(found, !text.IsEmpty());
  return text;
}

HINSTANCE moduleOf(UINT stringId) {
  return AfxFindResourceHandle(MAKEINTRESOURCE(stringId / 16 + 1), RT_STRING);
}

TEST(ExtensionModule, ComesAndGoesWithItsResourcesAndClasses) {
  for (int time = 0; time < 3; ++time) {
    EXPECT_STREQ(loaded(2000), "");
    EXPECT_EQ(CRuntimeClass::FromName("CInnerThing"), nullptr);
    {
      Library inner("extension_inner.dll");
      EXPECT_STREQ(loaded(2000), "the inner library's 2000");
      EXPECT_EQ(moduleOf(2000), inner.Handle());
      const std::unique_ptr<CObject> thing(CRuntimeClass::CreateObject("CInnerThing"));
      EXPECT_NE(thing, nullptr);
      EXPECT_EQ(CRuntimeClass::FromName("CProgramThing"), RUNTIME_CLASS(CProgramThing));
    }
  }
  EXPECT_STREQ(loaded(2000), "");
  EXPECT_EQ(moduleOf(2000), AfxGetResourceHandle());
}

TEST(ExtensionModule, TheProgramIsAskedFirstAndTheLatestLibraryNext) {
  Library inner("extension_inner.dll");
  EXPECT_STREQ(loaded(1001), "%s and %d");
  EXPECT_STREQ(loaded(1002), "the inner library's 1002");  // the program has others of its block
  EXPECT_STREQ(loaded(1003), "the inner library's 1003");
  {
    Library outer("extension_outer.dll");
    EXPECT_STREQ(loaded(1003), "the outer library's 1003");
    EXPECT_STREQ(loaded(1002), "the inner library's 1002");
  }
  AfxSetResourceHandle(inner.Handle());
  EXPECT_STREQ(loaded(1001), "the inner library's 1001");
  EXPECT_EQ(AfxGetResourceHandle(), inner.Handle());
  AfxSetResourceHandle(nullptr);
  EXPECT_EQ(AfxGetResourceHandle(), GetModuleHandle(nullptr));
}

// The outer library loads the inner one between its own classes.
TEST(ExtensionModule, LoadingInsideOfLoadingKeepsClassesApart) {
  {
    Library outer("extension_outer.dll");
    for (LPCSTR name : {"COuterFirst", "COuterLast", "CInnerThing"})
      EXPECT_NE(CRuntimeClass::FromName(name), nullptr) << name;
    const auto* record = outer.Get<const AFX_EXTENSION_MODULE*()>("Record")();
    CString names;
    for (CRuntimeClass* c = record->pFirstSharedClass; c != nullptr; c = c->m_pNextClass)
      names += CString(c->m_lpszClassName) + " ";
    EXPECT_STREQ(names, "COuterLast COuterFirst ");
  }
  for (LPCSTR name : {"COuterFirst", "COuterLast", "CInnerThing"})
    EXPECT_EQ(CRuntimeClass::FromName(name), nullptr) << name;
}

TEST(ExtensionModule, ALibraryThatRefusesToLoadLeavesNothingBehind) {
  EXPECT_EQ(LoadLibrary("extension_refusing.dll"), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName("CRefusingThing"), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName("CProgramThing"), RUNTIME_CLASS(CProgramThing));
  Library inner("extension_inner.dll");
  EXPECT_NE(CRuntimeClass::FromName("CInnerThing"), nullptr);
}

TEST(ExtensionModule, ExceptionsCrossTheBorder) {
  Library inner("extension_inner.dll");
  EXPECT_THROW(inner.Get<void()>("ThrowOutOfMemory")(), CMemoryException*);
  try {
    inner.Get<void()>("ThrowNoFile")();
    FAIL();
  } catch (CFileException* e) {
    EXPECT_EQ(e->m_cause, CFileException::badPath);
    e->Delete();
  }
  // The program knows only the base of this one's class.
  try {
    inner.Get<void()>("ThrowOwnException")();
    FAIL();
  } catch (CUserException* e) {
    EXPECT_STREQ(e->GetRuntimeClass()->m_lpszClassName, "CInnerException");
    e->Delete();
  }
}

TEST(Resources, StringsOfAnyLengthAreLoadedWhole) {
  const CString text = loaded(kLongId);
  EXPECT_EQ(text.GetLength(), 1100);
  EXPECT_STREQ(text.Right(11), "long text, ");
  char shortText[5];
  EXPECT_EQ(AfxLoadString(kLongId, shortText, 5), 4);
  EXPECT_STREQ(shortText, "long");
  EXPECT_EQ(AfxLoadString(kMissingId, shortText, 5), 0);
  EXPECT_STREQ(shortText, "");
  EXPECT_EQ(CString(MAKEINTRESOURCE(kLongId)), text);
}

TEST(Resources, InsertsGoIntoTexts) {
  CString text;
  AfxFormatString2(text, kTwoInsertsId, "%2", "B");
  EXPECT_STREQ(text, "B 100% of %2, %3");  // what is put in is not looked at again
  AfxFormatString1(text, kTwoInsertsId, nullptr);
  EXPECT_STREQ(text, "%2 100% of , %3");
  AfxFormatString1(text, kMissingId, "A");
  EXPECT_STREQ(text, "");
}

TEST(Resources, TextsAreSplitAtSeparators) {
  CString part;
  EXPECT_TRUE(AfxExtractSubString(part, "a\n\nc", 0));
  EXPECT_STREQ(part, "a");
  EXPECT_TRUE(AfxExtractSubString(part, "a\n\nc", 1));
  EXPECT_STREQ(part, "");
  EXPECT_TRUE(AfxExtractSubString(part, "a,b", 1, ','));
  EXPECT_STREQ(part, "b");
  EXPECT_FALSE(AfxExtractSubString(part, "a,b", 2, ','));
  EXPECT_STREQ(part, "");
  EXPECT_FALSE(AfxExtractSubString(part, nullptr, 0));
}

}  // namespace
