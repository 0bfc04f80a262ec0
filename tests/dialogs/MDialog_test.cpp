// Dialogs laid out in code: what they show, their keys, their values, and what they leave behind.
#include "controls/MDialog.h"

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/CodePage.h"

#include "dialogs/Driver.h"
#include "diag/trace.h"

namespace {

constexpr UINT kCheck = 101, kFirstRadio = 110, kEdit = 120, kList = 130, kGo = 140;

// One control of each kind.
struct Sample {
  explicit Sample(CWnd* owner = nullptr) : dialog(owner) {
    dialog.SetDialog(MDialog::kCentred, MDialog::kCentred, 200, 120, "Sample", 1, 1);
    dialog.SetTextBox(10, 5, 100, 10, "Files & folders");
    check = &dialog.SetCheckButton(10, 20, 100, 12, "&Check", 1, BS_AUTOCHECKBOX, kCheck);
    radio = &dialog.SetRadioGroup(10, 35, 60, 24, {"One", "Two"}, 0, kFirstRadio);
    edit = &dialog.SetEdit(10, 62, 80, 13, "text", ES_AUTOHSCROLL, kEdit);
    list = &dialog.SetList(100, 35, 80, 40, {"red", "green", "blue"}, 1, kList);
    dialog.SetOkButton(20, 95, 50, 14, "OK");
    dialog.SetCancelButton(80, 95, 50, 14, "Cancel");
    dialog.SetPushButton(140, 95, 50, 14, "&Go", kGo);
  }
  MDialog dialog;
  MControlData* check;
  MRadioGroupData* radio;
  MEditData* edit;
  MListData* list;
};

void choose(HWND window) {
  ::SetDlgItemText(window, kEdit, "changed");
  ::SendDlgItemMessage(window, kList, LB_SETCURSEL, 2, 0);
}

}  // namespace

TEST(Dialog, ValuesComeBackWithOkOnly) {
  for (const int button : {IDCANCEL, IDOK}) {
    Sample sample;
    Driver driver({[](HWND window) {
                     EXPECT_EQ(Driver::TextOf(window), "Sample");
                     EXPECT_EQ(::IsDlgButtonChecked(window, kCheck), UINT{BST_CHECKED});
                     EXPECT_EQ(::IsDlgButtonChecked(window, kFirstRadio), UINT{BST_CHECKED});
                     EXPECT_EQ(::SendDlgItemMessage(window, kList, LB_GETCURSEL, 0, 0), 1);
                     EXPECT_EQ(Driver::TextOf(::GetDlgItem(window, kEdit)), "text");
                   },
                   Driver::Click(kCheck), Driver::Click(kFirstRadio + 1), choose,
                   Driver::Click(button)});
    EXPECT_EQ(sample.dialog.DoModal(), button);
    const bool kept = button == IDOK;
    EXPECT_EQ(sample.check->GetVal(), kept ? 0 : 1);
    EXPECT_EQ(sample.radio->GetVal(), kept ? 1 : 0);
    EXPECT_EQ(sample.edit->GetText(), kept ? "changed" : "text");
    EXPECT_EQ(sample.list->GetSelected(), kept ? "blue" : "green");
  }
}

TEST(Dialog, Keys) {
  std::vector<int> focus;
  const auto look = [&](HWND) { focus.push_back(::GetDlgCtrlID(::GetFocus())); };
  Sample sample;
  {
    const auto tab = Driver::Press(VK_TAB);
    Driver driver({look, tab, look, tab, look, tab, look, tab, look, tab, look,
                   Driver::Accelerator('c'), look, Driver::Press(VK_RETURN)});
    EXPECT_EQ(sample.dialog.DoModal(), IDOK);
    EXPECT_EQ(focus, (std::vector<int>{kCheck, kFirstRadio, kEdit, kList, IDOK, IDCANCEL, kCheck}));
    EXPECT_EQ(sample.check->GetVal(), 0);
  }
  {
    Driver driver({Driver::Press(VK_ESCAPE)});
    EXPECT_EQ(sample.dialog.DoModal(), IDCANCEL);
  }
  {
    Driver driver({Driver::Accelerator('g')});
    EXPECT_EQ(sample.dialog.DoModal(), int{kGo});
  }
}

