#pragma once

#define IDR_FRAME 500  // menu, keys and title of a frame

#define ID_HANDLED 0x8101
#define ID_UNHANDLED 0x8102
#define ID_CHECKED 0x8103
#define ID_RADIO 0x8104
#define ID_RENAMED 0x8105
#define ID_DISABLED 0x8106
#define ID_PASSED_ON 0x8107
