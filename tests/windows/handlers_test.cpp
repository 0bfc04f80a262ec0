// Message maps: which handler gets a message, and what it gets.
#include <afxwin.h>

#include <functional>
#include <sstream>
#include <string>

#include "windows/Steps.h"

namespace {

class Handlers : public WindowTest {};

const UINT kRegistered = RegisterWindowMessage("orvane test message");
constexpr UINT kPrivate = WM_USER + 7;

std::string text(const CPoint& point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

// Writes down what its handlers get.
class Recorder : public CWnd {
 public:
  Recorder() {
    CreateEx(0, nullptr, "Recorder", WS_POPUP | WS_HSCROLL, CRect(0, 0, 200, 100), nullptr, 0);
    log.clear();
  }
  ~Recorder() override { DestroyWindow(); }
  std::string Take(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    log.clear();
    SendMessage(message, wParam, lParam);
    return std::exchange(log, {});
  }
  std::string log;

 protected:
  template <class... Values>
  void Note(const char* name, const Values&... values) {
    std::ostringstream out;
    out << name;
    ((out << ' ' << values), ...);
    log += (log.empty() ? "" : "; ") + out.str();
  }

  afx_msg void OnSize(UINT type, int cx, int cy) { Note("size", type, cx, cy); }
  afx_msg void OnMove(int x, int y) { Note("move", x, y); }
  afx_msg void OnTimer(UINT_PTR id) { Note("timer", id); }
  afx_msg void OnKeyDown(UINT key, UINT count, UINT flags) { Note("key", key, count, flags); }
  afx_msg void OnMouseMove(UINT flags, CPoint point) { Note("mouse", flags, text(point)); }
  afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point) {
    Note("wheel", flags, delta, text(point));
    return TRUE;
  }
  afx_msg UINT OnNcHitTest(CPoint point) {
    Note("hit", text(point));
    return HTCAPTION;
  }
  afx_msg void OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
    Note("hscroll", code, pos, bar == nullptr);
  }
  afx_msg void OnContextMenu(CWnd* window, CPoint point) {
    Note("context", window == this, text(point));
  }
  afx_msg void OnActivate(UINT state, CWnd* other, BOOL minimized) {
    Note("activate", state, other == this, minimized);
  }
  afx_msg void OnShowWindow(BOOL show, UINT status) { Note("show", show, status); }
  afx_msg BOOL OnSetCursor(CWnd* window, UINT hitTest, UINT message) {
    Note("cursor", window == this, hitTest, message);
    return TRUE;
  }
  afx_msg void OnMenuSelect(UINT id, UINT flags, HMENU menu) {
    Note("select", id, flags, menu == nullptr);
  }
  afx_msg void OnSettingChange(UINT flags, LPCTSTR section) { Note("setting", flags, section); }
  afx_msg LRESULT OnPrivate(WPARAM wParam, LPARAM lParam) {
    Note("private", wParam, lParam);
    return 42;
  }
  afx_msg LRESULT OnRegistered(WPARAM wParam, LPARAM lParam) {
    Note("registered", wParam, lParam);
    return 0;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Recorder, CWnd)
ON_WM_SIZE()
ON_WM_MOVE()
ON_WM_TIMER()
ON_WM_KEYDOWN()
ON_WM_MOUSEMOVE()
ON_WM_MOUSEWHEEL()
ON_WM_NCHITTEST()
ON_WM_HSCROLL()
ON_WM_CONTEXTMENU()
ON_WM_ACTIVATE()
ON_WM_SHOWWINDOW()
ON_WM_SETCURSOR()
ON_WM_MENUSELECT()
ON_WM_SETTINGCHANGE()
ON_MESSAGE(kPrivate, &Recorder::OnPrivate)
ON_REGISTERED_MESSAGE(kRegistered, &Recorder::OnRegistered)
END_MESSAGE_MAP()

WPARAM words(int low, int high) {
  return static_cast<WPARAM>(MAKELONG(static_cast<WORD>(low), static_cast<WORD>(high)));
}
LPARAM longOf(int low, int high) { return static_cast<LPARAM>(words(low, high)); }

}  // namespace