TEST(Dialog, ChangesWhileOpenShowAtOnce) {
  Sample sample;
  Driver driver({[&](HWND window) {
                   sample.check->SetText("Other");
                   sample.check->Enable(FALSE);
                   sample.radio->SetVal(1);
                   EXPECT_EQ(Driver::TextOf(::GetDlgItem(window, kCheck)), "Other");
                   EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(window, kCheck)));
                   EXPECT_FALSE(::IsDlgButtonChecked(window, kFirstRadio));
                   EXPECT_TRUE(::IsDlgButtonChecked(window, kFirstRadio + 1));
                   // It is open already.
                   EXPECT_EQ(sample.dialog.DoModal(), -1);
                   EXPECT_FALSE(sample.dialog.Create());
                   sample.dialog.RemoveControls();
                 },
                 Driver::Click(IDOK)});
  EXPECT_EQ(sample.dialog.DoModal(), IDOK);
  EXPECT_FALSE(sample.check->IsEnabled());
}

TEST(Dialog, ModelessIsHiddenAtFirstAndDestroyedByItsButtons) {
  const watchdog::ExpectWindows windows;
  for (const int button : {IDOK, IDCANCEL}) {
    Sample sample;
    ASSERT_TRUE(sample.dialog.Create());
    EXPECT_FALSE(sample.dialog.IsWindowVisible());
    sample.dialog.SetDlgItemText(kEdit, "changed");
    sample.dialog.SendMessage(WM_COMMAND, button);
    EXPECT_EQ(sample.dialog.m_hWnd, nullptr);
    EXPECT_EQ(sample.edit->GetText(), button == IDOK ? "changed" : "text");
    sample.edit->SetText("after the window");
  }
  Sample left;
  left.dialog.Create();
  DeleteTemporaryObjects();
}

TEST(Dialog, MayDeleteItselfWhenItsWindowGoes) {
  struct Own : MDialog {
    void PostNcDestroy() override {
      MDialog::PostNcDestroy();
      delete this;
    }
  };
  const allocations::GuardPages guard;
  MDialog* const dialog = new Own;
  dialog->SetDialog(-1, -1, 100, 60, "Own", 1, 1);
  Driver driver({Driver::Close()});
  EXPECT_EQ(dialog->DoModal(), IDCANCEL);
}

