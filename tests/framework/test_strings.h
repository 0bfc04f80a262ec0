// The ids of the program's string table.
#pragma once

#define kFormatId 1001
#define kMessageId 1004
#define kTimeFormatId 1005
#define kSpanFormatId 1006
#define kTwoInsertsId 1007
#define kLongId 1008
#define kMissingId 3000
