// The layout of a list from one of its windows to the next.
#include <map>

#include "lists/DialogSteps.h"

namespace {

class KeptList : public MListCtrl {
 public:
  KeptList(CWnd& parent, const std::string& key, const std::vector<const char*>& titles) {
    SetRegistryKey(key.c_str());
    SetSortMethod(1, 1);
    for (const char* const title : titles) AddColumn(title, CompareStr);
    EXPECT_TRUE(Create(WS_CHILD, CRect(0, 0, 300, 200), &parent, 1));
    SetInitialSortKey(0);
  }
  std::map<std::string, int> Widths() const {
    std::map<std::string, int> widths;
    for (int column = 0; column < GetColumnCount(); ++column)
      widths[str(GetColName(column))] = GetColumnWidth(column);
    return widths;
  }
  std::string Order() const {
    return str(GetColName(GetSortColumn())) + (IsSortDescending() ? " descending" : " ascending");
  }
};

class Layout : public TestWithWindows {
 protected:
  Layout() {
    m_parent.CreateEx(0, AfxRegisterWndClass(0), "Lists", WS_POPUP, 0, 0, 400, 300, nullptr,
                      nullptr);
  }
  ~Layout() override { m_parent.DestroyWindow(); }

  CWnd m_parent;
  UserKey m_key;
};

}  // namespace

TEST_F(Layout, IsThereAgainWithOtherColumnsToo) {
  std::map<std::string, int> widths;
  {
    KeptList list(m_parent, m_key.path(), {"Name", "Size", "State"});
    EXPECT_EQ(list.Order(), "Name ascending");
    list.SetColumnWidth(1, 111);
    list.SetSortKey(1, 0, 1);
    widths = list.Widths();
  }
  {
    const KeptList again(m_parent, m_key.path(), {"Name", "Size", "State"});
    EXPECT_EQ(again.Order(), "Size descending");
    EXPECT_EQ(again.Widths(), widths);
  }
  const KeptList others(m_parent, m_key.path(), {"Title", "Size", "Owner", "State"});
  EXPECT_EQ(others.Order(), "Size descending");
  EXPECT_EQ(others.Widths()["Size"], 111) << "a width goes with its title";
  EXPECT_EQ(others.Widths()["State"], widths["State"]);
  EXPECT_EQ(KeptList(m_parent, m_key.path(), {"Name"}).Order(), "Name ascending")
      << "that column has gone";
  EXPECT_EQ(KeptList(m_parent, m_key.path(), {"Size"}).Widths()["Size"], 111)
      << "kept while it was not there";
}

TEST_F(Layout, DamagedValuesAreNone) {
  const auto widths = KeptList(m_parent, m_key.path(), {"Name", "Size"}).Widths();
  const struct {
    const char* name;
    DWORD type;
    std::string bytes;
  } kDamage[] = {{"WidthName", REG_DWORD, std::string("\xFF\xFF\xFF\x7F", 4)},
                 {"WidthName", REG_SZ, "123"},
                 {"WidthName", REG_BINARY, "12"},
                 {"SortCol", REG_DWORD, std::string("\x02\0\0\0", 4)},
                 {"SortCol", REG_BINARY, std::string(300, 'x')},
                 {"SortOrder", REG_SZ, "down"}};
  for (const auto& damage : kDamage) {
    m_key.WriteRaw(damage.name, damage.type, damage.bytes);
    const KeptList list(m_parent, m_key.path(), {"Name", "Size"});
    EXPECT_EQ(list.Widths(), widths) << damage.name << " " << damage.type;
    EXPECT_EQ(list.Order(), "Name ascending") << damage.name << " " << damage.type;
  }
}
