// The ids of the main window's resources; those of the difference window are from 30000 on.
#pragma once

// Icon, menu and keys of the main window.
#define IDR_MAIN 25000
