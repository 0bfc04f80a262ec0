// The answer to WM_PAINT without flicker: drawn in memory, and copied to the window at the end.
#pragma once

#include <afxwin.h>

class BufferedPaint {
 public:
  explicit BufferedPaint(CWnd& window) : m_window(&window) {
    window.GetClientRect(&m_client);
    m_memory.CreateCompatibleDC(&m_window);
    m_bitmap.CreateCompatibleBitmap(&m_window, m_client.Width() > 0 ? m_client.Width() : 1,
                                    m_client.Height() > 0 ? m_client.Height() : 1);
    m_before = m_memory.SelectObject(&m_bitmap);
  }
  ~BufferedPaint() {
    m_window.BitBlt(0, 0, m_client.Width(), m_client.Height(), &m_memory, 0, 0, SRCCOPY);
    m_memory.SelectObject(m_before);
  }
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  CDC& dc() { return m_memory; }
  const CRect& client() const { return m_client; }

 private:
  CPaintDC m_window;
  CRect m_client;
  CBitmap m_bitmap;
  CDC m_memory;
  CBitmap* m_before;
};

// Selects an object for drawing, and at its end the one from before.
template <class Object>
class Selected {
 public:
  Selected(CDC& dc, Object& object) : m_dc(dc), m_before(dc.SelectObject(&object)) {}
  ~Selected() { m_dc.SelectObject(m_before); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  CDC& m_dc;
  Object* m_before;
};
