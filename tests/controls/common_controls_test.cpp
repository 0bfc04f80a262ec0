#include <afxcmn.h>
#include <afxdtctl.h>

#include <gtest/gtest.h>

#include <string>

#include "controls/ControlTest.h"

namespace {

using CommonControls = ControlTest;

TEST_F(CommonControls, ProgressAndSlidersKeepRangeAndPosition) {
  CProgressCtrl progress;
  ASSERT_TRUE(progress.Create(WS_CHILD | WS_VISIBLE | WS_BORDER, m_place, &m_parent, kControl));
  progress.SetRange32(-100000, 100000);
  int lower, upper;
  progress.GetRange(lower, upper);
  EXPECT_EQ(lower, -100000);
  EXPECT_EQ(upper, 100000);
  progress.SetPos(90000);
  EXPECT_EQ(progress.OffsetPos(5000), 90000);
  progress.SetStep(1000);
  EXPECT_EQ(progress.StepIt(), 95000);
  EXPECT_EQ(progress.GetPos(), 96000);

  CSliderCtrl slider;
  ASSERT_TRUE(slider.Create(WS_CHILD | TBS_ENABLESELRANGE, m_place, &m_parent, kControl));
  slider.SetRange(10, 70000);
  slider.SetPos(100000);
  EXPECT_EQ(slider.GetPos(), 70000);
  slider.SetSelection(20, 30);
  slider.GetSelection(lower, upper);
  EXPECT_EQ(lower, 20);
  EXPECT_EQ(upper, 30);
}

TEST_F(CommonControls, SpinButtonsMoveTheirBuddy) {
  CEdit edit;
  ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  CSpinButtonCtrl spin;
  ASSERT_TRUE(spin.Create(WS_CHILD | WS_VISIBLE | UDS_SETBUDDYINT | UDS_NOTHOUSANDS, m_place,
                          &m_parent, kControl + 1));
  spin.SetBuddy(&edit);
  EXPECT_EQ(spin.GetBuddy(), &edit);
  spin.SetRange32(-5, 100000);
  spin.SetPos32(99999);
  CString shown;
  edit.GetWindowText(shown);
  EXPECT_EQ(text(shown), "99999");
  edit.SetWindowText("1234");
  BOOL error = TRUE;
  EXPECT_EQ(spin.GetPos32(&error), 1234);
  EXPECT_FALSE(error);
  spin.SetRange(-7, 8);
  int lower, upper;
  spin.GetRange(lower, upper);
  EXPECT_EQ(lower, -7);
  EXPECT_EQ(upper, 8);
}

TEST_F(CommonControls, TabsAreInsertedSelectedAndHit) {
  CTabCtrl tabs;
  ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(tabs.InsertItem(i, "Page"), i);
  EXPECT_EQ(tabs.SetCurSel(2), 0);
  EXPECT_EQ(tabs.GetCurSel(), 2);
  CRect place;
  EXPECT_TRUE(tabs.GetItemRect(1, &place));
  TCHITTESTINFO hit = {};
  hit.pt = place.CenterPoint();
  EXPECT_EQ(tabs.HitTest(&hit), 1);
  CRect inside(0, 0, 300, 200);
  tabs.AdjustRect(FALSE, inside);
  EXPECT_GE(inside.top, place.bottom);
  EXPECT_TRUE(tabs.DeleteItem(0));
  EXPECT_EQ(tabs.GetItemCount(), 2);
}

TEST_F(CommonControls, StatusBarsKeepTextsOfAnyLength) {
  CStatusBarCtrl bar;
  ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  int edges[] = {100, -1};
  EXPECT_TRUE(bar.SetParts(2, edges));
  for (const size_t length : {0, 10, 1000}) {
    const std::string expected(length, 's');
    EXPECT_TRUE(bar.SetText(expected.c_str(), 1, SBT_POPOUT));
    int type = 0;
    EXPECT_EQ(text(bar.GetText(1, &type)), expected);
    EXPECT_EQ(type, SBT_POPOUT);
  }
  int horizontal = -1, vertical = -1, between = -1;
  EXPECT_TRUE(bar.GetBorders(horizontal, vertical, between));
  EXPECT_GE(horizontal, 0);
}

TEST_F(CommonControls, ToolBarsKeepTheirButtons) {
  CToolBarCtrl bar;
  ASSERT_TRUE(bar.Create(WS_CHILD | WS_VISIBLE | CCS_NORESIZE, m_place, &m_parent, kControl));
  EXPECT_EQ(bar.AddStrings("First\0Second\0"), 0);
  TBBUTTON buttons[2] = {};
  for (int i = 0; i < 2; ++i) {
    buttons[i].idCommand = 100 + i;
    buttons[i].fsState = TBSTATE_ENABLED;
    buttons[i].fsStyle = TBSTYLE_CHECK;
    buttons[i].iString = i;
  }
  EXPECT_TRUE(bar.AddButtons(2, buttons));
  EXPECT_EQ(bar.GetButtonCount(), 2);
  EXPECT_EQ(bar.CommandToIndex(101), 1u);
  bar.EnableButton(100, FALSE);
  bar.CheckButton(101);
  EXPECT_FALSE(bar.IsButtonEnabled(100));
  EXPECT_TRUE(bar.IsButtonEnabled(101));
  EXPECT_TRUE(bar.IsButtonChecked(101));
  EXPECT_EQ(bar.GetState(999), -1);
  CRect second;
  EXPECT_TRUE(bar.GetItemRect(1, &second));
  CPoint inside = second.CenterPoint();
  EXPECT_EQ(bar.HitTest(&inside), 1);
  EXPECT_TRUE(bar.DeleteButton(0));
  EXPECT_EQ(bar.CommandToIndex(101), 0u);
}

// Gives its tools' texts when they are to be shown.
class TipWindow : public CWnd {
 public:
  int asked = 0;

