#include <afxcmn.h>
#include <afxdtctl.h>

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>

#include "controls/ControlTest.h"
#include "windows/BoxAnswer.h"
#include "windows/DialogTemplate.h"

namespace {

enum : WORD { kEdit = 100, kOther, kCheck, kRadio, kRadio2, kRadio3, kDate };

// A dialog whose exchange the test says.
class Exchanged : public CDialog {
 public:
  std::function<void(CDataExchange*)> exchange = [](CDataExchange*) {};
  int notified = 0;

  // Runs one exchange.
  BOOL Run(BOOL save, std::function<void(CDataExchange*)> body) {
    exchange = std::move(body);
    return UpdateData(save);
  }

 protected:
  void DoDataExchange(CDataExchange* pDX) override { exchange(pDX); }
  afx_msg void OnChange() { ++notified; }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Exchanged, CDialog)
ON_EN_CHANGE(kEdit, &Exchanged::OnChange)
END_MESSAGE_MAP()

class Exchange : public ControlTest {
 protected:
  void SetUp() override {
    ControlTest::SetUp();
    DialogTemplate contents;
    contents.Edit("", kEdit).Edit("", kOther).Button("Check", kCheck, BS_AUTO3STATE);
    contents.Button("1", kRadio, BS_AUTORADIOBUTTON | WS_GROUP);
    contents.Button("2", kRadio2, BS_AUTORADIOBUTTON).Button("3", kRadio3, BS_AUTORADIOBUTTON);
    ASSERT_TRUE(m_dialog.CreateIndirect(contents, &m_parent));
    m_dialog.ShowWindow(SW_SHOW);
  }
  void TearDown() override {
    m_dialog.DestroyWindow();
    ControlTest::TearDown();
  }

  std::string Shown(int id) { return text(*m_dialog.GetDlgItem(id)); }

  // Runs an exchange of what was typed: what a message box has said; empty: it was accepted.
  std::string Refused(const char* typed, std::function<void(CDataExchange*)> body) {
    m_dialog.SetDlgItemText(kEdit, typed);
    BoxAnswer answer(IDOK);
    const BOOL read = m_dialog.Run(TRUE, std::move(body));
    EXPECT_EQ(answer.count, read ? 0 : 1);
    return answer.text;
  }
  template <class Value>
  void ExpectShown(Value value, const char* expected) {
    m_dialog.Run(FALSE, [&](CDataExchange* pDX) { DDX_Text(pDX, kEdit, value); });
    EXPECT_EQ(Shown(kEdit), expected);
  }
  // A prompt: the text is refused, and the value stays.
  template <class Value>
  void ExpectRead(const char* typed, Value expected, const char* prompt = "") {
    Value value = 77;
    const auto body = [&](CDataExchange* pDX) { DDX_Text(pDX, kEdit, value); };
    EXPECT_EQ(Refused(typed, body), prompt) << typed;
    EXPECT_EQ(value, *prompt == 0 ? expected : 77) << typed;
  }

