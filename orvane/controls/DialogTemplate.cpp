#include "controls/DialogTemplate.h"

#include <cstring>

namespace {

constexpr size_t kCountOfItems = 4;  // where it stands, in words

}  // namespace

DialogTemplate::DialogTemplate(DWORD style, const char* caption, const char* face, int pointSize) {
  PutDouble(style | DS_SETFONT);
  PutDouble(0);                        // extended style
  Put(0);                              // items
  for (int i = 0; i < 4; ++i) Put(0);  // place
  Put(0), Put(0);                      // no menu, the class of dialogs
  PutText(caption);
  Put(static_cast<WORD>(pointSize));
  PutText(face);
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
  PutText(window.text);
  Put(0);  // no creation data
  ++m_words[kCountOfItems];
}

void DialogTemplate::PutText(const char* text) {
  const int bytes = static_cast<int>(strlen(text)) + 1;
  const int length = MultiByteToWideChar(CP_ACP, 0, text, bytes, nullptr, 0);
  std::vector<wchar_t> wide(length);
  MultiByteToWideChar(CP_ACP, 0, text, bytes, wide.data(), length);
  m_words.insert(m_words.end(), wide.begin(), wide.end());
}
