#include "controls/DialogTemplate.h"

#include <cstring>

namespace {

constexpr size_t kCountOfItems = 4;  // where it stands, in words

}  // namespace

DialogTemplate::DialogTemplate(DWORD style, const char* face, int pointSize) {
  PutDouble(style | DS_SETFONT);
  PutDouble(0);                        // extended style
  Put(0);                              // items
  for (int i = 0; i < 4; ++i) Put(0);  // place
  Put(0), Put(0);                      // no menu, the class of dialogs
  Put(0);                              // no caption
  Put(static_cast<WORD>(pointSize));
  PutName(face);
}

void DialogTemplate::Add(const MControlData::Window& window) {
  if (m_words.size() % 2 != 0) Put(0);  // items begin at multiples of four bytes
  PutDouble(window.style | WS_CHILD | WS_VISIBLE);
  PutDouble(window.systemClass == MControlData::EditClass ||
                    window.systemClass == MControlData::ListBoxClass
                ? WS_EX_CLIENTEDGE
                : 0);
  for (int i = 0; i < 4; ++i) Put(0);
  Put(static_cast<WORD>(window.id));
  Put(0xFFFF), Put(window.systemClass);
  Put(0), Put(0);  // no text, no creation data
  ++m_words[kCountOfItems];
}

void DialogTemplate::PutName(const char* name) {
  m_words.insert(m_words.end(), name, name + strlen(name) + 1);
}