  Exchanged m_dialog;
};

TEST_F(Exchange, NumbersGoBothWaysToTheirLimits) {
  ExpectShown(INT_MIN, "-2147483648");
  ExpectShown(ULONG_MAX, "4294967295");
  ExpectShown(static_cast<short>(-32768), "-32768");
  ExpectShown(static_cast<BYTE>(255), "255");
  ExpectShown(0.1, "0.1");
  ExpectShown(1e300, "1e+300");
  ExpectShown(0.1f, "0.1");

  ExpectRead<int>("-2147483648", INT_MIN);
  ExpectRead<int>(" +12 \t", 12);
  ExpectRead<long>("2147483647", LONG_MAX);
  ExpectRead<UINT>("4294967295", UINT_MAX);
  ExpectRead<short>("-32768", -32768);
  ExpectRead<BYTE>("255", 255);
  ExpectRead<double>("-1.5e-3", -1.5e-3);
  ExpectRead<float>("0.25", 0.25f);

  const char* const kInteger = "Please enter an integer.";
  for (const char* typed : {"", " ", "x", "1x", "1 2", "1.5", "2147483648", "+-1", "0x1"})
    ExpectRead<int>(typed, 0, kInteger);
  ExpectRead<short>("32768", 0, kInteger);
  for (const char* typed : {"-1", "4294967296"})
    ExpectRead<DWORD>(typed, 0, "Please enter a positive integer.");
  for (const char* typed : {"256", "-1"})
    ExpectRead<BYTE>(typed, 0, "Please enter an integer between 0 and 255.");
  for (const char* typed : {"", "one", "1e999", "1,5", "inf", "nan"})
    ExpectRead<double>(typed, 0, "Please enter a number.");
}

TEST_F(Exchange, AFailureLeadsToItsControl) {
  m_dialog.SetDlgItemText(kOther, "12345");
  m_dialog.GetDlgItem(kEdit)->SetFocus();
  CString first;
  int second = 0;
  bool after = false;
  const auto body = [&](CDataExchange* pDX) {
    DDX_Text(pDX, kEdit, first);
    DDX_Text(pDX, kOther, second);
    DDV_MinMaxInt(pDX, second, -5, 100);
    after = true;
  };
  EXPECT_EQ(Refused("fine", body), "Please enter an integer between -5 and 100.");
  EXPECT_EQ(text(first), "fine");
  EXPECT_FALSE(after);
  CEdit* const edit = static_cast<CEdit*>(m_dialog.GetDlgItem(kOther));
  EXPECT_EQ(CWnd::GetFocus(), edit);
  EXPECT_EQ(edit->GetSel(), static_cast<DWORD>(MAKELONG(0, 5))) << "the text is selected";
  // To the control, anything goes.
  first = "shown", second = 1000;
  EXPECT_TRUE(m_dialog.Run(FALSE, body));
  EXPECT_EQ(Shown(kOther), "1000");
}

TEST_F(Exchange, ButtonsAndDatesGoBothWays) {
  CDateTimeCtrl date;
  ASSERT_TRUE(date.Create(WS_CHILD | DTS_SHOWNONE, m_place, &m_dialog, kDate));
  const CTime noon(2001, 2, 3, 12, 0, 0);
  const struct {
    int given, check, radio;  // and what is read of it
  } cases[] = {{2, 2, 2}, {1, 1, 1}, {0, 0, 0}, {5, 0, -1}, {-1, 0, -1}};
  for (const auto& c : cases) {
    int check = c.given, radio = c.given;
    CTime time = noon;
    const auto body = [&](CDataExchange* pDX) {
      DDX_Check(pDX, kCheck, check);
      DDX_Radio(pDX, kRadio, radio);
      DDX_DateTimeCtrl(pDX, kDate, time);
    };
    EXPECT_TRUE(m_dialog.Run(FALSE, body));
    check = radio = 77, time = CTime();
    EXPECT_TRUE(m_dialog.Run(TRUE, body));
    EXPECT_EQ(check, c.check) << c.given;
    EXPECT_EQ(radio, c.radio) << c.given;
    EXPECT_EQ(time.GetTime(), noon.GetTime());
  }
}

TEST_F(Exchange, ControlsGetTheirObjectsOnce) {
  CEdit edit;
  const auto body = [&](CDataExchange* pDX) { DDX_Control(pDX, kEdit, edit); };
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(m_dialog.Run(FALSE, body));
    EXPECT_EQ(m_dialog.GetDlgItem(kEdit), &edit);
  }
  edit.SetWindowText("through the object");
  EXPECT_EQ(Shown(kEdit), "through the object");
}

TEST_F(Exchange, FillingAControlIsNoNewsForTheDialog) {
  m_dialog.SetDlgItemText(kEdit, "typed");
  const int before = m_dialog.notified;
  EXPECT_GT(before, 0);
  ExpectShown(5, "5");
  EXPECT_EQ(m_dialog.notified, before);
}

TEST_F(Exchange, AControlThatIsMissingIsReported) {
  int value = 77;
  EXPECT_NE(Refused("", [&](CDataExchange* pDX) { DDX_Text(pDX, 9999, value); }), "");
  EXPECT_EQ(value, 77);
}

}  // namespace
