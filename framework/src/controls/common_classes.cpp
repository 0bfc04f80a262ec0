#include "controls/common_classes.h"

#include <afxcmn.h>

void RegisterCommonControls() {
  static const INITCOMMONCONTROLSEX classes = {sizeof classes,
                                               ICC_WIN95_CLASSES | ICC_DATE_CLASSES};
  static const BOOL registered = InitCommonControlsEx(&classes);
  (void)registered;
}
