#include "foldercmp/StatusPanes.h"

#include <algorithm>

#include "dircmp/DirCmpCtrl.h"
#include "foldercmp/DocumentFilter.h"
#include "foldercmp/HostTexts.h"
#include "foldercmp/resource.h"
#include "resources/resource.h"

namespace {

int documentCount(const DirCmpCtrl& list) {
  int count = 0;
  for (int state = 0; state < kFileStates; ++state)
    count += list.CountOf(static_cast<FileState>(state));
  return count;
}

CString stateText(int state, int count) {
  CString name;
  AfxExtractSubString(name, MString::Loaded(IDS_FILE_STATES), state, '\t');
  return FilledText(IDS_PANE_STATE, name, count);
}

}  // namespace

BOOL StatusPanes::Create(CWnd& parent) {
  constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | CCS_BOTTOM | SBARS_SIZEGRIP;
  return m_bar.Create(kStyle, CRect(0, 0, 0, 0), &parent, AFX_IDW_STATUS_BAR);
}

int StatusPanes::Height() const {
  CRect place;
  m_bar.GetWindowRect(place);
  return place.Height();
}

// The counts stand at the right, each as wide as it needs; the help lines have the rest.
void StatusPanes::Place(const PanelMetrics& metrics) {
  m_bar.SendMessage(WM_SIZE);
  CRect client;
  m_bar.GetClientRect(client);
  int edges[kPanes];
  int right = client.right - GetSystemMetrics(SM_CXVSCROLL);  // the grip
  for (int pane = kPanes - 1; pane > kText; --pane) {
    edges[pane] = right;
    if (!m_texts[pane].IsEmpty()) right -= metrics.TextWidth(m_texts[pane]) + metrics.Width(8);
  }
  edges[kText] = std::max(right, 0);
  const bool isEmpty = m_texts[kShown].IsEmpty();
  if (isEmpty) edges[kText] = -1;
  m_bar.SetParts(isEmpty ? 1 : kPanes, edges);
  for (int pane = kText + 1; !isEmpty && pane < kPanes; ++pane)
    m_bar.SetText(m_texts[pane], pane, 0);
}

void StatusPanes::ShowCounts(const DirCmpCtrl* list, const PanelMetrics& metrics) {
  for (CString& text : m_texts) text.Empty();
  if (list != nullptr) {
    m_texts[kShown] = FilledText(IDS_PANE_SHOWN, list->GetItemCount(), documentCount(*list));
    for (int state = 0; state < kHideableStates; ++state)
      m_texts[kFirstState + state] = stateText(state, list->CountOf(static_cast<FileState>(state)));
  }
  Place(metrics);
}
