// Dialogs: their life, their keys, and what they leave behind.
#include <afxwin.h>

#include "windows/BoxAnswer.h"
#include "windows/Steps.h"

namespace {

constexpr WORD kGo = 101, kFirst = 102, kSecond = 103, kOff = 104;

DialogTemplate simple() { return DialogTemplate("Simple").Button("Go", kGo); }

class Dialog : public WindowTest {};

}  // namespace

TEST_F(Dialog, ButtonEndsModalDialogFromMemory) {
  class Ended : public StepDialog {
   public:
    using StepDialog::StepDialog;
    int clicks = 0;

   protected:
    void OnOK() override {
      ++clicks;
      EXPECT_TRUE(IsWindowVisible());
      EndDialog(77);
    }
  };
  Ended dialog(DialogTemplate("OK").Button("OK", IDOK));
  dialog.Then([&] { dialog.PostClick(IDOK); });
  EXPECT_EQ(dialog.DoModal(), 77);
  EXPECT_EQ(dialog.clicks, 1);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
  // And once more with the same object.
  dialog.Then([&] { dialog.PostClick(IDOK); });
  EXPECT_EQ(dialog.DoModal(), 77);
}

TEST_F(Dialog, MissingTemplateFails) {
  EXPECT_EQ(CDialog(12345u).DoModal(), -1);
  EXPECT_FALSE(StepDialog(simple()).Create("no such template"));
}

namespace {

class InitialDialog : public StepDialog {
 public:
  InitialDialog(const DialogTemplate& contents, std::function<BOOL(InitialDialog&)> init)
      : StepDialog(contents), m_init(std::move(init)) {}
  BOOL OnInitDialog() override { return m_init(*this); }

 private:
  std::function<BOOL(InitialDialog&)> m_init;
};

}  // namespace

// The exception is shown, and ends there: the dialog manager's frames lie between here and DoModal.
TEST_F(Dialog, ExceptionOfOnInitDialogIsShown) {
  InitialDialog dialog(simple(), [](InitialDialog&) -> BOOL { throw "the reason"; });
  BoxAnswer box(IDOK);
  EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
  EXPECT_EQ(box.text, "the reason");
}

