#include "messages/MessageBox.h"

#include <mbctype.h>
#include <mbstring.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "diag/trace.h"
#include "resources/resource.h"
#include "settings/MString.h"

namespace {

// Hundredths of a millimetre.
constexpr int kMargin = 300, kSpacing = 300;
constexpr int kIconSize = 1500;
constexpr int kLeastButtonWidth = 1900;
// What the close box takes of the caption.
constexpr int kCloseBoxWidth = 1200;

struct Label {
  UINT id;
  const char* fallback;  // where the string table has been replaced by one without it
};
constexpr Label kOk = {IDS_BUTTON_OK, "  OK  "}, kCancel = {IDS_BUTTON_CANCEL, " Cancel "},
                kStop = {IDS_BUTTON_STOP, " Stop "}, kYes = {IDS_BUTTON_YES, "  Yes  "},
                kNo = {IDS_BUTTON_NO, "  No  "}, kRetry = {IDS_BUTTON_RETRY, " Retry "};

struct Buttons {
  const Label* ok;
  const Label* cancel;  // null: there is none
};
// In the order of the styles.
constexpr Buttons kButtons[] = {
    {&kOk, nullptr}, {&kOk, &kCancel}, {&kOk, &kStop}, {&kYes, &kNo}, {&kOk, &kRetry}};

Buttons buttonsOf(MMessageBox::MessageButtonStyle style) {
  const bool known = style >= 0 && style < static_cast<int>(std::size(kButtons));
  ASSERT(known);
  return kButtons[known ? style : MMessageBox::MB_STYLE_OK];
}

CString textOf(const Label& label) {
  MString text;
  return text.LoadString(label.id) ? CString(text) : CString(label.fallback);
}

// A style with the type of a check box that changes when it is clicked: a button of another type
// would end the dialog or do nothing.
DWORD checkBoxStyle(DWORD style) {
  const DWORD type = style & BS_TYPEMASK;
  const bool hasThree = type == BS_3STATE || type == BS_AUTO3STATE;
  return (style & ~BS_TYPEMASK) | (hasThree ? BS_AUTO3STATE : BS_AUTOCHECKBOX);
}

// A line in pieces, as the time that an edit takes to break one grows with the square of its
// length.
CString inPieces(CString line) {
  constexpr int kLongest = 4000;  // bytes
  CString pieces;
  while (line.GetLength() > kLongest) {
    int end = line.Left(kLongest).ReverseFind(' ') + 1;
    if (end == 0) {
      const auto* const bytes = reinterpret_cast<const unsigned char*>(static_cast<LPCSTR>(line));
      end = _mbsbtype(bytes, kLongest - 1) == _MBC_LEAD ? kLongest - 1 : kLongest;
    }
    pieces += line.Left(end) + "\r\n";
    line = line.Mid(end);
  }
  return pieces + line;
}

}  // namespace

// Hosts may take their addresses, as std::min does.
const int MMessageBox::kCheckBoxes;
const int MMessageBox::kMostLines;

void MMessageBox::Initialize(const char* title, const char* text) {
  m_title = title;
  if (m_title.IsEmpty()) m_title = AfxGetAppName();
  m_text = text;
}

void MMessageBox::SetIcon(const char* resourceName) {
  m_iconId = IS_INTRESOURCE(resourceName) ? resourceName : nullptr;
  m_iconName = m_iconId != nullptr ? "" : resourceName;
}

bool MMessageBox::IsIndex(int index) {
  const bool is = index >= 0 && index < kCheckBoxes;
  ASSERT(is);
  return is;
}

void MMessageBox::SetCheckBox(int index, const char* text, DWORD style) {
  if (!IsIndex(index)) return;
  m_checkBoxes[index].text = text;
  m_checkBoxes[index].style = checkBoxStyle(style);
}

void MMessageBox::SetVal(int index, int value) {
  if (IsIndex(index)) m_checkBoxes[index].value = value;
}

int MMessageBox::GetVal(int index) const { return IsIndex(index) ? m_checkBoxes[index].value : 0; }

void MMessageBox::EnableCheckBox(int index, BOOL enable) {
  if (IsIndex(index)) m_checkBoxes[index].enabled = enable;
}

// The system's own icons have numbers of their own.
HICON MMessageBox::Icon() const {
  if (m_iconId == nullptr && m_iconName.IsEmpty()) return nullptr;
  const bool isSystems = m_iconId >= IDI_APPLICATION && m_iconId <= MAKEINTRESOURCE(32518);
  if (isSystems) return ::LoadIcon(nullptr, m_iconId);
  const char* const name = m_iconId != nullptr ? m_iconId : static_cast<LPCSTR>(m_iconName);
  return ::LoadIcon(AfxFindResourceHandle(name, RT_GROUP_ICON), name);
}

void MMessageBox::SplitLines() {
  m_lines.assign(1, CString());
  const char* rest = m_text;
  while (*rest != 0) {
    const size_t length = strcspn(rest, "\r\n");
    m_lines.back() = CString(rest, static_cast<int>(length));
    rest += length;
    if (*rest == 0) break;
    const bool isPair = (rest[1] == '\r' || rest[1] == '\n') && rest[1] != rest[0];
    rest += isPair ? 2 : 1;
    if (m_lines.size() == kMostLines) {
      ASSERT(*rest == 0);
      break;
    }
    m_lines.emplace_back();
  }
}

