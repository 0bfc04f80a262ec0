// Messages and questions to the user, and what the user wants to see of them.
#pragma once

#include <afxwin.h>

#include "entry/export.h"
#include "messages/MessageBox.h"
#include "settings/MString.h"
#include "settings/RegistryUtil.h"

// A message has a type and, when its text is from a string table, an id. The user sees messages
// from a type on (MRegistry::SetMessageDisplayLevel), and can say that a note is not to be shown
// again; that is remembered by its id in the product registry, together with the answer.
//
// Without a product registry messages are shown and nothing is remembered. Where no window may be
// shown (SetSilent, AssertVerifyTrace::BlockGui) a message goes to the trace log, and its answer is
// the first button.
//
// For the thread of the user interface. The title and the silent switch are the process's.
class ORVANE_API Message : public MMessageBox {
 public:
  enum MessageType {
    MSG_NOTE,     // can be silenced by the user
    MSG_INFO,     //
    MSG_WARNING,  // with a sound, and in the trace log
    MSG_ERROR     // with a sound, and in the trace log
  };

  Message(MessageType type, const char* text);
  // insert: takes the place of "%1", or of "%s" where there is no "%1".
  Message(MessageType type, const char* format, const char* insert);

  // The text with an id, with inserts for its %1, %2 and %3 (MString::FormatMessage). It is looked
  // for in the module, then, and without a module, where MString looks.
  //
  // Throws the text "Id error" (const char*) when no string table has the id. This is the one
  // exception that leaves messages, because a message without its text is a fault of the program.
  Message(MessageType type, UINT id);
  Message(MessageType type, UINT id, MModule module);
  Message(MessageType type, UINT id, const MInsert& one);
  Message(MessageType type, UINT id, const MInsert& one, MModule module);
  Message(MessageType type, UINT id, const MInsert& one, const MInsert& two);
  Message(MessageType type, UINT id, const MInsert& one, const MInsert& two, MModule module);
  Message(MessageType type, UINT id, const MInsert& one, const MInsert& two, const MInsert& three);
  Message(MessageType type, UINT id, const MInsert& one, const MInsert& two, const MInsert& three,
          MModule module);

  void SetButtons(MessageButtonStyle style) { SetButtonStyle(style); }
  // As those of MMessageBox, with a value, 0 or 1, in the place of the style. The check box 0 of a
  // note that can be silenced is taken.
  void SetCheckBox(const char* text, int value) { SetCheckBox(0, text, value); }
  void SetCheckBox(int index, const char* text, int value);
  // Whether a message that the user has silenced with the second button gives that answer. When
  // it doesn't, which is the default, such a message is shown again (ASSERT).
  void SetAllowSelectiveCancel(BOOL allow) { m_allowSelectiveCancel = allow; }

  // Shows the message, or finds its answer: IDOK for the first button, IDCANCEL for the second one.
  // -1: the box could not be created.
  int DoModal() override;
  int display() { return DoModal(); }

  // --- In one call; they throw "Id error" as the constructors do ---

  // Shows a message with an OK button; its result as above.
  static int DisplayMessage(MessageType type, UINT id);
  static int DisplayMessage(MessageType type, UINT id, const MInsert& one, const MInsert& two = {},
                            const MInsert& three = {});
  static int DisplayErrorMessage(UINT id);
  static int DisplayErrorMessage(UINT id, const MInsert& one, const MInsert& two = {});

  // A question, as a warning. TRUE: yes.
  static BOOL GetConfirmation(UINT id);
  static BOOL GetConfirmation(UINT id, const MInsert& one, const MInsert& two = {});
  // With a check box: the text with the id checkTextId, none when that is 0. checkValue: its value
  // before and after; it stays as it is when no check box was shown.
  static BOOL GetConfirmationWithCheck(UINT checkTextId, int& checkValue, UINT id);
  static BOOL GetConfirmationWithCheck(UINT checkTextId, int& checkValue, UINT id,
                                       const MInsert& one, const MInsert& two = {});

  // --- What the user has said about the message with an id ---

  // TRUE: nothing; it is shown.
  static BOOL ShowMessage(UINT id);
  static BOOL ShowMessage(UINT id, MRegistry::DisplayMessageVal& answer);
  // As MRegistry::SetDontShowMessage.
  static int DontShowMessage(UINT id, int dontShow, int answer);

  // --- For the process ---

  // The title of all messages. Empty: they have the program's name.
  static void SetTitle(const char* title);
  static CString GetTitle();
  // Not 0: no message is shown, see above.
  static void SetSilent(int silent);
  static int IsSilent();

 private:
  Message(MessageType type, const CString& text, UINT id);
  static BOOL Confirm(UINT checkTextId, int& checkValue, const CString& text, UINT id);

  MessageType m_type;
  CString m_text;
  BOOL m_show = TRUE;
  UINT m_id;  // 0: the text is from no string table
  bool m_canBeSilenced = false;
  BOOL m_allowSelectiveCancel = FALSE;
};
