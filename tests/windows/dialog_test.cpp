// Dialogs: their life, their keys, and what they leave behind.
#include <afxwin.h>

#include "windows/Steps.h"

namespace {

constexpr WORD kGo = 101, kFirst = 102, kSecond = 103, kOff = 104;

DialogTemplate simple() { return DialogTemplate("Simple").Button("Go", kGo); }

class Dialog : public WindowTest {};

class ModelessDialog : public CDialog {
 public:
  explicit ModelessDialog(bool* deleted) : m_deleted(deleted) {}
  ~ModelessDialog() override { *m_deleted = true; }
  static ModelessDialog* Make(bool* deleted) {
    auto* const dialog = new ModelessDialog(deleted);
    dialog->CreateIndirect(simple());
    return dialog;
  }

 protected:
  void OnOK() override { DestroyWindow(); }
  void OnCancel() override { DestroyWindow(); }
  void PostNcDestroy() override { delete this; }

 private:
  bool* m_deleted;
};

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
  const DialogTemplate contents = DialogTemplate("OK").Button("OK", IDOK);
  Ended dialog(contents);
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
  class Modeless : public CDialog {
  } modeless;
  EXPECT_EQ(modeless.DoModal(), -1);
  EXPECT_FALSE(modeless.Create(12345u));
  EXPECT_FALSE(modeless.Create("no such template"));
}

TEST_F(Dialog, TemplateInGlobalMemory) {
  const DialogTemplate contents = simple();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, contents.Size());
  memcpy(GlobalLock(memory), static_cast<LPCDLGTEMPLATE>(contents), contents.Size());
  GlobalUnlock(memory);
  StepDialog dialog{DialogTemplate()};
  dialog.InitModalIndirect(memory);
  EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
  EXPECT_EQ(GlobalFlags(memory) & GMEM_LOCKCOUNT, 0u);
  GlobalFree(memory);
}