MMessageBox::Sizes MMessageBox::CalcSize(int lineWidth) const {
  Sizes sizes = {};
  for (const CString& line : m_lines) {
    CSize size = GetTextSize(line, MControlKind::TextBox, lineWidth);
    if (size.cy == 0) size.cy = GetTextSize("XX").cy;
    sizes.lines.push_back(size);
    sizes.text = CSize(std::max(sizes.text.cx, size.cx), sizes.text.cy + size.cy);
  }
  const bool hasIcon = m_iconId != nullptr || !m_iconName.IsEmpty();
  sizes.left = hasIcon ? kIconSize + 2 * kMargin : kMargin;
  if (hasIcon) sizes.text.cy = std::max<int>(sizes.text.cy, kIconSize);

  int widest = sizes.text.cx, checksHeight = 0;
  for (int i = 0; i < kCheckBoxes; ++i) {
    if (m_checkBoxes[i].text.IsEmpty()) continue;
    sizes.checks[i] = GetTextSize(m_checkBoxes[i].text, MControlKind::CheckBox, lineWidth);
    // A text that would fill the screen leaves room for the others.
    sizes.checks[i].cy = std::min<int>(sizes.checks[i].cy, GetLargestSize().cy / 4);
    widest = std::max<int>(widest, sizes.checks[i].cx);
    checksHeight += sizes.checks[i].cy + kSpacing;
  }

  const Buttons buttons = buttonsOf(m_buttonStyle);
  sizes.button = CSize(kLeastButtonWidth, GetTextSize("OK", MControlKind::PushButton).cy);
  for (const Label* label : {buttons.ok, buttons.cancel}) {
    if (label == nullptr) continue;
    const CSize needed = GetTextSize(textOf(*label), MControlKind::PushButton);
    sizes.button =
        CSize(std::max(sizes.button.cx, needed.cx), std::max(sizes.button.cy, needed.cy));
  }
  const int row = buttons.cancel == nullptr ? sizes.button.cx : 2 * sizes.button.cx + kSpacing;
  const int caption = std::min<int>(GetTextSize(m_title).cx, lineWidth) + kCloseBoxWidth;

  sizes.whole.cx = std::max({sizes.left + kMargin + widest, row + 2 * kMargin, caption});
  sizes.whole.cy = checksHeight + 3 * kSpacing + sizes.button.cy + sizes.text.cy;
  return sizes;
}

MMessageBox::Sizes MMessageBox::FittingSizes() const {
  const CSize largest = GetLargestSize();
  const int widest = largest.cx - kIconSize - 3 * kMargin;
  // Long lines are hard to read, but better than a text that one must scroll.
  Sizes sizes = CalcSize(widest * 3 / 5);
  if (sizes.whole.cy > largest.cy) sizes = CalcSize(widest);
  const int excess = sizes.whole.cy - largest.cy;
  if (excess > 0) {
    sizes.text = CSize(widest, sizes.text.cy - excess);
    sizes.whole = largest;
  }
  return sizes;
}

void MMessageBox::AddText(const Sizes& sizes) {
  int height = 0;
  for (const CSize& line : sizes.lines) height += line.cy;
  if (height > sizes.text.cy) {
    CString text;
    for (const CString& line : m_lines) text += inPieces(line) + "\r\n";
    text = text.Left(text.GetLength() - 2);
    SetEdit(sizes.left, kSpacing, sizes.text.cx, sizes.text.cy, text,
            ES_MULTILINE | ES_READONLY | WS_VSCROLL);
    return;
  }
  int y = kSpacing + (sizes.text.cy - height) / 2;  // a short text, beside the middle of the icon
  for (size_t i = 0; i < m_lines.size(); ++i) {
    SetTextBox(sizes.left, y, sizes.text.cx, sizes.lines[i].cy, m_lines[i]);
    y += sizes.lines[i].cy;
  }
}

void MMessageBox::AddControls(const Sizes& sizes) {
  if (const HICON icon = Icon()) SetIconBox(kMargin, kSpacing, kIconSize, kIconSize, icon);
  AddText(sizes);
  int y = sizes.text.cy + 2 * kSpacing;
  for (int i = 0; i < kCheckBoxes; ++i) {
    CheckBox& box = m_checkBoxes[i];
    if (box.text.IsEmpty()) continue;
    box.control = &SetCheckButton(sizes.left, y, sizes.checks[i].cx, sizes.checks[i].cy, box.text,
                                  box.value, box.style);
    box.control->Enable(box.enabled);
    y += sizes.checks[i].cy + kSpacing;
  }
  const Buttons buttons = buttonsOf(m_buttonStyle);
  const int step = sizes.button.cx + kSpacing;
  const int row = buttons.cancel == nullptr ? sizes.button.cx : step + sizes.button.cx;
  const int x = (sizes.whole.cx - row) / 2;
  SetOkButton(x, y, sizes.button.cx, sizes.button.cy, textOf(*buttons.ok));
  if (buttons.cancel != nullptr) {
    SetCancelButton(x + step, y, sizes.button.cx, sizes.button.cy, textOf(*buttons.cancel));
  }
}

int MMessageBox::DoModal() {
  if (AssertVerifyTrace::BlockGui()) return IDOK;
  RemoveControls();
  SplitLines();
  const Sizes sizes = FittingSizes();
  SetDialog(kCentred, kCentred, sizes.whole.cx, sizes.whole.cy, m_title);
  AddControls(sizes);
  const int result = MDialog::DoModal();
  for (CheckBox& box : m_checkBoxes) {
    if (box.control != nullptr) box.value = box.control->GetVal();
    box.control = nullptr;
  }
  return result;
}

// The first key press is for the buttons, not for a check box.
BOOL MMessageBox::OnInitDialog() {
  MDialog::OnInitDialog();
  GotoDlgCtrl(GetDlgItem(IDOK));
  return FALSE;
}

void MMessageBox::OnCancel() {
  UpdateData(TRUE);
  Finish(GetDlgItem(IDCANCEL) != nullptr ? IDCANCEL : IDOK);
}
