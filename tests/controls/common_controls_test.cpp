#include <afxcmn.h>
#include <afxdtctl.h>

#include <gtest/gtest.h>

#include <string>

#include "controls/ControlTest.h"

namespace {

using CommonControls = ControlTest;

TEST_F(CommonControls, StatusBarsKeepTextsOfAnyLength) {
  CStatusBarCtrl bar;
  ASSERT_TRUE(Make(bar));
  int edges[] = {100, -1};
  EXPECT_TRUE(bar.SetParts(2, edges));
  for (const size_t length : {0, 10, 1000}) {
    const std::string expected(length, 's');
    EXPECT_TRUE(bar.SetText(expected.c_str(), 1, SBT_POPOUT));
    int type = 0;
    EXPECT_EQ(text(bar.GetText(1, &type)), expected);
    EXPECT_EQ(type, SBT_POPOUT);
  }
}

// Gives its tools' texts when they are to be shown.
class TipWindow : public CWnd {
 protected:
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override {
    auto* const info = reinterpret_cast<NMTTDISPINFO*>(lParam);
    if (info->hdr.code != static_cast<UINT>(TTN_NEEDTEXT))
      return CWnd::OnNotify(wParam, lParam, pResult);
    lstrcpyn(info->szText, "on demand", sizeof info->szText);
    return TRUE;
  }
};

TEST_F(CommonControls, ToolTipsKnowTheirTools) {
  TipWindow window;
  ASSERT_TRUE(window.Create(nullptr, "", WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  CToolTipCtrl tips;
  ASSERT_TRUE(tips.Create(&m_parent));
  const auto tip = [&](UINT id) {
    CString string;
    tips.GetText(string, &window, id);
    return text(string);
  };
  EXPECT_TRUE(tips.AddTool(&window, "the window"));
  const CRect part(5, 5, 20, 20);
  EXPECT_TRUE(tips.AddTool(&window, LPSTR_TEXTCALLBACK, &part, 7));
  EXPECT_EQ(tip(0), "the window");
  EXPECT_EQ(tip(7), "on demand");
  tips.UpdateTipText("another", &window);
  EXPECT_EQ(tip(0), "another");
  TOOLINFO found = {};
  EXPECT_TRUE(tips.HitTest(&window, CPoint(10, 10), &found));
  EXPECT_EQ(found.uId, 7u);
  tips.DelTool(&window, 7);
  EXPECT_EQ(tips.GetToolCount(), 1);
}

TEST_F(CommonControls, DatePickersHaveAValueOrNone) {
  CDateTimeCtrl picker;
  ASSERT_TRUE(Make(picker, DTS_SHOWNONE));
  const CTime moments[] = {CTime(2004, 2, 29, 23, 59, 58), CTime(1975, 7, 1, 0, 0, 0),
                           CTime(2037, 12, 31, 12, 30, 15)};
  for (const CTime& moment : moments) {
    EXPECT_TRUE(picker.SetTime(&moment));
    CTime read;
    EXPECT_EQ(picker.GetTime(read), static_cast<DWORD>(GDT_VALID));
    EXPECT_EQ(read.GetTime(), moment.GetTime());
  }
  CTime untouched = moments[1];
  EXPECT_TRUE(picker.SetTime(static_cast<const CTime*>(nullptr)));
  EXPECT_EQ(picker.GetTime(untouched), static_cast<DWORD>(GDT_NONE));
  EXPECT_EQ(untouched.GetTime(), moments[1].GetTime());

  CTime earliest, latest;
  EXPECT_EQ(picker.GetRange(&earliest, &latest), 0u);
  EXPECT_TRUE(picker.SetRange(&moments[1], nullptr));
  EXPECT_EQ(picker.GetRange(&earliest, &latest), static_cast<DWORD>(GDTR_MIN));
  EXPECT_EQ(earliest.GetYear(), 1975);
  EXPECT_EQ(latest.GetTime(), 0);
}

}  // namespace
