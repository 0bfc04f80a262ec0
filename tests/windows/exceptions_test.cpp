// Exceptions that a handler lets out stop at the window's border.
#include <afxwin.h>

#include <stdexcept>
#include <string>

#include "windows/BoxAnswer.h"
#include "windows/Steps.h"

namespace {

constexpr UINT kThrow = WM_USER + 1;
using Throw = void (*)();

class Thrower : public CWnd {
 public:
  int paints = 0;
  bool Make() { return CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 50, 50), nullptr, 0); }
  LRESULT Send(Throw raise) { return SendMessage(kThrow, reinterpret_cast<WPARAM>(raise)); }

 protected:
  afx_msg void OnPaint() {
    ++paints;
    AfxThrowUserException();
  }
  afx_msg LRESULT OnThrow(WPARAM raise, LPARAM) {
    reinterpret_cast<Throw>(raise)();
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Thrower, CWnd)
ON_WM_PAINT()
ON_MESSAGE(kThrow, &Thrower::OnThrow)
END_MESSAGE_MAP()

class Exceptions : public WindowTest {};

}  // namespace

TEST_F(Exceptions, AreShownToTheUserUnlessTheyAreTheUsers) {
  Thrower window;
  ASSERT_TRUE(window.Make());
  const struct {
    Throw raise;
    const char* text;
  } cases[] = {
      {[] { AfxThrowNotSupportedException(); }, "An unsupported operation was attempted."},
      {[] { throw "the text"; }, "the text"},
      {[] { throw std::runtime_error("the reason"); }, "the reason"},
      {[] { throw 1; }, "An unknown error occurred."},
  };
  for (const auto& c : cases) {
    BoxAnswer box(IDOK);
    EXPECT_EQ(window.Send(c.raise), 0);
    EXPECT_EQ(box.text, c.text);
  }
  EXPECT_EQ(window.Send([] { AfxThrowUserException(); }), 0);
}

TEST_F(Exceptions, ProgramMayTakeThem) {
  class App : public CWinApp {
   public:
    App() : CWinApp("exceptions") {}
    LRESULT ProcessWndProcException(CException* e, const MSG* message) override {
      isUnsupported = e->IsKindOf(RUNTIME_CLASS(CNotSupportedException));
      last = message->message;
      return 5;
    }
    bool isUnsupported = false;
    UINT last = 0;
  } app;
  Thrower window;
  ASSERT_TRUE(window.Make());
  EXPECT_EQ(window.Send([] { AfxThrowNotSupportedException(); }), 5);
  EXPECT_TRUE(app.isUnsupported);
  EXPECT_EQ(app.last, kThrow);
}

// The system asks for a painting until it is done.
TEST_F(Exceptions, DoNotPaintForEver) {
  Thrower window;
  ASSERT_TRUE(window.Make());
  window.ShowWindow(SW_SHOWNOACTIVATE);
  window.Invalidate();
  window.UpdateWindow();
  EXPECT_EQ(window.paints, 1);
  EXPECT_FALSE(window.GetUpdateRect(nullptr));
}
