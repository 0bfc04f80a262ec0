#include <afxcmn.h>

#include <gtest/gtest.h>

#include "controls/ControlTest.h"
#include "controls/Pixels.h"

namespace {

using ImageLists = ControlTest;

TEST_F(ImageLists, PicturesAreDrawnWithTheirMask) {
  // Two pictures beside each other, whose upper halves are to be transparent.
  Canvas strip(32, 16);
  strip.FillSolidRect(0, 0, 32, 8, kGreen);
  strip.FillSolidRect(0, 8, 16, 8, kRed);
  strip.FillSolidRect(16, 8, 16, 8, kBlue);
  CImageList list;
  ASSERT_TRUE(list.Create(16, 16, ILC_COLOR24 | ILC_MASK, 0, 4));
  EXPECT_EQ(list.Add(&strip.Picture(), kGreen), 0);
  EXPECT_EQ(list.GetImageCount(), 2);

  Canvas canvas;
  EXPECT_TRUE(list.Draw(&canvas, 1, CPoint(10, 20), ILD_TRANSPARENT));
  EXPECT_EQ(canvas.Find(kBlue), CRect(10, 28, 26, 36)) << "the upper half is transparent";
  EXPECT_EQ(canvas.Find(kRed), CRect(0, 0, 0, 0));
  EXPECT_EQ(canvas.GetPixel(12, 22), kWhite);

  EXPECT_FALSE(list.Draw(&canvas, 7, CPoint(0, 0), ILD_NORMAL));
}

TEST_F(ImageLists, ObjectsOwnWhatTheyHold) {
  CImageList list;
  ASSERT_TRUE(list.Create(16, 16, ILC_COLOR24, 0, 1));
  list.SetImageCount(3);
  EXPECT_EQ(CImageList::FromHandle(list), &list);
  CImageList copy;
  ASSERT_TRUE(copy.Create(&list));
  EXPECT_NE(copy.GetSafeHandle(), list.GetSafeHandle());
  EXPECT_EQ(copy.GetImageCount(), 3);
  const HIMAGELIST handle = list.Detach();
  EXPECT_EQ(CImageList::FromHandlePermanent(handle), nullptr);
  EXPECT_EQ(CImageList::FromHandle(handle)->GetImageCount(), 3);
  CImageList::DeleteTempMap();
  EXPECT_EQ(::ImageList_GetImageCount(handle), 3) << "a temporary object deletes nothing";
  EXPECT_TRUE(list.Attach(handle));
  EXPECT_TRUE(list.DeleteImageList());
  EXPECT_FALSE(list.DeleteImageList());
}

// A control deletes its lists at its end, but not those that belong to an object.
TEST_F(ImageLists, AListControlLeavesTheListsOfObjectsAlone) {
  CImageList list;
  ASSERT_TRUE(list.Create(16, 16, ILC_COLOR24, 0, 1));
  list.SetImageCount(3);
  for (int i = 0; i < 2; ++i) {
    CListCtrl control;
    ASSERT_TRUE(control.Create(WS_CHILD | LVS_REPORT, m_place, &m_parent, kControl));
    control.SetImageList(&list, LVSIL_SMALL);
    EXPECT_EQ(control.GetImageList(LVSIL_SMALL), &list);
    control.DestroyWindow();
    EXPECT_EQ(list.GetImageCount(), 3);
  }
}

}  // namespace
