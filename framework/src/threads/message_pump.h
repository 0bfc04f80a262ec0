// Messages of the calling thread, which may have an object or not.
#pragma once

#include <afxwin.h>

// Waits for a message, translates and dispatches it through the thread's object if there is one.
// False: it was WM_QUIT. *message receives it.
bool PumpMessage(MSG* message);
bool IsMessageWaiting();
// Whether idle work is to follow the message, and what a thread does without an object of its own.
bool IsIdleMessage(MSG& message);
bool IsIdleMessageByDefault(const MSG& message);
// Asks the windows from the message's to the main window.
bool PreTranslateByDefault(MSG& message);
