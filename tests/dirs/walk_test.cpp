// DirectoryOp: which files it calls for, and when it ends.
#include "Trees.h"

namespace {

class Walk : public DirectoryOp {
 public:
  explicit Walk(const std::string& root, int recurse = 1)
      : DirectoryOp(root.c_str(), recurse, &OnFile, this) {
    SetNoGui(1);
  }

  Names Run() {
    m_seen.clear();
    EXPECT_EQ(DoOperation(0), 1);
    return Sorted(m_seen);
  }
  int found() const { return m_foldersFound; }
  int finished() const { return m_foldersFinished; }
  unsigned percent() const { return m_current; }

  std::function<int(const std::string&)> m_onFile;

 private:
  static int OnFile(void* context, const char* path) {
    auto* const self = static_cast<Walk*>(context);
    const std::string relative = path + self->m_root.GetLength() + 1;
    self->m_seen.push_back(relative);
    return self->m_onFile ? self->m_onFile(relative) : 1;
  }

  Names m_seen;
};

class WalkTest : public testing::Test {
 protected:
  WalkTest() {
    for (const char* name : {"A.TXT", "a.txt.bak", "plain", "dir.txt\\readme", "dir.txt\\b.txt",
                             "sub\\deep\\c.c", "sub\\d.txt"})
      m_folder.Write(name, "x");
  }
  ~WalkTest() override { EXPECT_TRUE(m_log.Empty()) << m_log.Text(); }

  const AssertionLog m_log;
  const TempFolder m_folder;
};

}  // namespace

TEST_F(WalkTest, WhatIsAccepted) {
  const Names all = {"A.TXT", "a.txt.bak",  "dir.txt\\b.txt", "dir.txt\\readme",
                     "plain", "sub\\d.txt", "sub\\deep\\c.c"};
  Walk whole(m_folder.path());
  EXPECT_EQ(whole.Run(), all);
  EXPECT_EQ(whole.found(), 4);
  EXPECT_EQ(whole.finished(), 4);
  EXPECT_EQ(whole.percent(), 100u);
  EXPECT_EQ(whole.Run(), Names{}) << "every folder was walked already";

  EXPECT_EQ(Walk(m_folder.path(), 0).Run(), (Names{"A.TXT", "a.txt.bak", "plain"}));

  Walk filtered(m_folder.path());
  filtered.SetFilterExt("Txt");
  EXPECT_EQ(filtered.Run(), (Names{"A.TXT", "dir.txt\\b.txt", "sub\\d.txt"}));

  // Sub-folders must match the wildcard, too.
  Walk wild(m_folder.path());
  wild.SetWildcard("*.txt");
  EXPECT_EQ(wild.Run(), (Names{"A.TXT", "dir.txt\\b.txt"}));

  Walk nothing(m_folder / "missing");
  EXPECT_EQ(nothing.Run(), Names{});
  EXPECT_EQ(nothing.found(), 0);
}

TEST_F(WalkTest, Excluded) {
  Walk part(m_folder.path());
  part.ExcludeDir((m_folder / "SUB\\Deep").c_str());
  part.ExcludeDir((m_folder / "DIR.TXT").c_str());
  EXPECT_EQ(part.Run(), (Names{"A.TXT", "a.txt.bak", "plain", "sub\\d.txt"}));

  Walk none(m_folder.path());
  none.ExcludeDir(m_folder.path().c_str());
  EXPECT_EQ(none.Run(), Names{});
}

TEST_F(WalkTest, FailingCallback) {
  Walk ends(m_folder.path());
  ends.m_onFile = [](const std::string&) { return 0; };
  EXPECT_EQ(ends.Run().size(), 1u);
  EXPECT_TRUE(ends.wasAborted());

  Walk goesOn(m_folder.path());
  goesOn.StopLoopOnFailure(0);
  goesOn.m_onFile = ends.m_onFile;
  EXPECT_EQ(goesOn.Run().size(), 7u);
  EXPECT_FALSE(goesOn.wasAborted());

  Walk stopped(m_folder.path());
  stopped.m_onFile = [&](const std::string&) { return stopped.StopLoop(), 1; };
  EXPECT_EQ(stopped.Run().size(), 1u);
  EXPECT_LT(stopped.found(), 4) << "the rest is not even looked at";
}

// Somebody else works in the tree meanwhile.
TEST_F(WalkTest, FoldersComeAndGo) {
  m_folder.Write("first\\1", "x");
  m_folder.Write("second\\2", "x");
  Walk walk(m_folder.path());
  std::string removed;
  walk.m_onFile = [&](const std::string& path) {
    if (path != "first\\1" && path != "second\\2") return 1;
    if (!removed.empty()) return 1;
    removed = path == "first\\1" ? "second" : "first";
    RemoveDirectoryA((m_folder / removed).c_str(), 1);
    m_folder.Write(path + "-new\\3", "x");
    return 1;
  };
  const Names seen = walk.Run();
  EXPECT_EQ(std::count(seen.begin(), seen.end(), removed + (removed == "first" ? "\\1" : "\\2")),
            0);
  EXPECT_EQ(std::count(seen.begin(), seen.end(), "sub\\deep\\c.c"), 1);
  EXPECT_EQ(walk.finished(), walk.found());
}