TEST(Dialog, TextsAreAsLongAsTheyAre) {
  const CString text('x', 60'000);
  MDialog dialog;
  dialog.SetDialog(-1, -1, 100, 60, text, 1, 1);
  dialog.SetTextBox(5, 5, 80, 20, text, SS_LEFT, 500);
  dialog.SetEdit(5, 30, 80, 20, text, ES_AUTOHSCROLL, 501);
  Driver driver({[&](HWND window) {
                   EXPECT_EQ(::GetWindowTextLength(window), text.GetLength());
                   EXPECT_EQ(::GetWindowTextLength(::GetDlgItem(window, 500)), text.GetLength());
                   EXPECT_EQ(::GetWindowTextLength(::GetDlgItem(window, 501)), text.GetLength());
                 },
                 Driver::Close()});
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Dialog, StaysAwayWhereNoWindowMayBeShown) {
  AssertVerifyTrace::BlockGuiMessages(1);
  Sample sample;
  EXPECT_EQ(sample.dialog.DoModal(), -1);
  EXPECT_FALSE(sample.dialog.Create());
  AssertVerifyTrace::BlockGuiMessages(0);
}

TEST(Dialog, MeasuredTextsFit) {
  const std::string letters = "Wgjpq_ " + Ansi(UpperLetter());
  const char* const texts[] = {"OK", "Don't show me this message again", letters.c_str(),
                               "three\nlines\nof text", "a\ttab & another"};
  const MControlKind kinds[] = {MControlKind::TextBox, MControlKind::CheckBox,
                                MControlKind::PushButton};
  for (const MDialogUnits units : {MDialogUnits::HundredthsOfMillimetre, MDialogUnits::OfDialog}) {
    MDialog dialog;
    dialog.SetUnits(units);
    CSize whole(0, 0);
    UINT id = 500;
    for (const char* text : texts) {
      for (const MControlKind kind : kinds) {
        const CSize size = dialog.GetTextSize(text, kind);
        const int y = whole.cy;
        if (kind == MControlKind::TextBox)
          dialog.SetTextBox(0, y, size.cx, size.cy, text, SS_LEFT, id++);
        else if (kind == MControlKind::CheckBox)
          dialog.SetCheckButton(0, y, size.cx, size.cy, text, 0, BS_AUTOCHECKBOX, id++);
        else
          dialog.SetPushButton(0, y, size.cx, size.cy, text, id++);
        whole = CSize(std::max(whole.cx, size.cx), y + size.cy);
      }
    }
    dialog.SetDialog(-1, -1, whole.cx, whole.cy, "");
    Driver driver({[id](HWND window) {
                     for (UINT each = 500; each < id; ++each) {
                       const HWND control = ::GetDlgItem(window, each);
                       EXPECT_TRUE(ShowsWholeText(control, each % 3 == 2 ? DT_NOPREFIX : 0))
                           << each << Driver::TextOf(control);
                     }
                   },
                   Driver::Close()});
    dialog.DoModal();
  }
}

TEST(Dialog, TextSizeBreaksLinesAtAWidth) {
  MDialog dialog;
  EXPECT_EQ(dialog.GetTextSize(""), CSize(0, 0));
  EXPECT_EQ(dialog.GetTextSize(nullptr), CSize(0, 0));
  const CSize line = dialog.GetTextSize("XX");
  EXPECT_NEAR(dialog.GetTextSize("XX\nXX").cy, 2 * line.cy, 1);
  const char* const texts[] = {"some words that need a number of lines",
                               "C:\\a\\very\\long\\path\\without\\any\\blanks\\in\\it"};
  for (const char* text : texts) {
    const CSize whole = dialog.GetTextSize(text);
    const CSize broken = dialog.GetTextSize(text, MControlKind::TextBox, whole.cx / 3);
    EXPECT_LE(broken.cx, whole.cx / 3 + 30) << text;  // a pixel more
    EXPECT_GE(broken.cy, 3 * line.cy - 60) << text;
  }
  DeleteTemporaryObjects();
}

TEST(Dialog, PlacesAreMappedAndInsideTheWorkArea) {
  CRect area;
  ::SystemParametersInfo(SPI_GETWORKAREA, 0, &area, 0);
  const struct { int x, y; } places[] = {{-1, -1}, {100, 100}, {30000, 30000}};
  for (const auto& c : places) {
    Sample sample;
    sample.dialog.SetDialog(c.x, c.y, 200, 120, "Place", 1, 1);
    Driver driver({[&](HWND window) {
                     CRect place, client, button, wanted(20, 95, 70, 109), whole(0, 0, 200, 120);
                     ::GetWindowRect(window, &place);
                     EXPECT_EQ(place & area, place) << c.x;
                     if (c.x == -1) {
                       EXPECT_NEAR(place.CenterPoint().x, area.CenterPoint().x, 1);
                       EXPECT_NEAR(place.CenterPoint().y, area.CenterPoint().y, 1);
                     }
                     ::GetClientRect(window, &client);
                     ::MapDialogRect(window, &whole);
                     EXPECT_EQ(client, whole);
                     ::GetWindowRect(::GetDlgItem(window, IDOK), &button);
                     ::MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&button), 2);
                     ::MapDialogRect(window, &wanted);
                     EXPECT_EQ(button.TopLeft(), wanted.TopLeft());
                   },
                   Driver::Click(IDOK)});
    sample.dialog.DoModal();
  }
}
