// Drawing into memory, and looking at what was drawn.
#pragma once

#include <afxwin.h>

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);

// A context with a bitmap of its own, white at first.
class Canvas : public CDC {
 public:
  explicit Canvas(int width = 64, int height = 64) {
    CClientDC screen(nullptr);
    CreateCompatibleDC(&screen);
    m_bitmap.CreateCompatibleBitmap(&screen, width, height);
    m_before = SelectObject(&m_bitmap);
    FillSolidRect(0, 0, width, height, kWhite);
  }
  ~Canvas() override { SelectObject(m_before); }

  // The bitmap, which is no longer drawn into.
  CBitmap& Picture() {
    SelectObject(m_before);
    return m_bitmap;
  }

  // The smallest rectangle around all pixels that have a colour.
  CRect Find(COLORREF colour) const {
    BITMAP size;
    CBitmap* const bitmap = GetCurrentBitmap();
    bitmap->GetBitmap(&size);
    CRect found(0, 0, 0, 0);
    for (int y = 0; y < size.bmHeight; ++y)
      for (int x = 0; x < size.bmWidth; ++x)
        if (GetPixel(x, y) == colour) found |= CRect(x, y, x + 1, y + 1);
    return found;
  }

 private:
  CBitmap m_bitmap;
  CBitmap* m_before;
};