 protected:
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override {
    auto* const info = reinterpret_cast<NMTTDISPINFO*>(lParam);
    if (info->hdr.code != static_cast<UINT>(TTN_NEEDTEXT))
      return CWnd::OnNotify(wParam, lParam, pResult);
    ++asked;
    lstrcpyn(info->szText, "on demand", sizeof info->szText);
    return TRUE;
  }
};

TEST_F(CommonControls, ToolTipsKnowTheirTools) {
  TipWindow window;
  ASSERT_TRUE(window.Create(nullptr, "", WS_CHILD | WS_VISIBLE, m_place, &m_parent, kControl));
  CToolTipCtrl tips;
  ASSERT_TRUE(tips.Create(&m_parent));
  EXPECT_TRUE(tips.AddTool(&window, "the window"));
  const CRect part(5, 5, 20, 20);
  EXPECT_TRUE(tips.AddTool(&window, LPSTR_TEXTCALLBACK, &part, 7));
  EXPECT_EQ(tips.GetToolCount(), 2);
  CString string;
  tips.GetText(string, &window);
  EXPECT_EQ(text(string), "the window");
  tips.GetText(string, &window, 7);
  EXPECT_EQ(text(string), "on demand");
  EXPECT_GT(window.asked, 0);
  tips.UpdateTipText("another", &window);
  tips.GetText(string, &window);
  EXPECT_EQ(text(string), "another");
  TOOLINFO found = {};
  EXPECT_TRUE(tips.HitTest(&window, CPoint(10, 10), &found));
  EXPECT_EQ(found.uId, 7u);
  tips.DelTool(&window, 7);
  EXPECT_EQ(tips.GetToolCount(), 1);
}

TEST_F(CommonControls, DatePickersHaveAValueOrNone) {
  CDateTimeCtrl picker;
  ASSERT_TRUE(picker.Create(WS_CHILD | WS_VISIBLE | DTS_SHOWNONE, m_place, &m_parent, kControl));
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

  SYSTEMTIME day = {};
  day.wYear = 2005, day.wMonth = 6, day.wDay = 7;
  EXPECT_TRUE(picker.SetTime(&day));
  SYSTEMTIME read = {};
  EXPECT_EQ(picker.GetTime(&read), static_cast<DWORD>(GDT_VALID));
  EXPECT_EQ(read.wDay, 7);
  EXPECT_TRUE(picker.SetFormat("yyyy'-'MM'-'dd"));

  CTime earliest, latest;
  EXPECT_EQ(picker.GetRange(&earliest, &latest), 0u);
  EXPECT_TRUE(picker.SetRange(&moments[1], nullptr));
  EXPECT_EQ(picker.GetRange(&earliest, &latest), static_cast<DWORD>(GDTR_MIN));
  EXPECT_EQ(earliest.GetYear(), 1975);
  EXPECT_EQ(latest.GetTime(), 0);
}

TEST_F(CommonControls, MonthCalendarsSelectDays) {
  CMonthCalCtrl calendar;
  ASSERT_TRUE(calendar.Create(WS_CHILD | WS_VISIBLE, CPoint(0, 0), &m_parent, kControl));
  CRect needed, size;
  calendar.GetMinReqRect(&needed);
  calendar.GetClientRect(&size);
  EXPECT_EQ(size.Size(), needed.Size());
  const CTime noon(2010, 3, 4, 12, 0, 0);
  EXPECT_TRUE(calendar.SetCurSel(noon));
  CTime day;
  EXPECT_TRUE(calendar.GetCurSel(day));
  EXPECT_EQ(day.GetTime(), CTime(2010, 3, 4, 0, 0, 0).GetTime());
  calendar.SetFirstDayOfWeek(2);
  BOOL local = TRUE;
  EXPECT_EQ(calendar.GetFirstDayOfWeek(&local), 2);
  EXPECT_FALSE(local);
}

}  // namespace
