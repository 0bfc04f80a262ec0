#include <afxcmn.h>

#include <gtest/gtest.h>

#include <string>

#include "controls/ControlTest.h"

namespace {

class Tree : public ControlTest {
 protected:
  void SetUp() override {
    ControlTest::SetUp();
    ASSERT_TRUE(Make(m_tree, TVS_HASLINES));
    m_animals = m_tree.InsertItem("animals");
    m_cat = m_tree.InsertItem("cat", m_animals);
    m_ant = m_tree.InsertItem("ant", m_animals);
    m_plants = m_tree.InsertItem("plants");
  }
  void TearDown() override {
    m_tree.DestroyWindow();
    ControlTest::TearDown();
  }

  // All texts, depth first, children in parentheses.
  std::string Walk(HTREEITEM item) {
    std::string all;
    for (; item != nullptr; item = m_tree.GetNextSiblingItem(item)) {
      if (!all.empty()) all += ' ';
      all += text(m_tree.GetItemText(item));
      if (m_tree.ItemHasChildren(item)) all += " (" + Walk(m_tree.GetChildItem(item)) + ")";
    }
    return all;
  }

  CTreeCtrl m_tree;
  HTREEITEM m_animals, m_cat, m_ant, m_plants;
};

TEST_F(Tree, IsWalkedInOrder) {
  EXPECT_EQ(Walk(m_tree.GetRootItem()), "animals (cat ant) plants");
  EXPECT_EQ(m_tree.GetParentItem(m_ant), m_animals);
  EXPECT_EQ(m_tree.GetParentItem(m_plants), nullptr);
  EXPECT_EQ(m_tree.GetPrevSiblingItem(m_ant), m_cat);
  m_tree.InsertItem("bee", m_animals, m_cat);
  m_tree.InsertItem("alga", m_plants, TVI_FIRST);
  EXPECT_EQ(Walk(m_tree.GetRootItem()), "animals (cat bee ant) plants (alga)");
  EXPECT_TRUE(m_tree.SortChildren(m_animals));
  EXPECT_EQ(Walk(m_tree.GetRootItem()), "animals (ant bee cat) plants (alga)");
  EXPECT_TRUE(m_tree.DeleteItem(m_animals));
  EXPECT_EQ(Walk(m_tree.GetRootItem()), "plants (alga)");
}

TEST_F(Tree, ItemsKeepTextsDataAndChecks) {
  for (const size_t length : {0, 253, 254, 255, 256, 5000}) {
    const std::string expected(length, 'z');
    EXPECT_TRUE(m_tree.SetItemText(m_cat, expected.c_str()));
    // The system keeps at most 259 characters of an item for showing; this one keeps them all.
    EXPECT_EQ(text(m_tree.GetItemText(m_cat)), expected);
  }
  EXPECT_TRUE(m_tree.SetItemData(m_cat, 4711));
  EXPECT_EQ(m_tree.GetItemData(m_cat), 4711u);
  m_tree.ModifyStyle(0, TVS_CHECKBOXES);
  EXPECT_TRUE(m_tree.SetCheck(m_cat));
  EXPECT_TRUE(m_tree.GetCheck(m_cat) && !m_tree.GetCheck(m_ant));
}

}  // namespace
