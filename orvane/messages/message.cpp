#include "messages/message.h"

#include <iterator>

#include "diag/trace.h"
#include "resources/resource.h"

namespace {

// What comes with each type of message, in the order of the types.
struct Look {
  const char* icon;
  UINT standardIcon;  // of the system's message box
  bool warns;         // with a sound, and in the trace log
};
const Look kLooks[] = {{IDI_ASTERISK, MB_ICONASTERISK, false},
                       {IDI_ASTERISK, MB_ICONASTERISK, false},
                       {IDI_EXCLAMATION, MB_ICONEXCLAMATION, true},
                       {IDI_HAND, MB_ICONHAND, true}};

const Look& lookOf(Message::MessageType type) {
  const bool known = type >= 0 && type < static_cast<int>(std::size(kLooks));
  ASSERT(known);
  return kLooks[known ? type : Message::MSG_INFO];
}

CString messageTitle;
int silent = 0;

bool mayShow() { return !silent && !AssertVerifyTrace::BlockGui(); }

void traceMessage(const char* text) {
  TraceFunction::TraceEvent("Title:", messageTitle);
  TraceFunction::TraceEvent("Message:", text);
}

CString loaded(BOOL found, const MString& text) {
  if (!found) throw "Id error";
  return text;
}

CString textOf(UINT id, HINSTANCE module = nullptr) {
  MString text;
  const BOOL found = text.LoadString(id, module);
  return loaded(found, text);
}

template <class... Inserts>
CString formatted(UINT id, const Inserts&... inserts) {
  MString text;
  const BOOL found = text.FormatMessage(id, inserts...);
  return loaded(found, text);
}

CString formattedText(const char* format, const char* insert) {
  CString inserted(format);
  if (inserted.Find("%1") < 0) inserted.Replace("%s", "%1");
  MString text;
  text.FormatText(inserted, insert);
  return text;
}

MRegistry::DisplayMessageVal storedAnswer(UINT id) {
  if (!MRegistry::HasProductRegistry()) {
    return AssertVerifyTrace::BlockGui() ? MRegistry::DMV_YES : MRegistry::DMV_SHOW;
  }
  return MRegistry::GetProductRegistry().GetDisplayMessageVal(static_cast<int>(id));
}

// Before there is a product registry: the system's message box. style: MB_OK or MB_YESNO.
int displayPlain(Message::MessageType type, const char* text, UINT style) {
  const Look& look = lookOf(type);
  if (look.warns || !mayShow()) traceMessage(text);
  return mayShow() ? AfxMessageBox(text, style | look.standardIcon) : IDOK;
}

int displayText(Message&& message) { return message.DoModal(); }

}  // namespace

Message::Message(MessageType type, const char* text) : Message(type, Content{CString(text), 0}) {}

Message::Message(MessageType type, const char* format, const char* insert)
    : Message(type, Content{formattedText(format, insert), 0}) {}

Message::Message(MessageType type, UINT id) : Message(type, Content{textOf(id), id}) {}