TEST_F(Dialog, EndedInOnInitDialogNeverShows) {
  class Ended : public StepDialog {
   public:
    using StepDialog::StepDialog;
    BOOL OnInitDialog() override {
      EndDialog(5);
      return TRUE;
    }
  };
  const DialogTemplate contents = simple();
  Ended dialog(contents);
  EXPECT_EQ(dialog.DoModal(), 5);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialog, FocusGoesWhereOnInitDialogPutIt) {
  class Focused : public StepDialog {
   public:
    Focused(const DialogTemplate& contents, int id) : StepDialog(contents), m_id(id) {}
    BOOL OnInitDialog() override {
      if (m_id == 0) return TRUE;
      GotoDlgCtrl(GetDlgItem(m_id));
      return FALSE;
    }

   private:
    int m_id;
  };
  const DialogTemplate contents = DialogTemplate().Edit("", kFirst).Edit("", kSecond);
  for (const int id : {0, int(kSecond)}) {
    Focused dialog(contents, id);
    dialog.Then([&] { EXPECT_EQ(dialog.FocusId(), id == 0 ? kFirst : id); });
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
  const auto focusIs = [&](int id) { return [&dialog, id] { EXPECT_EQ(dialog.FocusId(), id); }; };
  const auto key = [](WPARAM code) { return [code] { StepDialog::PostKey(code); }; };
  dialog.Then([&] { dialog.GetDlgItem(kOff)->EnableWindow(FALSE); })
      .Then(key(VK_TAB))
      .Then(focusIs(kSecond))
      .Then(key(VK_RETURN))
      .Then([&] { EXPECT_EQ(dialog.pressed, "OK "); })
      .Then(key(VK_TAB))
      .Then(focusIs(IDOK))
      .Then(key(VK_TAB))
      .Then(focusIs(IDCANCEL))
      .Then(key(VK_RETURN))
      .Then([&] { EXPECT_EQ(dialog.pressed, "OK Cancel "); })
      .Then(key(VK_ESCAPE))
      .Then([&] { EXPECT_EQ(dialog.pressed, "OK Cancel Cancel "); })
      .Then(key(VK_TAB))
      .Then(focusIs(kFirst))
      .Then([&] { dialog.PrevDlgCtrl(); })
      .Then(focusIs(IDCANCEL))
      .Then([&] { dialog.NextDlgCtrl(); })
      .Then(focusIs(kFirst));
  EXPECT_EQ(dialog.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, OwnerIsDisabledWhileModalAndEnabledAndActiveAfterwards) {
  const DialogTemplate contents = simple();
  StepDialog owner(contents);
  owner.Then([&] {
    StepDialog inner(contents, &owner);
    inner.Then([&] {
      EXPECT_FALSE(owner.IsWindowEnabled());
      EXPECT_EQ(inner.GetParent(), &owner);
      StepDialog innermost(contents, &inner);
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

// A child cannot own a dialog: its parent does.
TEST_F(Dialog, ChildAsOwnerStandsForItsParent) {
  const DialogTemplate contents = simple();
  StepDialog outer(contents);
  outer.Then([&] {
    StepDialog inner(contents, outer.GetDlgItem(kGo));
    inner.Then([&] { EXPECT_EQ(::GetWindow(inner.m_hWnd, GW_OWNER), outer.m_hWnd); });
    inner.DoModal();
  });
  outer.DoModal();
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
    const DialogTemplate contents =
        DialogTemplate(c.name, WS_POPUP | WS_CAPTION | c.style, c.x, c.y).Button("Go", kGo);
    StepDialog dialog(contents);
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

TEST_F(Dialog, DestroyedFromItsOwnHandler) {
  const DialogTemplate contents = simple();
  StepDialog dialog(contents);
  dialog.Then([&] { dialog.DestroyWindow(); });
  EXPECT_EQ(dialog.DoModal(), -1);
  EXPECT_EQ(dialog.m_hWnd, nullptr);
}

TEST_F(Dialog, DeletedFromItsOwnHandlerWhileModal) {
  class Deleted : public StepDialog {
   public:
    Deleted(const DialogTemplate& contents, CWnd* owner, bool* gone)
        : StepDialog(contents, owner), m_gone(gone) {}
    ~Deleted() override { *m_gone = true; }

   protected:
    void PostNcDestroy() override { delete this; }

   private:
    bool* m_gone;
  };
  const DialogTemplate contents = simple();
  StepDialog owner(contents);
  owner.Then([&] {
    bool gone = false;
    auto* const dialog = new Deleted(contents, &owner, &gone);
    dialog->Then([=] { dialog->DestroyWindow(); });
    EXPECT_EQ(dialog->DoModal(), -1);
    EXPECT_TRUE(gone);
    EXPECT_TRUE(owner.IsWindowEnabled());
  });
  EXPECT_EQ(owner.DoModal(), StepDialog::kStepsDone);
}

TEST_F(Dialog, ModelessOnesDeleteThemselves) {
  bool deleted = false;
  ModelessDialog* dialog = ModelessDialog::Make(&deleted);
  ASSERT_NE(dialog->m_hWnd, nullptr);
  dialog->SendMessage(WM_COMMAND, IDCANCEL);
  EXPECT_TRUE(deleted);

  // The destructor destroys a window that is still there.
  HWND window = nullptr;
  {
    class Plain : public CDialog {
    } plain;
    ASSERT_TRUE(plain.CreateIndirect(simple()));
    window = plain.m_hWnd;
  }
  EXPECT_FALSE(::IsWindow(window));
}

TEST_F(Dialog, DefaultButtonAndUnits) {
  const DialogTemplate contents =
      DialogTemplate().Button("OK", IDOK, BS_DEFPUSHBUTTON).Button("Go", kGo);
  StepDialog dialog(contents);
  dialog.Then([&] {
    EXPECT_EQ(LOWORD(dialog.GetDefID()), IDOK);
    dialog.SetDefID(kGo);
    EXPECT_EQ(LOWORD(dialog.GetDefID()), kGo);
    CRect units(0, 0, 400, 800);
    dialog.MapDialogRect(units);
    const LONG base = GetDialogBaseUnits();
    EXPECT_EQ(units.Size(), CSize(100 * LOWORD(base), 100 * HIWORD(base)));
  });
  dialog.DoModal();
}
