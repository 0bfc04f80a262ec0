#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "controls/ControlTest.h"
#include "controls/Pixels.h"
#include "windows/GuiObjects.h"

namespace {

using Gdi = ControlTest;

// Makes and ends an object of every kind.
void useObjects(CWnd& window, HFONT stranger) {
  CPen pen(PS_SOLID, 2, kRed);
  CFont font, again;
  EXPECT_TRUE(font.CreatePointFont(120, "Arial"));
  EXPECT_TRUE(again.Attach(stranger));
  EXPECT_EQ(again.Detach(), stranger);
  CBitmap bitmap;
  EXPECT_TRUE(bitmap.CreateBitmap(8, 8, 1, 1, nullptr));
  CBrush brush(kGreen), hatched(HS_CROSS, kGreen), pattern(&bitmap);
  {
    Canvas canvas;
    CPen* const penBefore = canvas.SelectObject(&pen);
    CFont* const fontBefore = canvas.SelectObject(CFont::FromHandle(stranger));
    EXPECT_EQ(canvas.GetCurrentPen(), &pen);
    canvas.Rectangle(CRect(1, 1, 20, 20));
    canvas.SelectObject(penBefore);
    canvas.SelectObject(fontBefore);
  }
  CClientDC client(&window);
  CWindowDC whole(&window);
  window.ReleaseDC(window.GetDC());
  CGdiObject::DeleteTempMap();
  CDC::DeleteTempMap();
}

TEST_F(Gdi, ObjectsDeleteWhatTheyHoldAndNothingElse) {
  const HFONT stranger = ::CreateFontA(20, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, "Arial");
  useObjects(m_parent, stranger);  // the system keeps some of what it makes for the first time
  const int before = GdiObjects();
  for (int i = 0; i < 100; ++i) useObjects(m_parent, stranger);
  EXPECT_LE(GdiObjects(), before);
  EXPECT_TRUE(::DeleteObject(stranger)) << "a temporary object has deleted it";
}

TEST_F(Gdi, FromHandleFindsTheObjectOfTheThread) {
  CPen pen(PS_DASH, 1, kRed);
  EXPECT_EQ(CPen::FromHandle(pen), &pen);
  EXPECT_EQ(CPen::FromHandle(nullptr), nullptr);
  CPen* elsewhere = nullptr;
  std::thread([&] {
    elsewhere = CPen::FromHandle(pen);
    EXPECT_NE(elsewhere, &pen);
    EXPECT_EQ(elsewhere->m_hObject, pen.m_hObject);
  }).join();

  // Temporary objects are of the class that fits the handle, and one a handle.
  CGdiObject* const stock = CGdiObject::FromHandle(::GetStockObject(SYSTEM_FONT));
  EXPECT_TRUE(stock->IsKindOf(RUNTIME_CLASS(CFont)));
  EXPECT_EQ(CGdiObject::FromHandle(::GetStockObject(SYSTEM_FONT)), stock);

  const HGDIOBJ handle = pen.Detach();
  CPen* const temporary = CPen::FromHandle(static_cast<HPEN>(handle));
  EXPECT_NE(temporary, &pen);
  LOGPEN description;
  EXPECT_NE(temporary->GetLogPen(&description), 0);
  EXPECT_EQ(description.lopnColor, kRed);
  CPen other;
  other.Attach(handle);
  EXPECT_EQ(CPen::FromHandle(static_cast<HPEN>(handle)), &other);
}

TEST_F(Gdi, ConstructorsThrowWhenNothingIsMade) {
  CWnd* const none = CWnd::FromHandle(reinterpret_cast<HWND>(0x7FFE));
  bool thrown = false;
  try {
    CClientDC context(none);
  } catch (CResourceException* e) {
    e->Delete();
    thrown = true;
  }
  EXPECT_TRUE(thrown);
  CBitmap bitmap;
  EXPECT_FALSE(bitmap.LoadBitmap("no such bitmap"));
  EXPECT_EQ(bitmap.GetSafeHandle(), nullptr);
}

TEST_F(Gdi, ShapesCoverTheirPixels) {
  struct {
    const char* name;
    void (*draw)(Canvas&);
    CRect expected;
  } const shapes[] = {
      {"FillSolidRect", [](Canvas& c) { c.FillSolidRect(5, 6, 7, 8, kRed); }, {5, 6, 12, 14}},
      {"Draw3dRect",
       [](Canvas& c) { c.Draw3dRect(CRect(3, 3, 13, 13), kRed, kBlue); },
       {3, 3, 12, 12}},
  };
  for (const auto& shape : shapes) {
    Canvas canvas;
    shape.draw(canvas);
    EXPECT_EQ(canvas.Find(kRed), shape.expected) << shape.name;
  }
}

TEST_F(Gdi, ATextThatIsDrawnCutShortStaysAsItIs) {
  Canvas canvas(200, 40);
  const CString path("c:\\a folder\\with a rather long name\\file.txt");
  const CString copy = path;
  CRect narrow(0, 0, 60, 40);
  canvas.DrawText(path, &narrow, DT_PATH_ELLIPSIS | DT_MODIFYSTRING | DT_SINGLELINE);
  EXPECT_EQ(text(copy), "c:\\a folder\\with a rather long name\\file.txt");
}

// A window that paints itself, and counts how often.
class Painted : public CWnd {
 public:
  std::vector<CRect> painted;

 protected:
  afx_msg void OnPaint() {
    CPaintDC dc(this);
    painted.push_back(dc.m_ps.rcPaint);
    EXPECT_EQ(CDC::FromHandle(dc), &dc);
    EXPECT_EQ(dc.GetWindow(), this);
    dc.FillSolidRect(painted.back(), kBlue);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Painted, CWnd)
ON_WM_PAINT()
END_MESSAGE_MAP()

TEST_F(Gdi, PaintingValidates) {
  Painted window;
  ASSERT_TRUE(window.Create(nullptr, "", WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  window.UpdateWindow();
  window.painted.clear();
  window.InvalidateRect(CRect(2, 3, 9, 8));
  window.UpdateWindow();
  EXPECT_EQ(window.painted, std::vector<CRect>{CRect(2, 3, 9, 8)});
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
  CClientDC dc(&window);
  EXPECT_EQ(dc.GetPixel(4, 4), kBlue);
}

}  // namespace