Message::Message(MessageType type, UINT id, MModule module)
    : Message(type, Content{textOf(id, module.Handle()), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one)
    : Message(type, Content{formatted(id, one), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one, MModule module)
    : Message(type, Content{formatted(id, one, module), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one, const MInsert& two)
    : Message(type, Content{formatted(id, one, two), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one, const MInsert& two, MModule module)
    : Message(type, Content{formatted(id, one, two, module), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one, const MInsert& two,
                 const MInsert& three)
    : Message(type, Content{formatted(id, one, two, three), id}) {}

Message::Message(MessageType type, UINT id, const MInsert& one, const MInsert& two,
                 const MInsert& three, MModule module)
    : Message(type, Content{formatted(id, one, two, three, module), id}) {}

Message::Message(MessageType type, const Content& content) : m_type(type), m_content(content) {
  if (!MRegistry::HasProductRegistry()) return;
  m_show = type >= MRegistry::GetProductRegistry().GetMessageDisplayLevel();
  if (type != MSG_NOTE || !m_show || content.id == 0) return;
  m_show = ShowMessage(content.id);
  MString label;
  if (!label.LoadString(IDS_DONT_SHOW_AGAIN)) label = "Don't show me this message again";
  SetCheckBox(label, 0);
  m_canBeSilenced = true;
}

void Message::SetCheckBox(int index, const char* text, int value) {
  MMessageBox::SetCheckBox(index, text);
  SetVal(index, value);
}

int Message::DoModal() {
  if (!mayShow()) {
    traceMessage(m_content.text);
    return IDOK;
  }
  if (!m_show) {
    const MRegistry::DisplayMessageVal answer = storedAnswer(m_content.id);
    if (answer == MRegistry::DMV_YES) return IDOK;
    if (answer == MRegistry::DMV_NO && m_allowSelectiveCancel) return IDCANCEL;
    ASSERT(!"a message without an answer");
  }
  const Look& look = lookOf(m_type);
  Initialize(messageTitle, m_content.text);
  SetIcon(look.icon);
  if (look.warns) {
    traceMessage(m_content.text);
    MessageBeep(look.standardIcon);
  }
  const int result = MMessageBox::DoModal();
  const bool answered = result == IDOK || result == IDCANCEL;
  if (answered && m_canBeSilenced && GetVal(0) == BST_CHECKED) {
    DontShowMessage(m_content.id, TRUE, result == IDOK);
  }
  return result;
}

int Message::DisplayMessage(MessageType type, UINT id) {
  if (!MRegistry::HasProductRegistry()) return displayPlain(type, textOf(id), MB_OK);
  return displayText(Message(type, id));
}

int Message::DisplayMessage(MessageType type, UINT id, const MInsert& one, const MInsert& two,
                            const MInsert& three) {
  if (!MRegistry::HasProductRegistry()) {
    return displayPlain(type, formatted(id, one, two, three), MB_OK);
  }
  return displayText(Message(type, id, one, two, three));
}

int Message::DisplayErrorMessage(UINT id) { return DisplayMessage(MSG_ERROR, id); }

int Message::DisplayErrorMessage(UINT id, const MInsert& one, const MInsert& two) {
  return DisplayMessage(MSG_ERROR, id, one, two);
}

BOOL Message::GetConfirmation(UINT id) {
  int noCheckBox = 0;
  return GetConfirmationWithCheck(0, noCheckBox, id);
}

BOOL Message::GetConfirmation(UINT id, const MInsert& one, const MInsert& two) {
  int noCheckBox = 0;
  return GetConfirmationWithCheck(0, noCheckBox, id, one, two);
}

BOOL Message::GetConfirmationWithCheck(UINT checkTextId, int& checkValue, UINT id) {
  return Confirm(checkTextId, checkValue, {textOf(id), id});
}

BOOL Message::GetConfirmationWithCheck(UINT checkTextId, int& checkValue, UINT id,
                                       const MInsert& one, const MInsert& two) {
  return Confirm(checkTextId, checkValue, {formatted(id, one, two), id});
}

BOOL Message::Confirm(UINT checkTextId, int& checkValue, const Content& content) {
  if (!MRegistry::HasProductRegistry())
    return displayPlain(MSG_WARNING, content.text, MB_YESNO) != IDNO;
  Message message(MSG_WARNING, content);
  message.SetButtons(MB_STYLE_YES_NO);
  MString checkText;
  if (checkTextId != 0) VERIFY(checkText.LoadString(checkTextId));
  message.SetCheckBox(checkText, checkValue);
  const int result = message.DoModal();
  if (!checkText.IsEmpty()) checkValue = message.GetVal(0);
  return result == IDOK;
}

BOOL Message::ShowMessage(UINT id) { return storedAnswer(id) == MRegistry::DMV_SHOW; }

BOOL Message::ShowMessage(UINT id, MRegistry::DisplayMessageVal& answer) {
  answer = storedAnswer(id);
  return answer == MRegistry::DMV_SHOW;
}

int Message::DontShowMessage(UINT id, int dontShow, int answer) {
  if (!MRegistry::HasProductRegistry()) return 0;
  return MRegistry::GetProductRegistry().SetDontShowMessage(static_cast<int>(id), dontShow, answer);
}

void Message::SetTitle(const char* title) { messageTitle = title; }
CString Message::GetTitle() { return messageTitle; }
void Message::SetSilent(int value) { silent = value; }
int Message::IsSilent() { return silent; }
