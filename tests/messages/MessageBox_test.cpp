// Message boxes: their lines, check boxes, buttons, sizes, and what they leave behind.
#include "messages/MessageBox.h"

#include <gtest/gtest.h>

#include "dialogs/Driver.h"
#include "support/AssertionLog.h"
#include "support/LongRun.h"
#include "support/RunProgram.h"

namespace {

constexpr int kFirst = MDialog::kFirstId;

CRect placeOf(HWND window) {
  CRect place;
  ::GetWindowRect(window, &place);
  return place;
}

std::vector<HWND> controlsOf(HWND window) {
  std::vector<HWND> controls;
  for (HWND each = ::GetWindow(window, GW_CHILD); each != nullptr;
       each = ::GetWindow(each, GW_HWNDNEXT)) {
    controls.push_back(each);
  }
  return controls;
}

std::string classOf(HWND window) {
  char name[16] = "";
  ::GetClassName(window, name, sizeof name);
  return name;
}

bool showsWholeText(HWND control) {
  const std::string name = classOf(control);
  return name == "Edit" || ShowsWholeText(control, DT_WORDBREAK | DT_EDITCONTROL |
                                                       (name == "Static" ? DT_NOPREFIX : 0));
}

// The box is on the screen, its controls are inside, apart, and show their texts whole, and the
// buttons are in the middle.
void expectLayout(HWND window) {
  CRect area, inside, common;
  ::SystemParametersInfo(SPI_GETWORKAREA, 0, &area, 0);
  EXPECT_EQ(placeOf(window) & area, placeOf(window));
  ::GetClientRect(window, &inside);
  ::MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
  const std::vector<HWND> controls = controlsOf(window);
  for (size_t i = 0; i < controls.size(); ++i) {
    const CRect place = placeOf(controls[i]);
    const std::string text = Driver::TextOf(controls[i]).substr(0, 40);
    EXPECT_EQ(place & inside, place) << text;
    EXPECT_TRUE(showsWholeText(controls[i])) << text;
    for (size_t j = 0; j < i; ++j) {
      // Lines may share a row of pixels.
      if (!common.IntersectRect(place, placeOf(controls[j]))) continue;
      EXPECT_LE(common.Height(), 1) << text;
    }
  }
  CRect row = placeOf(::GetDlgItem(window, IDOK));
  if (const HWND second = ::GetDlgItem(window, IDCANCEL)) row |= placeOf(second);
  EXPECT_NEAR(row.CenterPoint().x, inside.CenterPoint().x, 2);
}

CString lines(int count, const char* line) {
  CString text;
  for (int i = 0; i < count; ++i) text += CString(i == 0 ? "" : "\r\n") + line;
  return text;
}

}  // namespace

TEST(MessageLayout, ButtonsOfEveryStyle) {
  const struct {
    MMessageBox::MessageButtonStyle style;
    const char* labels[2];
  } styles[] = {{MMessageBox::MB_STYLE_OK, {"  OK  ", nullptr}},
                {MMessageBox::MB_STYLE_OK_CANCEL, {"  OK  ", " Cancel "}},
                {MMessageBox::MB_STYLE_OK_STOP, {"  OK  ", " Stop "}},
                {MMessageBox::MB_STYLE_YES_NO, {"  Yes  ", "  No  "}},
                {MMessageBox::MB_STYLE_OK_RETRY, {"  OK  ", " Retry "}}};
  for (const auto& c : styles) {
    MMessageBox box("Title", "text");
    box.SetButtonStyle(c.style);
    box.SetIcon(IDI_HAND);
    const auto look = [&](HWND window) {
      expectLayout(window);
      EXPECT_EQ(Driver::TextOf(window), "Title");
      EXPECT_EQ(Driver::TextOf(::GetDlgItem(window, IDOK)), c.labels[0]);
      if (c.labels[1] == nullptr) {
        EXPECT_EQ(::GetDlgItem(window, IDCANCEL), nullptr);
      } else {
        EXPECT_EQ(Driver::TextOf(::GetDlgItem(window, IDCANCEL)), c.labels[1]);
      }
    };
    const int second = c.labels[1] != nullptr ? IDCANCEL : IDOK;
    const struct {
      Driver::Step press;
      int result;
    } answers[] = {{Driver::Press(VK_RETURN), IDOK},
                   {Driver::Press(VK_ESCAPE), second},
                   {Driver::Close(), second},
                   {Driver::Click(second), second}};
    for (const auto& answer : answers) {
      Driver driver({look, answer.press});
      EXPECT_EQ(box.DoModal(), answer.result) << c.labels[0] << c.style;
    }
  }
}

