// The font of the dialogs that are laid out in code, its measures, and lengths in pixels.
#pragma once

#include <afxwin.h>

// What lengths of a dialog are given in.
enum class MDialogUnits {
  HundredthsOfMillimetre,
  // A quarter of the font's average character width, an eighth of its height, as in the templates
  // of dialogs.
  OfDialog
};

// The kinds of controls that a text can be measured for.
enum class MControlKind { TextBox, CheckBox, RadioButton, Edit, List, PushButton, Icon };

// Measures at the resolution of the screen. Holds two objects of the system while it lives.
class DialogMetrics {
 public:
  static constexpr int kPointSize = 8;
  static constexpr const char* kFace = "MS Shell Dlg";

  DialogMetrics();
  ~DialogMetrics();
  DialogMetrics(const DialogMetrics&) = delete;
  DialogMetrics& operator=(const DialogMetrics&) = delete;

  // The pixels that a control of a kind needs for a text. width: the text is broken into lines so
  // that the control is no wider; 0: only where it has line breaks.
  CSize ControlSize(const char* text, MControlKind kind, int width);

  // To pixels, to the nearest one; and back, upwards, so that there is no pixel less.
  CSize ToPixels(CSize size, MDialogUnits units) const;
  CSize FromPixels(CSize pixels, MDialogUnits units) const;

 private:
  CSize TextSize(const char* text, UINT format, int width);
  // A length that is given for 96 dots per inch.
  int Scaled(int pixels) const { return MulDiv(pixels, m_resolution.cx, 96); }

  CDC m_dc;
  CFont m_font;
  CFont* m_oldFont;
  CSize m_resolution;  // dots per inch
  CSize m_base;        // average width and height of a character
};
