// lines [FOLDER]: counts the lines of the files of a folder tree and lists them.
#include <afxwin.h>
#include <afxext.h>

#include <cstdlib>

#include "CountLines.h"
#include "lists/MListCtrl.h"
#include "messages/message.h"
#include "ops/DirOp.h"
#include "resource.h"
#include "settings/RegistryUtil.h"
#include "util/TimeUtil.h"

namespace {

// The list fills the frame: what has the id of the first pane is laid out by it.
class LinesFrame : public CFrameWnd {
 public:
  void Show(const FileNames& files, const std::vector<int>& lines) {
    m_list.AddColumn("File", &MListCtrl::CompareStrNocase);
    m_list.AddNumericColumn("Lines", 1);
    m_list.AddTimeColumn("Modified", 1);
    for (int i = 0; i < files.GetSize(); ++i) {
      long accessed = 0, modified = 0;
      if (lines[i] == CountLines::kNotCounted) continue;
      GetFileTimes(files[i], accessed, modified, 0);
      // Numbers and times are given in the place of a text's address.
      const char* const values[] = {files[i], reinterpret_cast<const char*>(lines[i]),
                                    reinterpret_cast<const char*>(modified)};
      m_list.AddItem(MListCtrl::kAutomaticId, values);
    }
    m_list.SetSortMethod(0, 1);
    m_list.SetSortKey(1, 0, 1);
  }

 protected:
  BOOL OnCreateClient(LPCREATESTRUCT, CCreateContext*) override {
    return m_list.Create(WS_CHILD | WS_VISIBLE, CRect(), this, AFX_IDW_PANE_FIRST);
  }

 private:
  MListCtrl m_list;
};

class LinesApp : public CWinApp {
 public:
  BOOL InitInstance() override {
    Message::SetTitle("Lines");
    MRegistry::InitProductRegistry("SOFTWARE\\Example\\Lines", 1);

    const char* const folder = __argc > 1 ? __argv[1] : ".";
    FileNames files;
    const CStrMap<int> excluded;
    if (!GetDirectoryFiles(files, folder, excluded) || files.GetSize() == 0) {
      Message::DisplayErrorMessage(IDS_NO_FILES, folder);
      return FALSE;
    }
    CountLines work(files);
    if (!work.DoOperation(1)) Message::DisplayErrorMessage(IDS_NOT_ALL_READ);

    int total = 0, counted = 0;
    for (const int lines : work.Lines()) {
      if (lines == CountLines::kNotCounted) continue;
      total += lines;
      ++counted;
    }
    Message::DisplayMessage(Message::MSG_INFO, IDS_COUNTED, total, counted);

    auto* const frame = new LinesFrame;  // deletes itself
    if (!frame->Create(nullptr, "Lines")) return FALSE;
    m_pMainWnd = frame;
    frame->Show(files, work.Lines());
    frame->ShowWindow(m_nCmdShow);
    m_status = 0;
    return TRUE;
  }

  int ExitInstance() override {
    MRegistry::FreeProductRegistry();
    CWinApp::ExitInstance();
    return m_status;
  }

 private:
  int m_status = 1;
} theApp;

}  // namespace