// Outside of a message, the exception is the caller's.
TEST_F(Dialog, ExceptionOfPreTranslateMessageEndsTheDialog) {
  class Throwing : public StepDialog {
   public:
    using StepDialog::StepDialog;
    BOOL PreTranslateMessage(MSG*) override { AfxThrowUserException(); }
  };
  StepDialog owner(simple());
  owner.Then([&] {
    Throwing dialog(simple(), &owner);
    dialog.Then([&] { dialog.PostMessage(WM_NULL); });
    EXPECT_THROW(dialog.DoModal(), CUserException*);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(owner.IsWindowEnabled());
  });
  EXPECT_EQ(owner.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, EndedInOnInitDialogNeverShows) {
  InitialDialog dialog(simple(), [](InitialDialog& self) {
    self.EndDialog(5);
    return TRUE;
  });
  EXPECT_EQ(dialog.DoModal(), 5);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialog, FocusGoesWhereOnInitDialogPutIt) {
  for (const bool puts : {false, true}) {
    InitialDialog dialog(DialogTemplate().Edit("", kFirst).Edit("", kSecond),
                         [puts](InitialDialog& self) {
                           if (puts) self.GotoDlgCtrl(self.GetDlgItem(kSecond));
                           return !puts;
                         });
    dialog.Then([&] { EXPECT_EQ(dialog.FocusId(), puts ? kSecond : kFirst); });
    dialog.DoModal();
  }
}

TEST_F(Dialog, KeysMoveTheFocusAndPressButtons) {
  class Keys : public StepDialog {
   public:
    using StepDialog::StepDialog;
    std::string pressed;

   protected:
    void OnOK() override { pressed += "OK "; }
    void OnCancel() override { pressed += "Cancel "; }
  };
  const DialogTemplate contents = DialogTemplate()
                                      .Edit("", kFirst)
                                      .Edit("", kOff)
                                      .Edit("", kSecond)
                                      .Button("OK", IDOK, BS_DEFPUSHBUTTON)
                                      .Button("Cancel", IDCANCEL);
  Keys dialog(contents);
  const struct {
    WPARAM key;
    int focus;
    const char* pressed;
  } cases[] = {
      {VK_TAB, kSecond, ""},
      {VK_RETURN, kSecond, "OK "},
      {VK_TAB, IDOK, "OK "},
      {VK_TAB, IDCANCEL, "OK "},
      {VK_RETURN, IDCANCEL, "OK Cancel "},
      {VK_ESCAPE, IDCANCEL, "OK Cancel Cancel "},
      {VK_TAB, kFirst, "OK Cancel Cancel "},
  };
  dialog.Then([&] { dialog.GetDlgItem(kOff)->EnableWindow(FALSE); });
  for (const auto& c : cases) {
    dialog.Then([&c] { StepDialog::PostKey(c.key); }).Then([&dialog, &c] {
      EXPECT_EQ(dialog.FocusId(), c.focus) << c.pressed;
      EXPECT_EQ(dialog.pressed, c.pressed) << c.pressed;
    });
  }
  EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, OwnerIsDisabledWhileModalAndEnabledAndActiveAfterwards) {
  StepDialog owner(simple());
  owner.Then([&] {
    // A child cannot own a dialog: its parent does.
    StepDialog inner(simple(), owner.GetDlgItem(kGo));
    inner.Then([&] {
      EXPECT_FALSE(owner.IsWindowEnabled());
      EXPECT_EQ(inner.GetParent(), &owner);
      StepDialog innermost(simple(), &inner);
      innermost.Then([&] {
        EXPECT_FALSE(inner.IsWindowEnabled());
        EXPECT_FALSE(owner.IsWindowEnabled());
      });
      EXPECT_EQ(innermost.DoModal(), StepDialog::kStepsDone);
      EXPECT_TRUE(inner.IsWindowEnabled());
      EXPECT_FALSE(owner.IsWindowEnabled());
    });
    EXPECT_EQ(inner.DoModal(), StepDialog::kStepsDone);
    EXPECT_TRUE(owner.IsWindowEnabled());
    EXPECT_EQ(::GetActiveWindow(), owner.m_hWnd);
  });
  EXPECT_EQ(owner.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, IsCentredUnlessItsTemplateOrItselfPlacedIt) {
  const struct {
    const char* name;
    DWORD style;
    short x, y;
    bool centred;
  } cases[] = {
      {"nothing said", 0, 0, 0, true},
      {"placed by the template", 0, 30, 20, false},
      {"placed in screen coordinates", DS_ABSALIGN, 0, 0, false},
  };
  for (const auto& c : cases) {
    StepDialog dialog(DialogTemplate(c.name, WS_POPUP | WS_CAPTION | c.style, c.x, c.y));
    dialog.Then([&] {
      CRect place, screen;
      dialog.GetWindowRect(place);
      ::GetWindowRect(::GetDesktopWindow(), screen);
      const CSize offset = place.CenterPoint() - screen.CenterPoint();
      EXPECT_EQ(abs(offset.cx) <= 2 && abs(offset.cy) <= 40, c.centred) << c.name;
    });
    dialog.DoModal();
  }
}

namespace {

class Deleted : public StepDialog {
 public:
  Deleted(CWnd* owner, bool* gone) : StepDialog(simple(), owner), m_gone(gone) {}
  ~Deleted() override { *m_gone = true; }

 protected:
  void OnCancel() override { DestroyWindow(); }
  void PostNcDestroy() override { delete this; }

 private:
  bool* m_gone;
};

}  // namespace

TEST_F(Dialog, DeletedFromItsOwnHandlerWhileModal) {
  StepDialog owner(simple());
  owner.Then([&] {
    bool gone = false;
    auto* const dialog = new Deleted(&owner, &gone);
    dialog->Then([=] { dialog->DestroyWindow(); });
    EXPECT_EQ(dialog->DoModal(), -1);
    EXPECT_TRUE(gone);
    EXPECT_TRUE(owner.IsWindowEnabled());
  });
  EXPECT_EQ(owner.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, ModelessOnesDeleteThemselves) {
  bool deleted = false;
  auto* const dialog = new Deleted(nullptr, &deleted);
  ASSERT_TRUE(dialog->CreateIndirect(simple()));
  dialog->SendMessage(WM_COMMAND, IDCANCEL);
  EXPECT_TRUE(deleted);

  // The destructor destroys a window that is still there.
  HWND window = nullptr;
  {
    StepDialog plain(simple());
    ASSERT_TRUE(plain.CreateIndirect(simple()));
    window = plain.m_hWnd;
  }
  EXPECT_FALSE(::IsWindow(window));
}
