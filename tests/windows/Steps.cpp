#include "windows/Steps.h"

BEGIN_MESSAGE_MAP(StepDialog, CDialog)
ON_MESSAGE(WM_KICKIDLE, &StepDialog::OnKickIdle)
END_MESSAGE_MAP()
