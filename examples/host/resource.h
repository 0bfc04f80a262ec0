// Ids of the program's texts. Those of the library begin at 23000.
#pragma once

#define IDS_NO_FILES 100
#define IDS_NOT_ALL_READ 101
#define IDS_COUNTED 102
#define IDS_PROGRESS 103