TEST(MessageLayout, LinesEndWithEitherCharacterOrBoth) {
  const AssertionLog log;
  const struct {
    CString text;
    std::vector<std::string> lines;
    bool reported = false;
  } cases[] = {
      {"one\r\ntwo\r\nthree", {"one", "two", "three"}},
      {"one\n\rtwo\rthree\nfour", {"one", "two", "three", "four"}},
      {"one\n\nthree & more\r\r\nfive", {"one", "", "three & more", "", "five"}},
      {"", {""}},
      {lines(20, "x"), std::vector<std::string>(20, "x")},
      {lines(21, "x"), std::vector<std::string>(20, "x"), true},
  };
  for (const auto& c : cases) {
    MMessageBox box("", c.text);
    int height = 0;
    Driver driver({[&](HWND window) {
                     std::vector<std::string> shown;
                     for (const HWND control : controlsOf(window)) {
                       if (classOf(control) != "Static") continue;
                       shown.push_back(Driver::TextOf(control));
                       if (height == 0) height = placeOf(control).Height();
                       EXPECT_NEAR(placeOf(control).Height(), height, 1);
                     }
                     EXPECT_EQ(shown, c.lines);
                     EXPECT_GT(height, 5);
                   },
                   Driver::Press(VK_RETURN)});
    box.DoModal();
    EXPECT_EQ(log.Names("MessageBox"), c.reported);
  }
}

TEST(MessageLayout, CheckBoxes) {
  const AssertionLog log;
  MMessageBox box(nullptr, "text");
  box.SetButtonStyle(MMessageBox::MB_STYLE_YES_NO);
  box.SetCheckBox("&First", 0);  // a push button's style
  box.SetCheckBox(1, "Second");
  box.SetCheckBox(2, "&Third", BS_3STATE);
  box.EnableCheckBox(1, FALSE);
  box.SetVal(1, 1);
  EXPECT_TRUE(log.Empty());
  box.SetCheckBox(3, "Fourth");
  box.SetVal(-1, 1);
  EXPECT_TRUE(log.Names("MessageBox"));
  Driver driver({[](HWND window) {
                   expectLayout(window);
                   EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), IDOK);
                   EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(window, kFirst + 2)));
                   EXPECT_EQ(::IsDlgButtonChecked(window, kFirst + 2), UINT{BST_CHECKED});
                   EXPECT_EQ(controlsOf(window).size(), 6U);
                   EXPECT_EQ(Driver::TextOf(window), AfxGetAppName());
                 },
                 Driver::Accelerator('f'), Driver::Accelerator('t'), Driver::Accelerator('t'),
                 Driver::Press(VK_ESCAPE)});
  EXPECT_EQ(box.DoModal(), IDCANCEL);
  EXPECT_EQ(box.GetVal(0), 1);
  EXPECT_EQ(box.GetVal(1), 1);
  EXPECT_EQ(box.GetVal(2), 2);
}

// At the resolution that this process has.
TEST(MessageLayout, TextsAreShownWholeOnTheScreen) {
  const struct {
    CString text, checkText;
    bool scrolls = false;
  } cases[] = {{"short", ""},
               {"short", "A check box that is much longer than the text of the message is"},
               {lines(20, "A line of about the usual length of lines"), "Check"},
               {"some " + CString('w', 3000), "Check"},
               {lines(20, CString('w', 1000)), "Check", true},
               {lines(20, CString('w', 3000)), CString('c', 1000), true}};
  for (const auto& c : cases) {
    MMessageBox box(c.text.Left(100), c.text);
    box.SetIcon(IDI_EXCLAMATION);
    box.SetButtonStyle(MMessageBox::MB_STYLE_OK_CANCEL);
    for (int i = 0; i < 3; ++i) box.SetCheckBox(i, c.checkText);
    Driver driver({[&](HWND window) {
                     expectLayout(window);
                     bool scrolls = false;
                     for (const HWND control : controlsOf(window)) {
                       scrolls = scrolls || classOf(control) == "Edit";
                     }
                     EXPECT_EQ(scrolls, c.scrolls) << c.text.Left(20);
                   },
                   Driver::Press(VK_ESCAPE)});
    EXPECT_EQ(box.DoModal(), IDCANCEL);
  }
}

TEST(MessageLayout, AllThatAtOtherResolutions) {
  constexpr char kDesktop[] = "Control Panel\\Desktop", kValue[] = "LogPixels";
  char self[MAX_PATH];
  ::GetModuleFileName(nullptr, self, MAX_PATH);
  for (const DWORD dots : {120, 144}) {
    ::RegSetKeyValueA(HKEY_CURRENT_USER, kDesktop, kValue, REG_DWORD, &dots, sizeof dots);
    const std::string tests =
        " --gtest_filter=MessageLayout.Buttons*:MessageLayout.Texts*:MessageLayout.Check*";
    EXPECT_EQ(RunProgram('"' + std::string(self) + '"' + tests), 0U) << dots;
    ::RegDeleteKeyValueA(HKEY_CURRENT_USER, kDesktop, kValue);
  }
}

TEST(MessageLayout, LeavesNothingBehind) {
  const watchdog::ExpectWindows expected;
  // Ends before it is seen.
  struct Box : MMessageBox {
    using MMessageBox::MMessageBox;
    BOOL OnInitDialog() override {
      PostMessage(WM_COMMAND, IDOK);
      return MMessageBox::OnInitDialog();
    }
  };
  const auto open = [] {
    Box box("Title", "one\ntwo");
    box.SetIcon(IDI_HAND);
    box.SetCheckBox("Check");
    EXPECT_EQ(box.DoModal(), IDOK);
    DeleteTemporaryObjects();
  };
  open();
  const DWORD objects = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
  for (int i = IsLongRun() ? 1000 : 50; i > 0; --i) open();
  EXPECT_EQ(::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS), objects);
}