TEST_F(Handlers, GetTheirPartsOfTheMessage) {
  Recorder window;
  const auto self = reinterpret_cast<LPARAM>(window.m_hWnd);
  const auto selfW = reinterpret_cast<WPARAM>(window.m_hWnd);
  const struct {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    const char* expected;
  } cases[] = {
      {WM_SIZE, SIZE_MAXIMIZED, longOf(40000, 30), "size 2 40000 30"},
      {WM_MOVE, 0, longOf(-5, 7), "move -5 7"},
      {WM_TIMER, 55, 0, "timer 55"},
      {WM_KEYDOWN, VK_F5, longOf(2, 0x4001), "key 116 2 16385"},
      {WM_MOUSEMOVE, MK_CONTROL, longOf(-3, -4), "mouse 8 -3,-4"},
      {WM_MOUSEWHEEL, words(MK_SHIFT, -120), longOf(-1, 2), "wheel 4 -120 -1,2"},
      {WM_NCHITTEST, 0, longOf(-10, 20), "hit -10,20"},
      {WM_HSCROLL, words(SB_THUMBTRACK, 321), 0, "hscroll 5 321 1"},
      {WM_HSCROLL, words(SB_LINEDOWN, 0), self, "hscroll 1 0 0"},
      {WM_CONTEXTMENU, selfW, -1, "context 1 -1,-1"},
      {WM_ACTIVATE, words(WA_CLICKACTIVE, 1), self, "activate 2 1 1"},
      {WM_SHOWWINDOW, TRUE, SW_PARENTOPENING, "show 1 3"},
      {WM_SETCURSOR, selfW, longOf(HTBORDER, WM_MOUSEMOVE), "cursor 1 18 512"},
      {WM_MENUSELECT, words(100, MF_POPUP), 0, "select 100 16 1"},
      {WM_SETTINGCHANGE, 9, reinterpret_cast<LPARAM>("intl"), "setting 9 intl"},
      {kPrivate, 1, -2, "private 1 -2"},
      {kRegistered, 3, 4, "registered 3 4"},
      {kPrivate + 1, 1, 2, ""},
      {RegisterWindowMessage("another message"), 1, 2, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(window.Take(c.message, c.wParam, c.lParam), c.expected) << c.message;
  }
  EXPECT_EQ(window.SendMessage(WM_NCHITTEST), HTCAPTION);
  EXPECT_EQ(window.SendMessage(kPrivate), 42);
}

namespace {

// A class derived from one with handlers, in two steps: the middle one has none of its own.
class Middle : public Recorder {};
class Derived : public Middle {
 public:
  bool passOn = true;

 protected:
  afx_msg void OnTimer(UINT_PTR id) {
    Note("derived", id);
    if (passOn) Middle::OnTimer(id);
  }
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_TIMER) Note("first");
    return Middle::WindowProc(message, wParam, lParam);
  }
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == kPrivate + 2) Note("last");
    return Middle::DefWindowProc(message, wParam, lParam);
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Derived, Middle)
ON_WM_TIMER()
END_MESSAGE_MAP()

}  // namespace

TEST_F(Handlers, DerivedClassesComeFirstAndPassOn) {
  Derived window;
  EXPECT_EQ(window.Take(WM_TIMER, 1), "first; derived 1; timer 1");
  window.passOn = false;
  EXPECT_EQ(window.Take(WM_TIMER, 2), "first; derived 2");
  EXPECT_EQ(window.Take(WM_MOVE, 0, longOf(1, 2)), "move 1 2");
  EXPECT_EQ(window.Take(kPrivate + 2), "last");
}

namespace {

// Refuses to be created, in one way or another.
class Refused : public CWnd {
 public:
  enum How { kOnCreate, kPreCreate, kNcCreate, kException };
  explicit Refused(How how) : m_how(how) {}
  int ends = 0;
  bool Make() { return CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0); }

 protected:
  BOOL PreCreateWindow(CREATESTRUCT& cs) override {
    return m_how != kPreCreate && CWnd::PreCreateWindow(cs);
  }
  afx_msg BOOL OnNcCreate(LPCREATESTRUCT cs) { return m_how != kNcCreate && CWnd::OnNcCreate(cs); }
  afx_msg int OnCreate(LPCREATESTRUCT) {
    if (m_how == kException) AfxThrowResourceException();
    return -1;
  }
  void PostNcDestroy() override { ++ends; }
  DECLARE_MESSAGE_MAP()

 private:
  How m_how;
};

BEGIN_MESSAGE_MAP(Refused, CWnd)
ON_WM_NCCREATE()
ON_WM_CREATE()
END_MESSAGE_MAP()

}  // namespace

TEST_F(Handlers, RefusedCreationEndsOnce) {
  for (const auto how :
       {Refused::kOnCreate, Refused::kPreCreate, Refused::kNcCreate, Refused::kException}) {
    Refused window(how);
    EXPECT_FALSE(window.Make()) << how;
    EXPECT_EQ(window.m_hWnd, nullptr) << how;
    EXPECT_EQ(window.ends, 1) << how;
  }
}
