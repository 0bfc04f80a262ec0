#include <afxcmn.h>

#include <gtest/gtest.h>

#include "controls/ControlTest.h"

namespace {

using ImageLists = ControlTest;

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
